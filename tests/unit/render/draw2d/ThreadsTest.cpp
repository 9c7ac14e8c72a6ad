// The two threads of the program draw at once, each on a surface of its own.
#include "render/draw2d/WTextFormat.h"
#include "render/draw2d/WindowBacked2DRenderer.h"

#include "support/direct3d/Hook.h"
#include "support/windows/TestWindow.h"
#include "unit/render/draw2d/Surface.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <memory>
#include <thread>

namespace orvane::render {
namespace {

using namespace tests;
using orvane::tests::Hook;
using orvane::tests::PumpMessages;
using orvane::tests::TestWindow;

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

// However long an operation takes, the other thread's waits for it: the component doesn't see to that everywhere.
TEST_F(Threads, OnlyOneAtATimeIsInsideTheComponent) {
    using Fill = void (STDMETHODCALLTYPE ID2D1RenderTarget::*)(const D2D1_RECT_F*, ID2D1Brush*);
    std::atomic<int> inside = 0, most = 0;
    const auto target = SomeLayerTarget();
    const Hook<static_cast<Fill>(&ID2D1RenderTarget::FillRectangle)> fills(
        target.Get(), [&](const auto& next, auto... arguments) {
            most = std::max(most.load(), ++inside);
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
            next(arguments...);
            --inside;
        });
    std::thread service([] { EXPECT_EQ(WrongPanels(kRed, 10), 0); });
    EXPECT_EQ(WrongPanels(kGreen, 10), 0);
    service.join();
    EXPECT_EQ(fills.Calls().size(), 20u);
    EXPECT_EQ(most, 1);
}

TEST_F(Threads, TheCaptionIsPaintedWhilePanelsAreDrawn) {
    const TestWindow window(100, 40);
    std::uint32_t status = 0;
    const auto caption = CreateWindowBacked2DRenderer(100, 40, window.Handle(), &status);
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
        PumpMessages();
    }
    service.join();
    EXPECT_EQ(wrong, 0);
    EXPECT_GT(painted, 0);
}

} // namespace
} // namespace orvane::render
