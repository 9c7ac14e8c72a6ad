#include "player/host/HostWindow.h"

#include <algorithm>
#include <vector>

namespace orvane::player {

namespace {

constexpr wchar_t kWindowClass[] = L"ORVANE OOPWIND";

BOOL CALLBACK Collect(HMONITOR monitor, HDC, RECT*, LPARAM list) {
    MONITORINFO info = {};
    info.cbSize = sizeof(info);
    if (GetMonitorInfoW(monitor, &info)) reinterpret_cast<std::vector<MONITORINFO>*>(list)->push_back(info);
    return TRUE;
}

// From the left to the right, and from the top down.
std::vector<MONITORINFO> Monitors() {
    std::vector<MONITORINFO> monitors;
    EnumDisplayMonitors(nullptr, nullptr, Collect, reinterpret_cast<LPARAM>(&monitors));
    std::sort(monitors.begin(), monitors.end(), [](const MONITORINFO& a, const MONITORINFO& b) {
        return a.rcMonitor.left != b.rcMonitor.left ? a.rcMonitor.left < b.rcMonitor.left
                                                    : a.rcMonitor.top < b.rcMonitor.top;
    });
    return monitors;
}

} // namespace

void HostWindow::Find(DWORD processId) {
    if (mWindow) return;
    HWND window = nullptr;
    while ((window = FindWindowExW(nullptr, window, kWindowClass, nullptr)) != nullptr) {
        DWORD owner = 0;
        const DWORD thread = GetWindowThreadProcessId(window, &owner);
        if (owner != processId) continue;
        mWindow = window;
        mThreadId = thread;
        return;
    }
}

bool HostWindow::FillsMonitor() const {
    RECT place = {};
    MONITORINFO info = {};
    info.cbSize = sizeof(info);
    if (!mWindow || !GetWindowRect(mWindow, &place)) return false;
    if (!GetMonitorInfoW(MonitorFromWindow(mWindow, MONITOR_DEFAULTTONEAREST), &info)) return false;
    return EqualRect(&place, &info.rcMonitor) != FALSE;
}

bool HostWindow::MoveToMonitor(int number) const {
    const auto monitors = Monitors();
    RECT place = {};
    if (number < 1 || std::size_t(number) > monitors.size()) return false;
    if (!mWindow || !GetWindowRect(mWindow, &place)) return false;
    const RECT& area = monitors[std::size_t(number - 1)].rcWork;
    const LONG left = area.left + (area.right - area.left - (place.right - place.left)) / 2;
    const LONG top = area.top + (area.bottom - area.top - (place.bottom - place.top)) / 2;
    // The window's thread may be busy with a frame: nobody waits for it.
    constexpr UINT kFlags = SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_ASYNCWINDOWPOS;
    return SetWindowPos(mWindow, nullptr, left, top, 0, 0, kFlags) != FALSE;
}

} // namespace orvane::player
