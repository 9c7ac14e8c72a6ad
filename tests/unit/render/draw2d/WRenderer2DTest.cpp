// What is asked of the platform's target, and what becomes of its answers.
#include "render/draw2d/WRenderer2D.h"
#include "render/draw2d/Factories.h"
#include "render/draw2d/WTextFormat.h"
#include "support/direct3d/Hook.h"
#include "unit/render/draw2d/Surface.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>

namespace orvane::render {
namespace {

using namespace tests;
using orvane::tests::Always;
using orvane::tests::Hook;

// Where the headers add short forms of an operation, the one that the platform has.
using DrawABitmap = void (STDMETHODCALLTYPE ID2D1RenderTarget::*)(ID2D1Bitmap*, const D2D1_RECT_F*, FLOAT,
                                                                  D2D1_BITMAP_INTERPOLATION_MODE,
                                                                  const D2D1_RECT_F*);
using DrawAText = void (STDMETHODCALLTYPE ID2D1RenderTarget::*)(const WCHAR*, UINT, IDWriteTextFormat*,
                                                                const D2D1_RECT_F*, ID2D1Brush*,
                                                                D2D1_DRAW_TEXT_OPTIONS,
                                                                DWRITE_MEASURING_MODE);
using BitmapDrawn = Hook<static_cast<DrawABitmap>(&ID2D1RenderTarget::DrawBitmap)>;
using TextDrawn = Hook<static_cast<DrawAText>(&ID2D1RenderTarget::DrawText)>;
using BeginDrawHook = Hook<&ID2D1RenderTarget::BeginDraw>;
using EndDrawHook = Hook<&ID2D1RenderTarget::EndDraw>;

class CanvasOnATarget : public WRenderer2D {
public:
    using WRenderer2D::mTarget;
    using WRenderer2D::TakeTarget;
};

// A canvas on a target of the platform's, whose operations a test can listen to.
class WRenderer2DTest : public testing::Test {
protected:
    WRenderer2DTest() { EXPECT_EQ(canvas.TakeTarget(target, 8, 8), kSurface_Success); }

    const Microsoft::WRL::ComPtr<ID2D1RenderTarget> target = SomeLayerTarget();
    CanvasOnATarget canvas;
};

TEST_F(WRenderer2DTest, EndDrawReturnsTrueOnlyForTheLostTargetStatus) {
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
        const BeginDrawHook begins(target.Get());
        const EndDrawHook ends(target.Get(), [&row](const auto& next, auto... tags) {
            next(tags...);
            return HRESULT(row.status);
        });
        canvas.BeginDraw();
        EXPECT_EQ(canvas.EndDraw(), row.lost) << std::hex << row.status;
        EXPECT_EQ(begins.Calls().size(), 1u);
        EXPECT_EQ(ends.Calls().size(), 1u);
    }
}

TEST_F(WRenderer2DTest, EndDrawWithoutBeginDrawIsNoLoss) {
    EXPECT_FALSE(canvas.EndDraw());
}

TEST_F(WRenderer2DTest, NoTargetIsStatus5AndGivesUpTheOneThatWasThere) {
    EXPECT_EQ(canvas.TakeTarget(nullptr, 8, 8), kSurface_NoRenderTarget);
    EXPECT_EQ(canvas.mTarget, nullptr);
}

TEST_F(WRenderer2DTest, TheDestructorReleasesTheTargetAndItsBrushes) {
    std::optional<CanvasOnATarget> inner(std::in_place);
    const ULONG before = target.Get()->AddRef();
    ASSERT_EQ(inner->TakeTarget(target, 8, 8), kSurface_Success);
    inner.reset();
    EXPECT_EQ(target.Get()->Release(), before - 1);
}

TEST_F(WRenderer2DTest, TheBaseOfBothCanvasesShowsNoPixelsAndKeepsItsSize) {
    Reader reader;
    canvas.ReadPixels(reader);
    canvas.Resize(99, 99);
    EXPECT_EQ(reader.calls, 0);
    EXPECT_EQ(target->GetPixelSize().width, 8u);
}

TEST_F(WRenderer2DTest, TextIsDrawnWithoutOptions) {
    const double rect[4] = { 1, 2, 8, 9 };
    const std::unique_ptr<ITextFormat> format = CreateTextFormat(12);
    ASSERT_NE(format, nullptr);
    D2D1_RECT_F place{};
    const TextDrawn texts(target.Get(), [&place](const auto&, const WCHAR*, UINT, IDWriteTextFormat*,
                                                 const D2D1_RECT_F* at, auto...) { place = *at; });
    canvas.DrawText(u"ab", 2, format.get(), rect);
    ASSERT_EQ(texts.Calls().size(), 1u);
    EXPECT_EQ(std::get<UINT>(texts.Calls()[0]), 2u);
    EXPECT_EQ(std::get<IDWriteTextFormat*>(texts.Calls()[0]), format->GetNativeFormat());
    EXPECT_EQ(std::get<D2D1_DRAW_TEXT_OPTIONS>(texts.Calls()[0]), D2D1_DRAW_TEXT_OPTIONS_NONE);
    EXPECT_EQ(place.left, 1);
    EXPECT_EQ(place.top, 2);
    EXPECT_EQ(place.right, 9);
    EXPECT_EQ(place.bottom, 11);
}

TEST_F(WRenderer2DTest, ABitmapIsDrawnWholeWithLinearInterpolationAndAnOpacityOf1AtMost) {
    const char* const rows[4] = { "00FF", "00FF", "00FF", "00FF" };
    const std::unique_ptr<IBitMap2D> bitmap(canvas.CreateBitmapFromPackedRows(rows, 4));
    ASSERT_NE(bitmap, nullptr);
    D2D1_RECT_F place{};
    bool isWhole = false;
    const BitmapDrawn drawn(target.Get(), [&](const auto&, ID2D1Bitmap*, const D2D1_RECT_F* at, FLOAT,
                                              D2D1_BITMAP_INTERPOLATION_MODE, const D2D1_RECT_F* part) {
        place = *at;
        isWhole = part == nullptr;
    });
    const double rect[4] = { 1, 2, 30, 40 };
    for (const float opacity : { 2.0f, 0.25f, 0.0f, -1.0f }) canvas.DrawBitmap(bitmap.get(), opacity, rect);
    canvas.DrawBitmap(nullptr, 1, rect);
    ASSERT_EQ(drawn.Calls().size(), 2u); // the first two
    EXPECT_EQ(std::get<FLOAT>(drawn.Calls()[0]), 1.0f);
    EXPECT_EQ(std::get<FLOAT>(drawn.Calls()[1]), 0.25f);
    EXPECT_EQ(std::get<D2D1_BITMAP_INTERPOLATION_MODE>(drawn.Calls()[0]),
              D2D1_BITMAP_INTERPOLATION_MODE_LINEAR);
    EXPECT_TRUE(isWhole);
    EXPECT_EQ(place.left, 1);
    EXPECT_EQ(place.top, 2);
    EXPECT_EQ(place.right, 31);
    EXPECT_EQ(place.bottom, 42);
}

} // namespace
} // namespace orvane::render
