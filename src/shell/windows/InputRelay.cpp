#include "shell/windows/InputRelay.h"

#include "platform/LogLine.h"
#include "records/PulseEvents.h"
#include "shell/server/PluginPipeServer.h"
#include "shell/windows/SystemCommands.h"

namespace orvane::shell {

using platform::LogLine;

// KEEP: a character that is taken gives 1 in the proxy window and 0 in the window around it. Pinned by
// ProxyCharacters.ATakenOneGivesOne.
// KEEP: the proxy window hands on the low byte alone, so a character beyond Latin-1 arrives as another one.
// Pinned by ProxyCharacters.OnlyTheLowByteIsHandedOn.
constinit const InputRelay kTopLevelInput = {
    .name = "OOPWindowProc",
    .taken = 0,
    .characterBits = 0xFFFF,
    .controlKeyLine = "OOPWindowProc::Control key down\n",
    .noFullScreenLine = "OOPWindowProc::WM_CHAR VK_XBUTTON2 no sOOPWindowProcPipeServer\n",
    .noSystemCommandLine = "OOPWindowProc::WM_SYSCOMMAND no sOOPWindowProcPipeServer\n",
    .noCharacterLine = "OOPWindowProc::WM_CHAR no sOOPWindowProcPipeServer\n",
};
constinit const InputRelay kProxyInput = {
    .name = "Proxy",
    .taken = 1,
    .characterBits = 0xFF,
    .controlKeyLine = "Proxy::Control key down\n",
    .noFullScreenLine = "Proxy::WM_CHAR VK_XBUTTON2 no sPipeServer\n",
    .noSystemCommandLine = "Proxy::WM_SYSCOMMAND no sOOPWindowProcPipeServer\n",
    .noCharacterLine = nullptr,
};

namespace {

constexpr LPARAM kExtendedKeyBit = LPARAM(1) << 24; // of WM_KEYDOWN's lParam

void ToggleFullScreen(PluginPipeServer* server, const char* noServerLine) {
    if (server)
        server->ToggleFullScreen();
    else
        LogLine(noServerLine);
}

MessageResult AskToClose(const InputRelay& relay, PluginPipeServer*, const WindowMessage&) {
    records::sCloseRequested = true;
    return relay.taken;
}

MessageResult ToggleByCharacter(const InputRelay& relay, PluginPipeServer* server, const WindowMessage&) {
    ToggleFullScreen(server, relay.noFullScreenLine);
    return std::nullopt;
}

MessageResult HandOn(const InputRelay& relay, PluginPipeServer* server, const WindowMessage& message) {
    if (!server) {
        if (relay.noCharacterLine) LogLine(relay.noCharacterLine);
        return std::nullopt;
    }
    const bool taken =
        server->HandleKey(std::uint16_t(message.wParam & relay.characterBits), std::uint32_t(message.lParam));
    return taken ? MessageResult(relay.taken) : std::nullopt;
}

// Characters with a meaning of their own; they reach no plug-in.
struct CharacterRow {
    WPARAM character;
    MessageResult (*handle)(const InputRelay& relay, PluginPipeServer* server, const WindowMessage& message);
};

constexpr CharacterRow kCharacters[] = {
    { 20, &AskToClose },       // Ctrl+T
    { 6, &ToggleByCharacter }, // Ctrl+F; the log lines call it VK_XBUTTON2
};

} // namespace

// KEEP: an extended key stores no code, so the player learns that there was one and not which. Pinned by
// Keys.AnExtendedKeyLeadsToTwoZeroWords.
MessageResult RelayKeyDown(const InputRelay& relay, const WindowMessage& message) {
    if (message.wParam == VK_CONTROL) LogLine(relay.controlKeyLine);
    if (message.lParam & kExtendedKeyBit) records::sKeyEventState = records::kExtendedKey;
    return std::nullopt;
}

MessageResult RelayCharacter(const InputRelay& relay, PluginPipeServer* server,
                             const WindowMessage& message) {
    for (const CharacterRow& row : kCharacters)
        if (row.character == message.wParam) return row.handle(relay, server, message);
    return HandOn(relay, server, message);
}

MessageResult RelaySystemCommand(const InputRelay& relay, PluginPipeServer* server,
                                 const WindowMessage& message) {
    if (!IsKeyMenu(message.wParam))
        LogSystemCommand(relay.name, message.wParam);
    else if (IsAltEnter(message.lParam))
        ToggleFullScreen(server, relay.noSystemCommandLine);
    return std::nullopt;
}

} // namespace orvane::shell
