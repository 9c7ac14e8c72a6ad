#include "shell/server/OOPWinPipeServer.h"
#include "shell/windows/InputRelay.h"
#include "shell/windows/MessageHandlers.h"
#include "shell/windows/ProxyMessages.h"
#include "shell/windows/WindowProcedures.h"

namespace orvane::shell {

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
    return RelayKeyDown(kProxyInput, message);
}

MessageResult OnCharacter(const WindowMessage& message) {
    return RelayCharacter(kProxyInput, sPipeServer, message);
}

MessageResult OnSystemCommand(const WindowMessage& message) {
    return RelaySystemCommand(kProxyInput, sPipeServer, message);
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
