#include "support/ChildWindow.h"

#include <windows.h>

namespace orvane::tests {

namespace {

HWND MakeWindow(DWORD style, int width, int height, HWND parent) {
    return CreateWindowExW(0, L"STATIC", L"", style, 30, 40, width, height, parent, nullptr,
                           GetModuleHandleW(nullptr), nullptr);
}

} // namespace

struct ChildWindow::State {
    HWND parent, window;
};

ChildWindow::ChildWindow(int width, int height, Parent parent)
    : mState(std::make_unique<State>()) {
    const DWORD style = WS_POPUP | (parent == Parent::Iconic ? WS_MINIMIZE : 0);
    mState->parent = MakeWindow(style, width, height, nullptr);
    mState->window = MakeWindow(WS_CHILD, width, height, mState->parent);
}

ChildWindow::~ChildWindow() {
    DestroyWindow(mState->parent);
}

platform::NativeWindow ChildWindow::Window() const {
    return { mState->window };
}

void ChildWindow::Resize(int width, int height) {
    SetWindowPos(mState->window, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void ChildWindow::Destroy() {
    DestroyWindow(mState->window);
}

} // namespace orvane::tests
