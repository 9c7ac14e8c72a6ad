// The window server's keys: first to the current plug-in, and what that doesn't take, back to the player.
#include "shell/server/OOPWinPipeServer.h"

#include "platform/LogLine.h"
#include "records/PulseEvents.h"

namespace orvane::shell {

using platform::LogFormat;
using platform::LogLine;

bool OOPWinPipeServer::HandleKey(std::uint16_t character, std::uint32_t keyParam) {
    const platform::OwnedLock lock(mPluginLock);
    if (!mCurrentPlugin) {
        LogLine("OOPWinPipeServer::Current plugin is null. Cannot take key input\n");
        return false;
    }
    const auto typed = char16_t(character);
    if (mCurrentPlugin->KeyInput(1, &typed, 0)) return true;

    // For the next pulse reply. A second character before that overwrites the first. The state comes last: a reply
    // that is made meanwhile on the service thread takes the key whole or not at all.
    records::sKeyEventCode = character;
    records::sKeyEventParam = keyParam;
    records::sKeyEventState = records::kCharacterLeftOver;
    LogFormat("OOPWindowProc::HandleKey. controlKeyState 0x%X shiftKeyState 0x%X. \n",
              unsigned(int(GetKeyState(VK_CONTROL))), unsigned(int(GetKeyState(VK_SHIFT))));
    return false;
}

} // namespace orvane::shell
