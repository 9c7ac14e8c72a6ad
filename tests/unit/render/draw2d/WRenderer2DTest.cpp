#include "render/draw2d/WRenderer2D.h"

#include "render/draw2d/Factories.h"
#include "render/draw2d/WTextFormat.h"
#include "unit/render/draw2d/ScriptedTarget.h"
#include "unit/render/draw2d/Surface.h"

#include <gtest/gtest.h>

#include <memory>

namespace orvane::render {
namespace {

using namespace tests;
using Microsoft::WRL::ComPtr;

class OnScriptedTarget : public WRenderer2D {
public:
    using WRenderer2D::mTarget;
    using WRenderer2D::TakeTarget;
};

// A canvas on a target that does as told; its brushes come from a real one.
class WRenderer2DTest : public testing::Test {
protected:
    WRenderer2DTest() {
        ComPtr<IWICBitmap> bitmap;
        ImagingFactory()->CreateBitmap(8, 8, GUID_WICPixelFormat32bppPBGRA, WICBitmapCacheOnLoad, &bitmap);
        Direct2DFactory()->CreateWicBitmapRenderTarget(bitmap.Get(), D2D1::RenderTargetProperties(), &mReal);
        target.brushes = mReal.Get();
    }

    SurfaceStatus Take() { return canvas.TakeTarget(&target, 8, 8); }

    ScriptedTarget target;
    OnScriptedTarget canvas;

private:
    ComPtr<ID2D1RenderTarget> mReal;
};

TEST_F(WRenderer2DTest, EndDrawReturnsTrueOnlyForTheLostTargetStatus) {
    ASSERT_EQ(Take(), kSurface_Success);

    const struct {
        std::uint32_t status;
        bool lost;
    } rows[] = {
        { 0x8899000C, true },  // the target must be made again
        { 0x00000000, false }, // success
        { 0x00000001, false }, // success with a remark
        { 0x80004005, false }, // some failure
        { 0x8007000E, false }, // out of memory
        { 0x88990001, false }, // wrong state
        { 0x8899000B, false }, { 0x8899000D, false }, { 0x0899000C, false },
    };

    for (const auto& row : rows) {
        target.endDraw = HRESULT(row.status);
        canvas.BeginDraw();
        EXPECT_EQ(canvas.EndDraw(), row.lost) << std::hex << row.status;
    }
    EXPECT_EQ(target.begun, int(std::size(rows)));
    EXPECT_EQ(target.ended, int(std::size(rows)));
}

TEST_F(WRenderer2DTest, EndDrawWithoutBeginDrawIsNoLoss) {
    Surface surface(8, 8);
    EXPECT_FALSE(surface.canvas.EndDraw());
}

TEST_F(WRenderer2DTest, NoTargetIsStatus5) {
    EXPECT_EQ(canvas.TakeTarget(nullptr, 8, 8), kSurface_NoRenderTarget);
}

TEST_F(WRenderer2DTest, NoFillBrushIsStatus6AndTheTargetIsLetGo) {
    target.brushesLeft = 0;
    EXPECT_EQ(Take(), kSurface_NoFillBrush);
    EXPECT_EQ(canvas.mTarget, nullptr);
    EXPECT_EQ(target.references, 1u);
}

TEST_F(WRenderer2DTest, NoStrokeBrushIsStatus7AndTheTargetIsLetGo) {
    target.brushesLeft = 1;
    EXPECT_EQ(Take(), kSurface_NoStrokeBrush);
    EXPECT_EQ(canvas.mTarget, nullptr);
    EXPECT_EQ(target.references, 1u);
}

TEST_F(WRenderer2DTest, TheDestructorReleasesTheTarget) {
    {
        OnScriptedTarget inner;
        ASSERT_EQ(inner.TakeTarget(&target, 8, 8), kSurface_Success);
        EXPECT_EQ(target.references, 2u);
    }
    EXPECT_EQ(target.references, 1u);
}

TEST_F(WRenderer2DTest, TheBaseOfBothCanvasesShowsNoPixelsAndKeepsItsSize) {
    ASSERT_EQ(Take(), kSurface_Success);
    Reader reader;
    canvas.ReadPixels(reader);
    canvas.Resize(99, 99);
    EXPECT_EQ(reader.calls, 0);
}

TEST_F(WRenderer2DTest, TextIsDrawnWithoutOptions) {
    ASSERT_EQ(Take(), kSurface_Success);
    const double rect[4] = { 0, 0, 8, 8 };
    const std::unique_ptr<ITextFormat> format = CreateTextFormat(12);
    ASSERT_NE(format, nullptr);
    canvas.DrawText(u"a", 1, format.get(), rect);
    EXPECT_EQ(target.textOptions, D2D1_DRAW_TEXT_OPTIONS_NONE);
}

TEST_F(WRenderer2DTest, ABitmapIsDrawnWholeWithLinearInterpolationAndAnOpacityOf1AtMost) {
    Surface surface(8, 8);
    const char* const rows[4] = { "00FF", "00FF", "00FF", "00FF" };
    const std::unique_ptr<IBitMap2D> bitmap(surface.canvas.CreateBitmapFromPackedRows(rows, 4));
    ASSERT_NE(bitmap, nullptr);
    ASSERT_EQ(Take(), kSurface_Success);
    const double rect[4] = { 1, 2, 30, 40 };
    canvas.DrawBitmap(bitmap.get(), 2, rect);
    EXPECT_EQ(target.opacity, 1.0f);
    EXPECT_EQ(target.destination.left, 1);
    EXPECT_EQ(target.destination.top, 2);
    EXPECT_EQ(target.destination.right, 31);
    EXPECT_EQ(target.destination.bottom, 42);
    EXPECT_TRUE(target.wholeBitmap);
    EXPECT_EQ(target.interpolation, D2D1_BITMAP_INTERPOLATION_MODE_LINEAR);
    canvas.DrawBitmap(bitmap.get(), 0.25f, rect);
    EXPECT_EQ(target.opacity, 0.25f);
    EXPECT_EQ(target.bitmaps, 2);
    canvas.DrawBitmap(bitmap.get(), 0, rect);
    canvas.DrawBitmap(bitmap.get(), -1, rect);
    canvas.DrawBitmap(nullptr, 1, rect);
    EXPECT_EQ(target.bitmaps, 2);
}

} // namespace
} // namespace orvane::render
