#include "support/ChildWindow.h"

namespace orvane::tests {

struct ChildWindow::State {
    platform::NativeWindowAnswers answers;
};

ChildWindow::ChildWindow(int width, int height, Parent parent)
    : mState(std::make_unique<State>()) {
    mState->answers.parentIconic = parent == Parent::Iconic;
    Resize(width, height);
}

ChildWindow::~ChildWindow() = default;

platform::NativeWindow ChildWindow::Window() const {
    return mState->answers.AsWindow();
}

void ChildWindow::Resize(int width, int height) {
    mState->answers.client = { 0, 0, width, height };
    mState->answers.window = { 30, 40, 30 + width, 40 + height };
}

void ChildWindow::Destroy() {
    mState->answers.rectsAvailable = false;
}

} // namespace orvane::tests
