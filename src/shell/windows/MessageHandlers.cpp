#include "shell/windows/MessageHandlers.h"

#include "platform/LogLine.h"
#include "records/PulseEvents.h"

namespace orvane::shell {

void NoteKeyDown(const char* controlKeyLine, const WindowMessage& message) {
    if (message.wParam == VK_CONTROL) platform::LogLine(controlKeyLine);
    if (message.lParam & kExtendedKeyBit) records::sKeyEventState = records::kExtendedKey;
}

} // namespace orvane::shell
