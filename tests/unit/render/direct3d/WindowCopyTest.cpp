// Frames as they come up on the screen, whichever way the platform takes them there.
#include "render/direct3d/Direct3DRenderer.h"
#include "support/windows/TestWindow.h"

#include <gtest/gtest.h>

namespace orvane::tests {
namespace {

constexpr int kSide = 100;
constexpr float kRed[4] = { 1, 0, 0, 1 }, kBlue[4] = { 0, 0, 1, 1 };

// Another window may lie above at first; frames are shown again until the screen has the colour there.
bool ComesUp(render::Direct3DRenderer& renderer, HWND window, const float colour[4], int x, int y,
             COLORREF expected) {
    constexpr int kTries = 500;
    constexpr DWORD kPause = 10; // milliseconds
    for (int i = 0; i < kTries; ++i) {
        renderer.BeginFrame();
        renderer.Clear(colour);
        renderer.Present();
        PumpMessages();
        POINT place{ x, y };
        ClientToScreen(window, &place);
        const HDC screen = GetDC(nullptr);
        const COLORREF seen = GetPixel(screen, int(place.x), int(place.y));
        ReleaseDC(nullptr, screen);
        if (seen == expected) return true;
        SetWindowPos(GetAncestor(window, GA_ROOT), HWND_TOPMOST, 0, 0, 0, 0,
                     SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
        Sleep(kPause);
    }
    return false;
}

// The window around a child has a target of its own, as the host's has for its caption.
void ExpectFramesOn(WindowPlace place) {
    const TestWindow window(kSide, kSide, place);
    render::Direct3DRenderer around;
    if (place == WindowPlace::Child) {
        ASSERT_TRUE(around.Create(kSide, kSide, { GetAncestor(window.Handle(), GA_ROOT) }));
        around.Clear(kBlue);
        around.Present();
    }
    render::Direct3DRenderer renderer;
    ASSERT_TRUE(renderer.Create(kSide, kSide, window.AsNative()));
    EXPECT_TRUE(ComesUp(renderer, window.Handle(), kRed, 50, 50, RGB(255, 0, 0)));
    EXPECT_TRUE(ComesUp(renderer, window.Handle(), kBlue, 0, 0, RGB(0, 0, 255))) << "the first pixel";
    EXPECT_TRUE(ComesUp(renderer, window.Handle(), kRed, kSide - 1, kSide - 1, RGB(255, 0, 0))) << "the last";
}

TEST(WindowCopy, ATopLevelWindowShowsItsFrameOnTheScreen) {
    ExpectFramesOn(WindowPlace::TopLevel);
}

TEST(WindowCopy, AChildWindowShowsItsFrameOnTheScreen) {
    ExpectFramesOn(WindowPlace::Child);
}

} // namespace
} // namespace orvane::tests
