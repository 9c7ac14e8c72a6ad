// The procedures of the two windows. Both run on the main thread only.
#pragma once

#include <windows.h>

namespace orvane::shell {

LRESULT CALLBACK ProxyWindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT CALLBACK TopLevelWindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

} // namespace orvane::shell
