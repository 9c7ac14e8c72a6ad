#include "shell/windows/WindowProcedures.h"

namespace orvane::shell {

LRESULT CALLBACK ProxyWindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return DefWindowProcW(window, message, wParam, lParam);
}

LRESULT CALLBACK TopLevelWindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return DefWindowProcW(window, message, wParam, lParam);
}

} // namespace orvane::shell
