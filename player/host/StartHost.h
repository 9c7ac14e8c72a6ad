// Starting the visualizer host's process with no more rights than it needs.
#pragma once

#include "player/client/UniqueHandle.h"

#include <string>

namespace orvane::player {

struct StartedProcess {
    UniqueHandle process; // empty if it couldn't be started
    DWORD id = 0;
    DWORD mainThreadId = 0;
    DWORD error = ERROR_SUCCESS; // why it couldn't
};

// Starts a program without arguments, a console or anything inherited. If this process is fully elevated the new one
// gets the limited token of the same user, because a fully elevated host loads no plug-ins; where the system doesn't
// let the limited token be used, the new process is as elevated as this one.
[[nodiscard]] StartedProcess StartLimited(const std::wstring& program);

} // namespace orvane::player
