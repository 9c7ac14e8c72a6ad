// The procedures of the two windows. Both run on the main thread only.
//
// Each character goes first to the current plug-in; what that doesn't take goes back to the player with the
// next pulse reply. Mouse input has no meaning beyond the caption strip.
#pragma once

#include <windows.h>

namespace orvane::shell {

// The borderless window: gives it a caption, borders and boxes made by hand.
LRESULT CALLBACK TopLevelWindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

// The child window in which plug-ins draw. Messages that it does nothing about are passed on in silence,
// logged by name or logged by number, each by its row in a table.
LRESULT CALLBACK ProxyWindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

} // namespace orvane::shell
