// The two threads of the program draw at once, each on a surface of its own.
#include "render/draw2d/WTextFormat.h"
#include "render/draw2d/WindowBacked2DRenderer.h"

#include "unit/render/draw2d/Surface.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

namespace orvane::render {
namespace {

using namespace tests;

// Panels of one colour with text on them, over and over; the number of those that came out wrong.
int WrongPanels(Pixel color, int count) {
    int wrong = 0;
    for (int i = 0; i < count; ++i) {
        Surface surface(64, 32);
        const auto format = CreateTextFormat(12);
        const double whole[4] = { 0, 0, 64, 32 }, line[4] = { 4, 4, 40, 20 };
        const Picture picture = surface.After([&](IRenderer2D& canvas) {
            canvas.SetFillColor(color.red / 255.0, color.green / 255.0, color.blue / 255.0, 1);
            canvas.FillRectangle(whole);
            canvas.SetFillColor(0, 0, 0, 1);
            canvas.DrawText(u"text", 4, format.get(), line);
        });
        const bool hasText = std::any_of(picture.pixels.begin(), picture.pixels.end(), [](const Pixel& p) {
            return p.red < 64 && p.green < 64 && p.blue < 64;
        });
        wrong += !hasText || picture.At(1, 1) != color || picture.At(62, 30) != color;
    }
    return wrong;
}

// The first surface is made by a thread that stays.
class Threads : public testing::Test {
protected:
    Surface mFirst{ 8, 8 };
};

TEST_F(Threads, TwoSurfacesAreDrawnOnAtOnce) {
    constexpr int kPanels = 100;
    int wrongRed = -1;
    std::thread service([&] { wrongRed = WrongPanels(kRed, kPanels); });
    EXPECT_EQ(WrongPanels(kGreen, kPanels), 0);
    service.join();
    EXPECT_EQ(wrongRed, 0);
}

TEST_F(Threads, TheCaptionIsPaintedWhilePanelsAreDrawn) {
    const HWND window = CreateWindowExW(WS_EX_TOOLWINDOW, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 40, 40, 100,
                                        40, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
    std::uint32_t status = 0;
    const auto caption = CreateWindowBacked2DRenderer(100, 40, window, &status);
    ASSERT_NE(caption, nullptr);
    std::atomic<bool> done = false;
    int wrong = -1;
    std::thread service([&] {
        wrong = WrongPanels(kRed, 100);
        done = true;
    });
    int painted = 0;
    const auto format = CreateTextFormat(12);
    const double whole[4] = { 0, 0, 100, 40 };
    while (!done) {
        caption->BeginDraw();
        caption->SetFillColor(0, 0, 1, 1);
        caption->FillRectangle(whole);
        caption->SetFillColor(1, 1, 1, 1);
        caption->DrawText(u"caption", 7, format.get(), whole);
        EXPECT_FALSE(caption->EndDraw());
        ++painted;
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
    }
    service.join();
    EXPECT_EQ(wrong, 0);
    EXPECT_GT(painted, 0);
    DestroyWindow(window);
}

} // namespace
} // namespace orvane::render
