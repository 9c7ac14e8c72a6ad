// The life of the host process: start, serve, end.
#pragma once

#include <windows.h>

namespace orvane::shell {

// Runs the host and returns the process's exit code: that of WM_QUIT, or -1 if the server could not be
// initialised. No request and no window event ends it.
[[nodiscard]] int HostMain(HINSTANCE instance);

} // namespace orvane::shell
