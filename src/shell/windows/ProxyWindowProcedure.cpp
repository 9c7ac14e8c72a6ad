#include "platform/LogLine.h"
#include "records/PulseEvents.h"
#include "shell/server/OOPWinPipeServer.h"
#include "shell/windows/MessageHandlers.h"
#include "shell/windows/ProxyMessages.h"
#include "shell/windows/SystemCommands.h"
#include "shell/windows/WindowProcedures.h"

namespace orvane::shell {

using platform::LogLine;

namespace {

// From the window's creation to its destruction.
PluginPipeServer* sPipeServer = nullptr;

MessageResult OnCreate(const WindowMessage& message) {
    sPipeServer = CreationParameter<OOPWinPipeServer>(message);
    return std::nullopt;
}

MessageResult OnDestroy(const WindowMessage&) {
    sPipeServer = nullptr;
    return std::nullopt;
}

MessageResult OnSize(const WindowMessage& message) {
    if (sPipeServer) sPipeServer->ResizeRenderTarget(LOWORD(message.lParam), HIWORD(message.lParam));
    return std::nullopt;
}

MessageResult OnEraseBackground(const WindowMessage&) {
    return 0; // the plug-in owns every pixel
}

MessageResult OnKeyDown(const WindowMessage& message) {
    NoteKeyDown("Proxy::Control key down\n", message);
    return std::nullopt;
}

// KEEP: a character that is taken gives 1 here, and 0 in the window around it. Pinned by
// ProxyCharacters.ATakenOneGivesOne.
MessageResult OnCharacter(const WindowMessage& message) {
    if (message.wParam == kCloseCharacter) {
        records::sCloseRequested = true;
        return 1;
    }
    if (message.wParam == kFullScreenCharacter) {
        if (sPipeServer)
            sPipeServer->ToggleFullScreen();
        else
            LogLine("Proxy::WM_CHAR VK_XBUTTON2 no sPipeServer\n");
        return std::nullopt;
    }
    // KEEP: the low byte alone, so a character beyond Latin-1 arrives as another one. Pinned by
    // ProxyCharacters.OnlyTheLowByteIsHandedOn.
    if (sPipeServer && sPipeServer->HandleKey(LOBYTE(message.wParam), std::uint32_t(message.lParam)))
        return 1;
    return std::nullopt;
}

MessageResult OnSystemCommand(const WindowMessage& message) {
    if (!IsKeyMenu(message.wParam)) {
        LogSystemCommand("Proxy", message.wParam);
    } else if (IsAltEnter(message.lParam)) {
        if (sPipeServer)
            sPipeServer->ToggleFullScreen();
        else
            LogLine("Proxy::WM_SYSCOMMAND no sOOPWindowProcPipeServer\n");
    }
    return std::nullopt;
}

constexpr MessageHandler kHandlers[] = {
    { WM_CREATE, &OnCreate },
    { WM_DESTROY, &OnDestroy },
    { WM_SIZE, &OnSize },
    { WM_ERASEBKGND, &OnEraseBackground },
    { WM_KEYDOWN, &OnKeyDown },
    { WM_CHAR, &OnCharacter },
    { WM_SYSCOMMAND, &OnSystemCommand },
};

} // namespace

LRESULT CALLBACK ProxyWindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (const auto* row = FindRow(kHandlers, message)) {
        if (const MessageResult result = row->handle({ window, message, wParam, lParam })) return *result;
    } else {
        LogProxyMessage(message);
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

} // namespace orvane::shell
