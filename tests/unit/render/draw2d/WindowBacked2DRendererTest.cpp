// A canvas on a real, visible window, read back from the window.
#include "render/draw2d/WindowBacked2DRenderer.h"

#include "unit/render/draw2d/Surface.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <thread>

namespace orvane::render {
namespace {

using namespace tests;
using namespace std::chrono_literals;

constexpr int kWidth = 160, kHeight = 100;

// A visible window without a frame: its client area is all of it.
class Window {
public:
    Window() {
        handle = CreateWindowExW(WS_EX_TOPMOST | WS_EX_TOOLWINDOW, L"STATIC", L"", WS_POPUP, 40, 40, kWidth,
                                 kHeight, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
        EXPECT_NE(handle, nullptr);
        ShowWindow(handle, SW_SHOWNOACTIVATE);
        UpdateWindow(handle);
        Pump();
    }

    ~Window() {
        if (handle) DestroyWindow(handle);
    }

    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    static void Pump() {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
    }

    // What is shown at that place now; a window's pixels have no alpha.
    [[nodiscard]] COLORREF At(int x, int y) const {
        const HDC window = GetDC(handle), memory = CreateCompatibleDC(window);
        const HBITMAP bitmap = CreateCompatibleBitmap(window, 1, 1);
        const HGDIOBJ old = SelectObject(memory, bitmap);
        BitBlt(memory, 0, 0, 1, 1, window, x, y, SRCCOPY);
        const COLORREF color = GetPixel(memory, 0, 0);
        SelectObject(memory, old);
        DeleteObject(bitmap);
        DeleteDC(memory);
        ReleaseDC(handle, window);
        return color;
    }

    HWND handle;
};

// Draws until the condition holds: what is presented need not be on the screen at once.
bool DrawUntil(IRenderer2D& canvas, const std::function<void(IRenderer2D&)>& draw,
               const std::function<bool()>& shown) {
    for (int i = 0; i < 200; ++i) {
        canvas.BeginDraw();
        draw(canvas);
        EXPECT_FALSE(canvas.EndDraw());
        Window::Pump();
        if (shown()) return true;
        std::this_thread::sleep_for(20ms);
    }
    return false;
}

constexpr COLORREF kShownRed = RGB(255, 0, 0), kShownBlue = RGB(0, 0, 255), kShownWhite = RGB(255, 255, 255);

// The left half red, the right half blue.
void DrawHalves(IRenderer2D& canvas, double width, double height) {
    const double left[4] = { 0, 0, width / 2, height }, right[4] = { width / 2, 0, width / 2, height };
    canvas.SetFillColor(1, 0, 0, 1);
    canvas.FillRectangle(left);
    canvas.SetFillColor(0, 0, 1, 1);
    canvas.FillRectangle(right);
}

TEST(WindowBacked2DRenderer, ShowsWhatIsDrawn) {
    const Window window;
    std::uint32_t status = 0;
    const auto canvas = CreateWindowBacked2DRenderer(kWidth, kHeight, window.handle, &status);
    ASSERT_EQ(status, kSurface_Success);
    ASSERT_NE(canvas, nullptr);
    EXPECT_TRUE(DrawUntil(
        *canvas, [](IRenderer2D& c) { DrawHalves(c, kWidth, kHeight); },
        [&] { return window.At(20, 50) == kShownRed && window.At(140, 50) == kShownBlue; }));
}

TEST(WindowBacked2DRenderer, DrawsIconsOverWhatIsThere) {
    const Window window;
    std::uint32_t status = 0;
    const auto canvas = CreateWindowBacked2DRenderer(kWidth, kHeight, window.handle, &status);
    ASSERT_NE(canvas, nullptr);
    const char* const rows[4] = { "00FF", "00FF", "00FF", "00FF" };
    const std::unique_ptr<IBitMap2D> icon(canvas->CreateBitmapFromPackedRows(rows, 4));
    ASSERT_NE(icon, nullptr);
    const double place[4] = { 10, 10, 18, 18 };
    EXPECT_TRUE(DrawUntil(
        *canvas,
        [&](IRenderer2D& c) {
            DrawHalves(c, kWidth, kHeight);
            c.DrawBitmap(icon.get(), 1, place);
        },
        [&] { return window.At(19, 19) == kShownWhite && window.At(40, 19) == kShownRed; }));
}

TEST(WindowBacked2DRenderer, DrawsOnTheWholeWindowAfterResize) {
    constexpr int kWider = 400, kHigher = 300;
    const Window window;
    std::uint32_t status = 0;
    const auto canvas = CreateWindowBacked2DRenderer(kWidth, kHeight, window.handle, &status);
    ASSERT_NE(canvas, nullptr);
    SetWindowPos(window.handle, nullptr, 0, 0, kWider, kHigher, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    Window::Pump();
    canvas->Resize(kWider, kHigher);
    EXPECT_TRUE(DrawUntil(
        *canvas, [](IRenderer2D& c) { DrawHalves(c, kWider, kHigher); },
        [&] {
            return window.At(190, 290) == kShownRed && window.At(210, 290) == kShownBlue &&
                   window.At(390, 290) == kShownBlue;
        }));
}

// As a window has it that is minimised.
TEST(WindowBacked2DRenderer, ASizeOfNothingLeavesTheSurfaceToBeDrawnOn) {
    const Window window;
    std::uint32_t status = 0;
    const auto canvas = CreateWindowBacked2DRenderer(kWidth, kHeight, window.handle, &status);
    ASSERT_NE(canvas, nullptr);
    const auto sizeBoth = [&](int width, int height) {
        SetWindowPos(window.handle, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
        Window::Pump();
        canvas->Resize(std::uint32_t(width), std::uint32_t(height));
        canvas->BeginDraw();
        DrawHalves(*canvas, width, height);
        EXPECT_FALSE(canvas->EndDraw()) << width << " x " << height;
    };
    for (const auto& [width, height] : { std::pair{ 0, 0 }, { kWidth, 0 }, { 0, kHeight } })
        sizeBoth(width, height);
    sizeBoth(kWidth, kHeight);
    EXPECT_TRUE(DrawUntil(
        *canvas, [](IRenderer2D& c) { DrawHalves(c, kWidth, kHeight); },
        [&] { return window.At(20, 50) == kShownRed && window.At(140, 50) == kShownBlue; }));
}

TEST(WindowBacked2DRenderer, KeepsItsPixelsToItself) {
    const Window window;
    std::uint32_t status = 0;
    const auto canvas = CreateWindowBacked2DRenderer(kWidth, kHeight, window.handle, &status);
    ASSERT_NE(canvas, nullptr);
    Reader reader;
    canvas->ReadPixels(reader);
    EXPECT_EQ(reader.calls, 0);
}

TEST(WindowBacked2DRenderer, WithoutAWindowGivesStatus5AndNull) {
    std::uint32_t status = 0;
    EXPECT_EQ(CreateWindowBacked2DRenderer(kWidth, kHeight, nullptr, &status), nullptr);
    EXPECT_EQ(status, kSurface_NoRenderTarget);
    EXPECT_EQ(CreateWindowBacked2DRenderer(kWidth, kHeight, nullptr, nullptr), nullptr);
}

TEST(WindowBacked2DRenderer, WithoutATargetDoesNothing) {
    WindowBacked2DRenderer canvas;
    canvas.Resize(8, 8);
    canvas.BeginDraw();
    EXPECT_FALSE(canvas.EndDraw());
}

} // namespace
} // namespace orvane::render
