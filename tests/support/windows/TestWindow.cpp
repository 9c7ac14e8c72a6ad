#include "support/windows/TestWindow.h"

namespace orvane::tests {
namespace {

constexpr wchar_t kClassName[] = L"ORVANE TEST WINDOW";
constexpr int kChildOffset = 8; // pixels

void RegisterOnce() {
    static const ATOM sClass = [] {
        WNDCLASSW windowClass{};
        windowClass.lpfnWndProc = DefWindowProcW;
        windowClass.hInstance = GetModuleHandleW(nullptr);
        windowClass.lpszClassName = kClassName;
        return RegisterClassW(&windowClass);
    }();
    static_cast<void>(sClass);
}

// Shown without being activated: where no window manager runs, Wine takes an activated window for a managed
// one, and waits two seconds for the manager when the window goes.
HWND Open(DWORD style, HWND parent, int offset, int width, int height) {
    RECT rect{ 0, 0, width, height };
    AdjustWindowRect(&rect, style, FALSE);
    const HWND window =
        CreateWindowExW(0, kClassName, L"Orvane test", style, offset, offset, rect.right - rect.left,
                        rect.bottom - rect.top, parent, nullptr, GetModuleHandleW(nullptr), nullptr);
    ShowWindow(window, SW_SHOWNOACTIVATE);
    return window;
}

} // namespace

TestWindow::TestWindow(int width, int height, WindowPlace place) {
    RegisterOnce();
    if (place == WindowPlace::Child) {
        mParent =
            Open(WS_POPUP | WS_CLIPCHILDREN, nullptr, 0, width + 2 * kChildOffset, height + 2 * kChildOffset);
        mWindow = Open(WS_CHILD, mParent, kChildOffset, width, height);
    } else {
        mWindow = Open(WS_POPUP, nullptr, 0, width, height);
    }
    PumpMessages();
}

TestWindow::~TestWindow() {
    DestroyWindow(mParent != nullptr ? mParent : mWindow);
    PumpMessages();
}

void TestWindow::Resize(int width, int height) const {
    SetWindowPos(mWindow, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    PumpMessages();
}

bool PumpMessages() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) return false;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return true;
}

} // namespace orvane::tests
