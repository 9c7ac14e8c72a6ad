// A window below another one, as the proxy window is, without anything being shown.
#pragma once

#include "platform/NativeWindow.h"

#include <memory>

namespace orvane::tests {

// One file for each platform: on Windows real windows, natively what a window answers.
class ChildWindow {
public:
    enum class Parent { Normal, Iconic };

    // All client area, of that many pixels.
    ChildWindow(int width, int height, Parent parent = Parent::Normal);
    ~ChildWindow();
    ChildWindow(const ChildWindow&) = delete;
    ChildWindow& operator=(const ChildWindow&) = delete;

    [[nodiscard]] platform::NativeWindow Window() const;

    void Resize(int width, int height);

    // From now on it doesn't answer; the handle stays what it was.
    void Destroy();

private:
    struct State;
    std::unique_ptr<State> mState;
};

} // namespace orvane::tests
