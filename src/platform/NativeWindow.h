// A window as the neutral code knows it: an opaque handle and the few questions asked of it.
//
// On Windows the handle is an HWND. Natively it points to a NativeWindowAnswers that a test owns.
#pragma once

namespace orvane::platform {

struct NativeWindow {
    void* handle = nullptr;

    explicit operator bool() const { return handle != nullptr; }

    bool operator==(const NativeWindow&) const = default;
};

// Screen pixels; right and bottom are exclusive.
struct PixelRect {
    int left = 0, top = 0, right = 0, bottom = 0;

    [[nodiscard]] int Width() const { return right - left; }

    [[nodiscard]] int Height() const { return bottom - top; }

    bool operator==(const PixelRect&) const = default;
};

// The client rectangle (its left and top are 0), or the window's rectangle on the screen. False, with
// `rect` as it was, if the window is gone or was never there.
[[nodiscard]] bool ClientRectOf(NativeWindow window, PixelRect& rect);
[[nodiscard]] bool WindowRectOf(NativeWindow window, PixelRect& rect);

// Whether the window's parent is minimised; false without a parent.
[[nodiscard]] bool IsParentIconic(NativeWindow window);

// What a window answers in a native program.
struct NativeWindowAnswers {
    PixelRect client, window;
    bool rectsAvailable = true;
    bool parentIconic = false;

    NativeWindow AsWindow() { return { this }; }
};

} // namespace orvane::platform
