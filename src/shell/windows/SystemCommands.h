// System commands as the console names them, and the one that the windows act upon.
#pragma once

#include <windows.h>

namespace orvane::shell {

// Prints "SOURCE:SYSTEMCOMMAND:NAME", with an empty name for a command that the platform's list doesn't
// have. The low four bits of `command`, a WM_SYSCOMMAND's wParam, are the platform's own.
void LogSystemCommand(const char* source, WPARAM command);

// Whether a WM_SYSCOMMAND comes from the keyboard (SC_KEYMENU), and then whether it is Alt+Enter.
[[nodiscard]] bool IsKeyMenu(WPARAM command);
[[nodiscard]] bool IsAltEnter(LPARAM lParam);

} // namespace orvane::shell
