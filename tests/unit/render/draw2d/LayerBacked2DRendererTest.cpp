#include "render/draw2d/LayerBacked2DRenderer.h"

#include "render/draw2d/Factories.h"
#include "unit/render/draw2d/Surface.h"

#include <d2d1_1.h>

#include <gtest/gtest.h>

namespace orvane::render {
namespace {

using namespace tests;
using Microsoft::WRL::ComPtr;

constexpr double kWhole[4] = { 0, 0, 16, 16 };

TEST(LayerBacked2DRenderer, ASurfaceOf512By64ThatIsNeverDrawnOnIsAllZeroes) {
    Surface surface(512, 64);
    const Picture picture = surface.Read();
    EXPECT_EQ(picture.width, 512);
    EXPECT_EQ(picture.height, 64);
    EXPECT_EQ(picture.pixels.size(), 512u * 64u);
    EXPECT_TRUE(picture.IsAll(kClear));
}

TEST(LayerBacked2DRenderer, AnEmptyDrawingLeavesZeroes) {
    Surface surface(64, 64);
    EXPECT_TRUE(surface.After([](IRenderer2D&) {}).IsAll(kClear));
}

TEST(LayerBacked2DRenderer, OddSizesHaveAllTheirPixels) {
    for (const std::uint32_t width : { 1u, 3u, 17u, 511u })
        for (const std::uint32_t height : { 1u, 5u, 33u }) {
            Surface surface(width, height);
            const double all[4] = { 0, 0, double(width), double(height) };
            const Picture picture = surface.After([&](IRenderer2D& canvas) { canvas.FillRectangle(all); });
            EXPECT_TRUE(picture.IsAll(kWhite)) << width << " by " << height;
        }
}

TEST(LayerBacked2DRenderer, WhatIsDrawnStaysForTheNextDrawing) {
    Surface surface(16, 16);
    const double left[4] = { 0, 0, 8, 16 }, right[4] = { 8, 0, 8, 16 };
    surface.After([&](IRenderer2D& canvas) { canvas.FillRectangle(left); });
    const Picture picture = surface.After([&](IRenderer2D& canvas) {
        canvas.SetFillColor(1, 0, 0, 1);
        canvas.FillRectangle(right);
    });
    EXPECT_EQ(picture.At(4, 8), kWhite);
    EXPECT_EQ(picture.At(12, 8), kRed);
}

// Writes into what ReadPixels shows, as the feedback of one surface into another does.
TEST(LayerBacked2DRenderer, TheFunctorGetsTheBytesForWriting) {
    class Writer final : public BitmapProcessingFunctor {
    public:
        void Process(void* pixels, int, int height, int rowBytes, std::size_t) override {
            std::memset(pixels, 0x7F, std::size_t(rowBytes) * std::size_t(height - 1) + 4);
        }
    } writer;

    Surface surface(8, 8);
    surface.canvas.ReadPixels(writer);
    const Picture picture = surface.Read();
    EXPECT_EQ(picture.At(7, 6), (Pixel{ 0x7F, 0x7F, 0x7F, 0x7F }));
    EXPECT_EQ(picture.At(0, 7), (Pixel{ 0x7F, 0x7F, 0x7F, 0x7F }));
    EXPECT_EQ(picture.At(1, 7), kClear);
}

// With the lock held, the bitmap can't be had a second time; after the call it can.
TEST(LayerBacked2DRenderer, TheLockIsHeldThroughTheCallAndNoLonger) {
    class Nested final : public BitmapProcessingFunctor {
    public:
        explicit Nested(IRenderer2D& canvas)
            : mCanvas(canvas) {}

        void Process(void*, int, int, int, std::size_t) override { mCanvas.ReadPixels(inner); }

        Reader inner;

    private:
        IRenderer2D& mCanvas;
    };

    Surface surface(16, 16);
    Nested nested(surface.canvas);
    surface.canvas.ReadPixels(nested);
    EXPECT_EQ(nested.inner.calls, 0);
    surface.Read();
}

// Two surfaces at once, the target's lock outside, the source's within.
TEST(LayerBacked2DRenderer, TwoSurfacesCanBeLockedOneWithinTheOther) {
    class Outer final : public BitmapProcessingFunctor {
    public:
        explicit Outer(IRenderer2D& source)
            : mSource(source) {}

        void Process(void*, int, int, int, std::size_t) override { mSource.ReadPixels(inner); }

        Reader inner;

    private:
        IRenderer2D& mSource;
    };

    Surface target(16, 16), source(8, 4);
    Outer outer(source.canvas);
    target.canvas.ReadPixels(outer);
    EXPECT_EQ(outer.inner.calls, 1);
    EXPECT_EQ(outer.inner.picture.width, 8);
}

TEST(LayerBacked2DRenderer, ResizeKeepsTheSize) {
    Surface surface(16, 16);
    surface.canvas.Resize(64, 64);
    EXPECT_EQ(surface.Read().width, 16);
}

TEST(LayerBacked2DRenderer, ASurfaceMadeAnewHasTheNewSizeAndIsZeroedAgain) {
    Surface surface(16, 16);
    surface.After([](IRenderer2D& canvas) { canvas.FillRectangle(kWhole); });
    ASSERT_EQ(surface.canvas.InitializeSurface(32, 8, false), kSurface_Success);
    const Picture picture = surface.Read();
    EXPECT_EQ(picture.width, 32);
    EXPECT_EQ(picture.height, 8);
    EXPECT_TRUE(picture.IsAll(kClear));
}

// Status 4 on Windows; Wine makes such a bitmap and refuses the target on it.
TEST(LayerBacked2DRenderer, ASizeThatNothingHasLeavesNoSurface) {
    const std::uint32_t sizes[][2] = { { 0, 16 }, { 16, 0 }, { 0xFFFFFFFF, 0xFFFFFFFF } };
    for (const auto& size : sizes) {
        Surface surface(16, 16);
        const SurfaceStatus status = surface.canvas.InitializeSurface(size[0], size[1], false);
        EXPECT_TRUE(status == kSurface_NoBitmap || status == kSurface_NoRenderTarget) << status;
        Reader reader;
        surface.canvas.ReadPixels(reader);
        EXPECT_EQ(reader.calls, 0) << size[0] << " by " << size[1];
    }
}

// The same question put to the imaging component itself: Windows grants the 8-bit alpha format, other
// systems refuse it.
TEST(LayerBacked2DRenderer, TheAlphaFormatIsAskedForAndStatus4WhereItIsRefused) {
    constexpr GUID kAlpha = {
        0xE6CD0116, 0xEEBA, 0x4161, { 0xAA, 0x85, 0x27, 0xDD, 0x9F, 0xB3, 0xA8, 0x95 }
    };
    ComPtr<IWICBitmap> bitmap;
    const HRESULT granted = ImagingFactory()->CreateBitmap(16, 16, kAlpha, WICBitmapCacheOnLoad, &bitmap);

    LayerBacked2DRenderer canvas;
    const SurfaceStatus status = canvas.InitializeSurface(16, 16, true);

    class Reader8 final : public BitmapProcessingFunctor {
    public:
        void Process(void*, int, int, int rowBytes, std::size_t) override { mRowBytes = rowBytes; }

        int mRowBytes = 0;
    } reader;

    canvas.ReadPixels(reader);
    if (FAILED(granted)) {
        EXPECT_EQ(status, kSurface_NoBitmap);
        EXPECT_EQ(reader.mRowBytes, 0);
    } else {
        EXPECT_EQ(status, kSurface_Success);
        EXPECT_EQ(reader.mRowBytes, 16);
    }
}

TEST(LayerBacked2DRenderer, WithoutASurfaceNothingHappens) {
    LayerBacked2DRenderer canvas;
    const double segment[4] = { 0, 0, 9, 9 };
    const char* const rows[4] = { "00FF", "00FF", "00FF", "00FF" };
    Reader reader;
    canvas.Resize(8, 8);
    canvas.BeginDraw();
    canvas.SetFillColor(1, 1, 1, 1);
    canvas.SetStrokeColor(1, 1, 1, 1);
    canvas.DrawLines(segment, 1, 1);
    canvas.StrokeRectangle(kWhole);
    canvas.FillRectangle(kWhole);
    canvas.FillEllipse(kWhole);
    canvas.StrokeEllipse(kWhole);
    canvas.DrawText(u"text", 4, nullptr, kWhole);
    canvas.DrawBitmap(nullptr, 1, kWhole);
    EXPECT_EQ(canvas.CreateBitmapFromPackedRows(rows, 4), nullptr);
    EXPECT_EQ(canvas.CreateBitmapFromImageData(rows, sizeof rows), nullptr);
    EXPECT_FALSE(canvas.EndDraw());
    canvas.ReadPixels(reader);
    EXPECT_EQ(reader.calls, 0);
}

// Taking and leaving the factory's own lock is the component's answer to two threads; the other kind has none.
TEST(Factories, TheDrawingFactoryIsTheMultiThreadedKind) {
    ComPtr<ID2D1Multithread> guard;
    ASSERT_TRUE(SUCCEEDED(Direct2DFactory()->QueryInterface(IID_PPV_ARGS(&guard))));
    EXPECT_TRUE(guard->GetMultithreadProtected());
}

TEST(Factories, EachIsMadeOnceInTheProcess) {
    ASSERT_NE(Direct2DFactory(), nullptr);
    EXPECT_EQ(Direct2DFactory(), Direct2DFactory());
    ASSERT_NE(ImagingFactory(), nullptr);
    EXPECT_EQ(ImagingFactory(), ImagingFactory());
    ASSERT_NE(TextFactory(), nullptr);
    EXPECT_EQ(TextFactory(), TextFactory());
}

} // namespace
} // namespace orvane::render
