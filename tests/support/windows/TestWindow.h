// A plain visible window for things that draw into one, top-level or a child of a top-level one.
#pragma once

#include "platform/NativeWindow.h"

#include <windows.h>

namespace orvane::tests {

enum class WindowPlace { TopLevel, Child };

class TestWindow {
public:
    // The client area has that many pixels; a child lies at (8, 8) of its parent.
    TestWindow(int width, int height, WindowPlace place = WindowPlace::TopLevel);
    ~TestWindow();
    TestWindow(const TestWindow&) = delete;
    TestWindow& operator=(const TestWindow&) = delete;

    [[nodiscard]] HWND Handle() const { return mWindow; }

    [[nodiscard]] platform::NativeWindow AsNative() const { return { mWindow }; }

    // The client area's new size.
    void Resize(int width, int height) const;

private:
    HWND mParent = nullptr;
    HWND mWindow = nullptr;
};

// Dispatches what waits in this thread's queue. False once it was told to quit.
bool PumpMessages();

} // namespace orvane::tests
