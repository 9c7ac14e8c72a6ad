#include "render/canvas/CoverageCanvas.h"

#include "CanvasOracle.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace orvane::render {
namespace {

using tests::PixelsOf;
using Bytes = std::vector<std::uint8_t>;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

// The whole block of a surface, padding included.
class ReadBlock final : public BitmapProcessingFunctor {
public:
    void Process(void* pixels, int width, int height, int rowBytes, std::size_t byteCount) override {
        const auto* const bytes = static_cast<const std::uint8_t*>(pixels);
        mBytes.assign(bytes, bytes + byteCount);
        mWidth = width;
        mHeight = height;
        mRowBytes = rowBytes;
        ++mCalls;
    }

    Bytes mBytes;
    int mWidth = 0, mHeight = 0, mRowBytes = 0, mCalls = 0;
};

bool IsBlank(IRenderer2D& canvas) {
    const Bytes pixels = PixelsOf(canvas);
    return std::all_of(pixels.begin(), pixels.end(), [](std::uint8_t b) { return b == 0; });
}

bool PaddingIsZero(IRenderer2D& canvas) {
    ReadBlock block;
    canvas.ReadPixels(block);
    for (int y = 0; y < block.mHeight; ++y)
        for (int x = block.mWidth; x < block.mRowBytes; ++x)
            if (block.mBytes[std::size_t(y) * std::size_t(block.mRowBytes) + std::size_t(x)] != 0)
                return false;
    return true;
}

TEST(CoverageCanvas, ASurfaceOf512By64ThatIsNeverDrawnOnYields512Times64ZeroPixels) {
    const auto canvas = CoverageCanvas::Create(512, 64);
    EXPECT_EQ(PixelsOf(*canvas), Bytes(512 * 64, 0));
}

TEST(CoverageCanvas, ReadPixelsCallsTheFunctorOnceWithSizeStrideAndByteCount) {
    const auto canvas = CoverageCanvas::Create(1002, 802);
    ReadBlock block;
    canvas->ReadPixels(block);
    EXPECT_EQ(block.mCalls, 1);
    EXPECT_EQ(block.mWidth, 1002);
    EXPECT_EQ(block.mHeight, 802);
    EXPECT_GE(block.mRowBytes, 1002 + CoverageSurface::kRowPadding);
    EXPECT_EQ(block.mBytes.size(), std::size_t(block.mRowBytes) * 802);
}

TEST(CoverageCanvas, WhatAFunctorWritesStays) {
    class SetOne final : public BitmapProcessingFunctor {
    public:
        void Process(void* pixels, int, int, int rowBytes, std::size_t) override {
            static_cast<std::uint8_t*>(pixels)[rowBytes + 2] = 77;
        }
    } setOne;

    const auto canvas = CoverageCanvas::Create(4, 4);
    canvas->ReadPixels(setOne);
    EXPECT_EQ(PixelsOf(*canvas)[4 + 2], 77);
}

TEST(CoverageCanvas, ASideBelow1OrAboveTheLimitGivesNoCanvas) {
    EXPECT_EQ(CoverageCanvas::Create(0, 5), nullptr);
    EXPECT_EQ(CoverageCanvas::Create(5, 0), nullptr);
    EXPECT_EQ(CoverageCanvas::Create(-1, 5), nullptr);
    EXPECT_EQ(CoverageCanvas::Create(CoverageCanvas::kMostPixels + 1, 1), nullptr);
    EXPECT_NE(CoverageCanvas::Create(CoverageCanvas::kMostPixels, 1), nullptr);
    EXPECT_NE(CoverageCanvas::Create(1, 1), nullptr);
}

TEST(CoverageCanvas, OneBytePastTheLastColumnCanBeReadAndIsZeroWhateverIsDrawn) {
    for (int width = 1; width <= 40; ++width) {
        const auto canvas = CoverageCanvas::Create(width, 9);
        const double lines[] = { -5.0,        4, 60,          5,  width - 1.0, 0,
                                 width + 3.0, 9, width + 0.5, -3, width + 0.5, 12 };
        const double rect[] = { -3, -3, 80, 80 };
        canvas->DrawLines(lines, 3, 3);
        canvas->FillRectangle(rect);
        canvas->FillEllipse(rect);
        const double dot[] = { width - 2.0, 2, 4, 4 };
        canvas->StrokeEllipse(dot);
        canvas->StrokeRectangle(dot);
        ReadBlock block;
        canvas->ReadPixels(block);
        EXPECT_GT(block.mRowBytes, width);
        EXPECT_GE(block.mBytes.size(), std::size_t(8 * block.mRowBytes + width + 1));
        EXPECT_TRUE(PaddingIsZero(*canvas)) << width;
    }
}

TEST(CoverageCanvas, ResizeIsEmpty) {
    const auto canvas = CoverageCanvas::Create(8, 8);
    const double rect[] = { 0, 0, 8, 8 };
    canvas->FillRectangle(rect);
    canvas->Resize(100, 100);
    EXPECT_EQ(PixelsOf(*canvas), Bytes(64, 255));
}

TEST(CoverageCanvas, BeginDrawKeepsThePictureAndEndDrawReturnsFalse) {
    const auto canvas = CoverageCanvas::Create(8, 8);
    const double rect[] = { 0, 0, 8, 8 };
    canvas->BeginDraw();
    canvas->FillRectangle(rect);
    EXPECT_FALSE(canvas->EndDraw());
    canvas->BeginDraw();
    EXPECT_FALSE(canvas->EndDraw());
    EXPECT_EQ(PixelsOf(*canvas), Bytes(64, 255));
}

TEST(CoverageCanvas, DrawLinesWithWidth0DrawsNothing) {
    const auto canvas = CoverageCanvas::Create(8, 8);
    const double line[] = { 0, 4, 8, 4 };
    for (const float width :
         { 0.0f, -1.0f, std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity() })
        canvas->DrawLines(line, 1, width);
    EXPECT_TRUE(IsBlank(*canvas));
}

TEST(CoverageCanvas, DrawLinesWithACountBelow1DrawsNothing) {
    const auto canvas = CoverageCanvas::Create(8, 8);
    const double line[] = { 0, 4, 8, 4 };
    canvas->DrawLines(line, 0, 1);
    canvas->DrawLines(line, -3, 1);
    canvas->DrawLines(nullptr, 0, 1);
    EXPECT_TRUE(IsBlank(*canvas));
}

TEST(CoverageCanvas, ASegmentIsCentredOnItsPathWithFlatEnds) {
    const auto canvas = CoverageCanvas::Create(5, 3);
    const double line[] = { 1, 1.5, 3.25, 1.5 };
    canvas->DrawLines(line, 1, 1);
    EXPECT_EQ(PixelsOf(*canvas), (Bytes{ 0, 0, 0, 0, 0, 0, 255, 255, 64, 0, 0, 0, 0, 0, 0 }));
}

TEST(CoverageCanvas, ASegmentOnAPixelBoundaryCoversBothSidesByHalf) {
    const auto canvas = CoverageCanvas::Create(3, 3);
    const double line[] = { 0, 1, 3, 1 };
    canvas->DrawLines(line, 1, 1);
    EXPECT_EQ(PixelsOf(*canvas), (Bytes{ 128, 128, 128, 128, 128, 128, 0, 0, 0 }));
}

TEST(CoverageCanvas, EachSegmentGoesByItselfOverTheOnesBefore) {
    const auto canvas = CoverageCanvas::Create(3, 1);
    // The middle pixel is covered by half, twice: 128 over 128 is 128 + 128 * 127 / 255 = 191.75.
    const double lines[] = { 0, 0.5, 1.5, 0.5, 1.5, 0.5, 3, 0.5 };
    canvas->DrawLines(lines, 2, 1);
    EXPECT_EQ(PixelsOf(*canvas), (Bytes{ 255, 192, 255 }));
}

TEST(CoverageCanvas, ASegmentIsTheSameBackwards) {
    tests::Dice dice(12);
    for (int i = 0; i < 200; ++i) {
        const double line[] = { dice.Between(0, 20), dice.Between(0, 20), dice.Between(0, 20),
                                dice.Between(0, 20) };
        const double back[] = { line[2], line[3], line[0], line[1] };
        const auto canvas = CoverageCanvas::Create(20, 20), other = CoverageCanvas::Create(20, 20);
        canvas->DrawLines(line, 1, 1.5f);
        other->DrawLines(back, 1, 1.5f);
        ASSERT_EQ(PixelsOf(*canvas), PixelsOf(*other)) << i;
    }
}

TEST(CoverageCanvas, ASegmentWithoutLengthDrawsNothing) {
    const auto canvas = CoverageCanvas::Create(8, 8);
    const double lines[] = { 4, 4, 4, 4, 3, 3, 3 + 1e-300, 3 };
    canvas->DrawLines(lines, 2, 5);
    EXPECT_TRUE(IsBlank(*canvas));
}

TEST(CoverageCanvas, ANarrowSegmentIsFaint) {
    const auto canvas = CoverageCanvas::Create(3, 1);
    const double line[] = { 0, 0.5, 3, 0.5 };
    canvas->DrawLines(line, 1, 0.1f);
    EXPECT_EQ(PixelsOf(*canvas), (Bytes{ 26, 26, 26 })); // 25.5
}

TEST(CoverageCanvas, RectanglesCoverTheirAreaExactly) {
    const auto canvas = CoverageCanvas::Create(4, 3);
    const double rect[] = { 0.5, 0.5, 2.25, 1.5 };
    canvas->FillRectangle(rect);
    // Columns 0.5, 1, 0.75; rows 0.5 and 1: 63.75, 127.5, 95.625 above 127.5, 255, 191.25.
    EXPECT_EQ(PixelsOf(*canvas), (Bytes{ 64, 128, 96, 0, 128, 255, 191, 0, 0, 0, 0, 0 }));
}

TEST(CoverageCanvas, AFramedRectangleIsCentredOnItsOutlineWithSquareCorners) {
    const auto canvas = CoverageCanvas::Create(5, 5);
    const double rect[] = { 0.5, 0.5, 4, 4 };
    canvas->StrokeRectangle(rect);
    EXPECT_EQ(PixelsOf(*canvas), (Bytes{ 255, 255, 255, 255, 255, //
                                         255, 0,   0,   0,   255, //
                                         255, 0,   0,   0,   255, //
                                         255, 0,   0,   0,   255, //
                                         255, 255, 255, 255, 255 }));
}

TEST(CoverageCanvas, FramesOfNoSizeAreWhatThePenCovers) {
    const auto canvas = CoverageCanvas::Create(3, 3);
    const double rect[] = { 1.5, 1.5, 0, 0 };
    canvas->StrokeRectangle(rect);
    EXPECT_EQ(PixelsOf(*canvas), (Bytes{ 0, 0, 0, 0, 255, 0, 0, 0, 0 }));
    const auto other = CoverageCanvas::Create(3, 3);
    other->StrokeEllipse(rect);
    EXPECT_NEAR(PixelsOf(*other)[4], 255 * 0.785398, 2); // a disc of radius 1/2
}

TEST(CoverageCanvas, FillsOfNoSizeAndShapesOfNegativeSizeDrawNothing) {
    const auto canvas = CoverageCanvas::Create(8, 8);
    for (const auto& rect : { std::array{ 4.0, 4.0, 0.0, 3.0 }, std::array{ 4.0, 4.0, 3.0, 0.0 } }) {
        canvas->FillRectangle(rect.data());
        canvas->FillEllipse(rect.data());
    }
    for (const auto& rect : { std::array{ 4.0, 4.0, -2.0, 3.0 }, std::array{ 4.0, 4.0, 3.0, -2.0 } }) {
        canvas->FillRectangle(rect.data());
        canvas->FillEllipse(rect.data());
        canvas->StrokeRectangle(rect.data());
        canvas->StrokeEllipse(rect.data());
    }
    EXPECT_TRUE(IsBlank(*canvas));
}

TEST(CoverageCanvas, CoordinatesThatAreNotFiniteDrawNothing) {
    const auto canvas = CoverageCanvas::Create(8, 8);
    for (const double bad : { kNaN, kInfinity, -kInfinity, 1e200, -std::numeric_limits<double>::max() })
        for (int i = 0; i < 4; ++i) {
            double values[] = { 1, 2, 5, 6 };
            values[i] = bad;
            canvas->DrawLines(values, 1, 2);
            canvas->FillRectangle(values);
            canvas->FillEllipse(values);
            canvas->StrokeRectangle(values);
            canvas->StrokeEllipse(values);
        }
    EXPECT_TRUE(IsBlank(*canvas));
}

TEST(CoverageCanvas, ABadSegmentDoesNotHinderTheOthers) {
    const auto canvas = CoverageCanvas::Create(3, 1);
    const double lines[] = { kNaN, 0, 1, 0, 0, 0.5, 3, 0.5 };
    canvas->DrawLines(lines, 2, 1);
    EXPECT_EQ(PixelsOf(*canvas), Bytes(3, 255));
}

TEST(CoverageCanvas, ShapesFarLargerThanTheSurfaceCoverIt) {
    for (const double far : { 1e3, 1e6, 1e9, 1e50, 1e99 }) {
        const double rect[] = { -far / 2, -far / 2, far, far };
        const double line[] = { -far, 4, far, 4 };
        auto canvas = CoverageCanvas::Create(8, 8);
        canvas->FillRectangle(rect);
        EXPECT_EQ(PixelsOf(*canvas), Bytes(64, 255)) << far;
        canvas = CoverageCanvas::Create(8, 8);
        canvas->FillEllipse(rect);
        EXPECT_EQ(PixelsOf(*canvas), Bytes(64, 255)) << far;
        canvas = CoverageCanvas::Create(8, 8);
        canvas->DrawLines(line, 1, 1000);
        EXPECT_EQ(PixelsOf(*canvas), Bytes(64, 255)) << far;
        canvas = CoverageCanvas::Create(8, 8);
        canvas->StrokeRectangle(rect);
        canvas->StrokeEllipse(rect);
        EXPECT_TRUE(IsBlank(*canvas)) << far;
    }
}

TEST(CoverageCanvas, ShapesEntirelyOutsideDrawNothing) {
    const auto canvas = CoverageCanvas::Create(8, 8);
    for (const double by : { 1.0, 40.0, 100.0, 1e6, 1e60 })
        for (const double x : { -1.0, 0.0, 1.0 })
            for (const double y : { -1.0, 0.0, 1.0 }) {
                if (x == 0 && y == 0) continue;
                const double left = x < 0 ? -5 - by : x > 0 ? 9 + by : 2;
                const double top = y < 0 ? -5 - by : y > 0 ? 9 + by : 2;
                const double rect[] = { left, top, 4, 4 };
                const double line[] = { left, top, left + 4, top + 4 };
                canvas->FillRectangle(rect);
                canvas->StrokeRectangle(rect);
                canvas->FillEllipse(rect);
                canvas->StrokeEllipse(rect);
                canvas->DrawLines(line, 1, 1);
            }
    EXPECT_TRUE(IsBlank(*canvas));
}

TEST(CoverageCanvas, AnyNumbersAtAllAreSafeAndKeepThePadding) {
    tests::Dice dice(13);
    const auto canvas = CoverageCanvas::Create(37, 23);
    for (int i = 0; i < 20000; ++i) {
        double v[4];
        for (double& value : v)
            value = dice.Between(-1, 1) * std::pow(10, dice.Between(-20, i % 2 ? 3 : 110));
        if (i % 3 == 0)
            for (double& value : v) value = std::round(value);
        const float width = float(std::pow(10, dice.Between(-30, 30)));
        canvas->DrawLines(v, 1, width);
        v[2] = std::abs(v[2]);
        v[3] = std::abs(v[3]);
        if (i % 8 == 0) {
            canvas->FillEllipse(v);
            canvas->StrokeEllipse(v);
            canvas->FillRectangle(v);
            canvas->StrokeRectangle(v);
        }
    }
    EXPECT_TRUE(PaddingIsZero(*canvas));
}

TEST(CoverageCanvas, OnlyTheAlphaOfAColourCounts) {
    const auto canvas = CoverageCanvas::Create(2, 2);
    const double rect[] = { 0, 0, 2, 1 };
    const double line[] = { 0, 1.5, 2, 1.5 };
    canvas->SetFillColor(0, 0, 0, 1);
    canvas->SetStrokeColor(0.2, 0.9, 0, 1);
    canvas->FillRectangle(rect);
    canvas->DrawLines(line, 1, 1);
    EXPECT_EQ(PixelsOf(*canvas), Bytes(4, 255));
    canvas->SetFillColor(1, 1, 1, 0);
    canvas->FillRectangle(rect);
    EXPECT_EQ(PixelsOf(*canvas), Bytes(4, 255));
}

TEST(CoverageCanvas, AColourThatIsNotOpaqueCoversLess) {
    const auto canvas = CoverageCanvas::Create(2, 2);
    const double rect[] = { 0, 0, 2, 1 };
    const double line[] = { 0, 1.5, 2, 1.5 };
    canvas->SetFillColor(1, 1, 1, 0.5);
    canvas->SetStrokeColor(1, 1, 1, 0.25);
    canvas->FillRectangle(rect);
    canvas->DrawLines(line, 1, 1);
    EXPECT_EQ(PixelsOf(*canvas), (Bytes{ 128, 128, 64, 64 }));
    const double alphas[] = { -1, kNaN };
    for (const double alpha : alphas) {
        canvas->SetFillColor(1, 1, 1, alpha);
        canvas->FillRectangle(rect);
    }
    EXPECT_EQ(PixelsOf(*canvas), (Bytes{ 128, 128, 64, 64 }));
    canvas->SetFillColor(1, 1, 1, 7);
    canvas->FillRectangle(rect);
    EXPECT_EQ(PixelsOf(*canvas), (Bytes{ 255, 255, 64, 64 }));
}

TEST(CoverageCanvas, TheColoursStartOpaque) {
    const auto canvas = CoverageCanvas::Create(1, 2);
    const double rect[] = { 0, 0, 1, 1 };
    const double line[] = { 0, 1.5, 1, 1.5 };
    canvas->FillRectangle(rect);
    canvas->DrawLines(line, 1, 1);
    EXPECT_EQ(PixelsOf(*canvas), Bytes(2, 255));
}

TEST(CoverageCanvas, TextAndImagesHaveNoPlaceOnIt) {
    class Format final : public ITextFormat {
    public:
        bool SetTextAlignment(std::uint32_t) override { return true; }

        void* GetNativeFormat() override { return nullptr; }

        bool SetEllipsisTrimming() override { return true; }
    } format;

    class Picture final : public IBitMap2D {
    public:
        void GetSize(double out[2]) override { out[0] = out[1] = 2; }
    } picture;

    const auto canvas = CoverageCanvas::Create(8, 8);
    const double rect[] = { 0, 0, 8, 8 };
    const char* const rows[] = { "FF00", "FF00", "FF00", "FF00" };
    canvas->DrawText(u"abc", 3, &format, rect);
    for (const float opacity : { 2.0f, 1.0f, 0.0f }) canvas->DrawBitmap(&picture, opacity, rect);
    canvas->DrawBitmap(nullptr, 1, rect);
    EXPECT_EQ(canvas->CreateBitmapFromPackedRows(rows, 4), nullptr);
    EXPECT_EQ(canvas->CreateBitmapFromImageData("GIF89a", 6), nullptr);
    EXPECT_TRUE(IsBlank(*canvas));
}

} // namespace
} // namespace orvane::render
