// The window server's full screen.
#include "shell/server/OOPWinPipeServer.h"

namespace orvane::shell {

namespace {

constexpr UINT kKeepPlaceAndPicture = SWP_NOSIZE | SWP_NOMOVE | SWP_NOREDRAW;

// Moves the window from where it is. Its size message lays out the proxy window; where the size stays as it
// is, as that of a maximised window does in full screen, none comes by itself.
bool MoveTo(HWND window, HWND insertAfter, const RECT& rect) {
    const int width = int(rect.right - rect.left), height = int(rect.bottom - rect.top);
    RECT before = {};
    GetWindowRect(window, &before);
    const bool moved =
        SetWindowPos(window, insertAfter, int(rect.left), int(rect.top), width, height, 0) == TRUE;
    if (before.right - before.left == width && before.bottom - before.top == height)
        PostMessageW(window, WM_SIZE, IsZoomed(window) ? SIZE_MAXIMIZED : SIZE_RESTORED,
                     MAKELPARAM(width, height));
    return moved;
}

} // namespace

void OOPWinPipeServer::SetFullScreen(bool on) {
    if (!mOOPWind || on == mIsFullScreen) return;
    if (on)
        EnterFullScreen();
    else
        LeaveFullScreen();
}

void OOPWinPipeServer::ToggleFullScreen() {
    SetFullScreen(!mIsFullScreen);
}

void OOPWinPipeServer::EnterFullScreen() {
    MONITORINFO monitor = {};
    monitor.cbSize = sizeof(monitor);
    RECT windowed = {};
    if (!GetMonitorInfoW(MonitorFromWindow(mOOPWind, MONITOR_DEFAULTTONEAREST), &monitor) ||
        !GetWindowRect(mOOPWind, &windowed))
        return;
    mWindowedRect = windowed;
    mIsFullScreen = true;
    ShowCursor(FALSE);
    --mCursorHideCount;
    mWindowedRectValid = MoveTo(mOOPWind, HWND_TOPMOST, monitor.rcMonitor);
}

void OOPWinPipeServer::LeaveFullScreen() {
    mIsFullScreen = false;
    for (; mCursorHideCount < 0; ++mCursorHideCount) ShowCursor(TRUE);
    if (mWindowedRectValid) {
        MoveTo(mOOPWind, HWND_NOTOPMOST, mWindowedRect);
        mWindowedRectValid = false;
    } else {
        SetWindowPos(mOOPWind, HWND_NOTOPMOST, 0, 0, 0, 0, kKeepPlaceAndPicture);
    }
}

} // namespace orvane::shell
