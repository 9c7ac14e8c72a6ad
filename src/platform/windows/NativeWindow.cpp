#include "platform/NativeWindow.h"

#include <windows.h>

namespace orvane::platform {

namespace {

bool Ask(BOOL(WINAPI* question)(HWND, RECT*), NativeWindow window, PixelRect& rect) {
    RECT answer;
    if (!question(static_cast<HWND>(window.handle), &answer)) return false;
    rect = { int(answer.left), int(answer.top), int(answer.right), int(answer.bottom) };
    return true;
}

} // namespace

bool ClientRectOf(NativeWindow window, PixelRect& rect) {
    return Ask(&GetClientRect, window, rect);
}

bool WindowRectOf(NativeWindow window, PixelRect& rect) {
    return Ask(&GetWindowRect, window, rect);
}

bool IsParentIconic(NativeWindow window) {
    return IsIconic(GetParent(static_cast<HWND>(window.handle))) != FALSE;
}

} // namespace orvane::platform
