// The host's top-level window, seen from another process.
#pragma once

#include <windows.h>

namespace orvane::player {

class HostWindow {
public:
    // Looks for the window of that process, unless it has been found before.
    void Find(DWORD processId);

    // Whether it was found and is destroyed by now.
    [[nodiscard]] bool IsDestroyed() const { return mWindow && !IsWindow(mWindow); }

    // The thread that it belongs to, also after its end; 0 if it was never found.
    [[nodiscard]] DWORD ThreadId() const { return mThreadId; }

    // Whether it fills a monitor.
    [[nodiscard]] bool FillsMonitor() const;

    // Moves it to the middle of a monitor's work area; monitors count from 1, from the left. False if there is no
    // such monitor, or no window.
    [[nodiscard]] bool MoveToMonitor(int number) const;

private:
    HWND mWindow = nullptr;
    DWORD mThreadId = 0;
};

} // namespace orvane::player
