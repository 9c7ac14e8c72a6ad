#include "render/recording/RecordingRenderer2D.h"

#include "render/recording/RecordingTextFormat.h"
#include "unit/render/recording/BitmapFileBytes.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <vector>

namespace orvane::render {
namespace {

constexpr double kAll[4] = { 0, 0, 8, 4 };

// Pixels as numbers: alpha, red, green, blue from the highest byte down.
class Canvas8By4 : public testing::Test {
protected:
    RecordingRenderer2D& Get() { return *mCanvas; }

    // How many pixels are `pixel`.
    int Count(std::uint32_t pixel) const {
        int count = 0;
        for (std::uint32_t y = 0; y < 4; ++y)
            for (std::uint32_t x = 0; x < 8; ++x) count += mCanvas->Pixel(x, y) == pixel;
        return count;
    }

    const std::shared_ptr<DrawingLog> mLog = std::make_shared<DrawingLog>();
    const std::unique_ptr<RecordingRenderer2D> mCanvas =
        RecordingRenderer2D::Create(8, 4, SurfaceFormat::Pbgra32, mLog);
};

// What the surface hands to a functor.
struct Seen : BitmapProcessingFunctor {
    void Process(void* pixels, int w, int h, int pitch, std::size_t size) override {
        ++calls;
        width = w;
        height = h;
        rowBytes = pitch;
        bytes.assign(static_cast<std::uint8_t*>(pixels), static_cast<std::uint8_t*>(pixels) + size);
    }

    int calls = 0, width = 0, height = 0, rowBytes = 0;
    std::vector<std::uint8_t> bytes;
};

TEST(RecordingRenderer2D, ASurfaceThatIsNeverDrawnOnIsAllZeros) {
    const auto canvas = RecordingRenderer2D::Create(512, 64, SurfaceFormat::Pbgra32);
    Seen seen;
    canvas->ReadPixels(seen);
    EXPECT_EQ(seen.calls, 1);
    EXPECT_EQ(seen.width, 512);
    EXPECT_EQ(seen.height, 64);
    EXPECT_EQ(seen.rowBytes, 2048);
    EXPECT_EQ(seen.bytes, std::vector<std::uint8_t>(512 * 64 * 4, 0));
}

TEST(RecordingRenderer2D, SidesBelowOneOrAbove16384MakeNone) {
    EXPECT_FALSE(RecordingRenderer2D::Create(0, 4, SurfaceFormat::Pbgra32));
    EXPECT_FALSE(RecordingRenderer2D::Create(4, 0, SurfaceFormat::Alpha8));
    EXPECT_FALSE(RecordingRenderer2D::Create(16385, 1, SurfaceFormat::Alpha8));
    EXPECT_FALSE(RecordingRenderer2D::Create(1, 0xFFFFFFFF, SurfaceFormat::Alpha8));
    EXPECT_TRUE(RecordingRenderer2D::Create(16384, 1, SurfaceFormat::Alpha8));
}

TEST_F(Canvas8By4, AFilledRectangleIsPremultiplied) {
    const double rect[4] = { 2, 1, 3, 2 };
    Get().SetFillColor(1, 0.5, 0, 0.5); // 0.5 * 255 = 127.5 -> 128; 0.25 * 255 = 63.75 -> 64
    Get().FillRectangle(rect);
    EXPECT_EQ(Get().Pixel(2, 1), 0x80804000u);
    EXPECT_EQ(Get().Pixel(4, 2), 0x80804000u);
    EXPECT_EQ(Count(0x80804000u), 6);
    EXPECT_EQ(Count(0), 26);
}

TEST_F(Canvas8By4, StartsWithWhiteFillsAndBlackStrokes) {
    const double line[4] = { 0, 0.5, 8, 0.5 };
    Get().FillRectangle(kAll);
    Get().DrawLines(line, 1, 1);
    EXPECT_EQ(Count(0xFF000000u), 8);
    EXPECT_EQ(Count(0xFFFFFFFFu), 24);
}

TEST_F(Canvas8By4, WhatIsDrawnLaterLiesOverWhatIsThere) {
    Get().SetFillColor(1, 1, 1, 1);
    Get().FillRectangle(kAll);
    Get().SetFillColor(0, 0, 0, 0.5); // alpha 128: 255 * 127 / 255 = 127 of the white is left
    Get().FillRectangle(kAll);
    EXPECT_EQ(Count(0xFF7F7F7Fu), 32);
}

TEST_F(Canvas8By4, APixelHalfCoveredTakesHalfTheColour) {
    const double rect[4] = { 0, 0, 8, 0.5 };
    Get().FillRectangle(rect);
    EXPECT_EQ(Count(0x80808080u), 8);
}

TEST_F(Canvas8By4, StrokesAndEllipsesHaveTheirColours) {
    const double frame[4] = { 0.5, 0.5, 7, 3 };
    Get().SetStrokeColor(1, 0, 0, 1);
    Get().SetFillColor(0, 0, 1, 1);
    Get().StrokeRectangle(frame);
    EXPECT_EQ(Count(0xFFFF0000u), 20) << "the border of 8 by 4";
    Get().FillEllipse(kAll);
    EXPECT_EQ(Get().Pixel(4, 2), 0xFF0000FFu);
    Get().StrokeEllipse(kAll);
    EXPECT_GT(Get().Pixel(4, 0) & 0x00FF0000u, 0u);
}

TEST_F(Canvas8By4, DrawLinesWithNoWidthOrNoCountDrawsNothing) {
    const double line[4] = { 0, 2, 8, 2 };
    Get().DrawLines(line, 1, 0);
    Get().DrawLines(line, 1, -1);
    Get().DrawLines(line, 1, std::numeric_limits<float>::quiet_NaN());
    Get().DrawLines(line, 0, 1);
    Get().DrawLines(line, -1, 1);
    EXPECT_EQ(Count(0), 32);
}

TEST_F(Canvas8By4, EndDrawIsTrueForALostSurfaceAlone) {
    Get().BeginDraw();
    EXPECT_FALSE(Get().EndDraw());
    Get().LoseSurface();
    EXPECT_TRUE(Get().EndDraw());
    EXPECT_FALSE(Get().EndDraw());
    EXPECT_EQ(mLog->drawings, 3);
}

TEST_F(Canvas8By4, ASurfaceThatCantBeLockedCallsNothing) {
    Seen seen;
    Get().RefuseLock(true);
    Get().ReadPixels(seen);
    EXPECT_EQ(seen.calls, 0);
}

TEST_F(Canvas8By4, ReadPixelsGivesThePixelsForWritingToo) {
    struct Writer : BitmapProcessingFunctor {
        void Process(void* pixels, int, int, int, std::size_t) override {
            *static_cast<std::uint8_t*>(pixels) = 9;
        }
    } writer;

    Get().ReadPixels(writer);
    EXPECT_EQ(Get().Pixel(0, 0), 9u);
}

TEST_F(Canvas8By4, TextsAreListedWithAllThatWasSaid) {
    RecordingTextFormat format(12);
    EXPECT_TRUE(format.SetTextAlignment(kTextAlignmentTrailing));
    EXPECT_TRUE(format.SetEllipsisTrimming());
    EXPECT_EQ(format.GetNativeFormat(), nullptr);
    Get().SetFillColor(1, 0.5, 0.25, 1);
    Get().DrawText(u"Zo\u00EB", 2, &format, kAll);
    const std::vector<DrawnText> expected = {
        { u"Zo", 12, kTextAlignmentTrailing, true, { 0, 0, 8, 4 }, { 1, 0.5f, 0.25f, 1 } },
    };
    EXPECT_EQ(mLog->texts, expected);
    EXPECT_TRUE(format.SetTextAlignment(77));
    EXPECT_EQ(format.Alignment(), kTextAlignmentLeading) << "other values count as leading";
}

TEST_F(Canvas8By4, NoTextIsDrawnWithoutTextLengthOrFormat) {
    RecordingTextFormat format(12);
    Get().DrawText(nullptr, 2, &format, kAll);
    Get().DrawText(u"Zo", 0, &format, kAll);
    Get().DrawText(u"Zo", 2, nullptr, kAll);
    EXPECT_TRUE(mLog->texts.empty());
    EXPECT_EQ(Count(0), 32);
}

TEST(RecordingRenderer2D, ATextIsABoxForEachUnitThatIsNoSpaceWhereItsAlignmentPutsIt) {
    // Font size 10: cells of 5 pixels, boxes of 4 by 7 that begin 0.5 to the right and 2 down.
    const double rect[4] = { 10, 4, 40, 12 };
    for (const auto& [alignment, start] : { std::pair(kTextAlignmentLeading, 10u),
                                            { kTextAlignmentTrailing, 35u },
                                            { kTextAlignmentCentred, 22u } }) {
        const auto canvas = RecordingRenderer2D::Create(64, 32, SurfaceFormat::Pbgra32);
        RecordingTextFormat format(10);
        format.SetTextAlignment(alignment);
        canvas->DrawText(u"a b", 3, &format, rect);
        SCOPED_TRACE(alignment);
        EXPECT_EQ(canvas->Pixel(start + 2, 8), 0xFFFFFFFFu) << "the first unit";
        EXPECT_EQ(canvas->Pixel(start + 7, 8), 0u) << "the space";
        EXPECT_EQ(canvas->Pixel(start + 12, 8), 0xFFFFFFFFu) << "the last unit";
        EXPECT_EQ(canvas->Pixel(start + 12, 5), 0u) << "above";
        EXPECT_EQ(canvas->Pixel(start + 12, 14), 0u) << "below";
        EXPECT_EQ(canvas->Pixel(start + 17, 8), 0u) << "behind";
    }
}

TEST_F(Canvas8By4, TextFarOutsideIsListedAndLeavesTheSurfaceBlank) {
    RecordingTextFormat format(12);
    const double far[4] = { 0, 18446744073709551605.0, 512, 25 };
    Get().DrawText(u"album", 5, &format, far);
    EXPECT_EQ(mLog->texts.size(), 1u);
    EXPECT_EQ(Count(0), 32);
}

TEST_F(Canvas8By4, TheLogOutlivesItsSurfaces) {
    EXPECT_EQ(mLog->surfaces, 1);
    EXPECT_EQ(mLog->liveSurfaces, 1);
    {
        RecordingTextFormat format(12);
        const auto second = RecordingRenderer2D::Create(4, 4, SurfaceFormat::Pbgra32, mLog);
        second->DrawText(u"x", 1, &format, kAll);
    }
    EXPECT_EQ(mLog->surfaces, 2);
    EXPECT_EQ(mLog->liveSurfaces, 1);
    EXPECT_EQ(Get().Log().texts.size(), 1u);
}

class BitmapDrawing : public Canvas8By4 {
protected:
    std::unique_ptr<IBitMap2D> Image(std::int32_t width, std::int32_t height,
                                     const std::vector<std::uint8_t>& pixels) {
        const auto file = BitmapFileBytes(width, height, 32, pixels);
        return std::unique_ptr<IBitMap2D>(
            Get().CreateBitmapFromImageData(file.data(), static_cast<std::uint32_t>(file.size())));
    }
};

TEST_F(BitmapDrawing, AnImageIsScaledIntoTheRectangleWhateverItsProportions) {
    const auto image = Image(1, 1, { 30, 20, 10, 0 });
    const double rect[4] = { 1, 1, 6, 2 };
    double size[2];
    image->GetSize(size);
    EXPECT_EQ(size[0], 1);
    EXPECT_EQ(size[1], 1);
    Get().DrawBitmap(image.get(), 1, rect);
    EXPECT_EQ(Count(0xFF0A141Eu), 12);
    EXPECT_EQ(Count(0), 20);
    EXPECT_EQ(mLog->images, (std::vector<DrawnImage>{ { 1, 1, 1.0f, { 1, 1, 6, 2 } } }));
}

TEST_F(BitmapDrawing, ScalingInterpolatesLinearlyBetweenTheCentresOfPixels) {
    // Two pixels over eight: their centres are at 2 and 6, and between them blue goes up by 50 a pixel.
    const auto image = Image(2, 1, { 0, 0, 0, 0, 200, 0, 0, 0 });
    Get().DrawBitmap(image.get(), 1, kAll);
    const std::vector<std::uint32_t> expected = { 0, 0, 25, 75, 125, 175, 200, 200 };
    for (std::uint32_t x = 0; x < 8; ++x) EXPECT_EQ(Get().Pixel(x, 3), 0xFF000000u + expected[x]) << x;
}

TEST_F(BitmapDrawing, OpacityAboveOneCountsAsOneAndZeroOrLessDrawsNothing) {
    const auto image = Image(1, 1, { 200, 200, 200, 0 });
    Get().DrawBitmap(image.get(), 0, kAll);
    Get().DrawBitmap(image.get(), -1, kAll);
    Get().DrawBitmap(nullptr, 1, kAll);
    EXPECT_EQ(Count(0), 32);
    EXPECT_TRUE(mLog->images.empty());
    Get().DrawBitmap(image.get(), 0.5f, kAll);
    EXPECT_EQ(Count(0x80646464u), 32);
    Get().DrawBitmap(image.get(), 2, kAll);
    EXPECT_EQ(Count(0xFFC8C8C8u), 32);
    EXPECT_EQ(mLog->images.back().opacity, 1.0f);
}

TEST_F(BitmapDrawing, RectanglesOfNoSizeOrNoNumberDrawNothing) {
    const auto image = Image(1, 1, { 200, 200, 200, 0 });
    const double kNoNumber = std::numeric_limits<double>::quiet_NaN(), kEndless = HUGE_VAL;
    for (const auto& rect : { std::array{ 0.0, 0.0, 0.0, 4.0 },
                              { 0.0, 0.0, 8.0, -4.0 },
                              { kNoNumber, 0.0, 8.0, 4.0 },
                              { 0.0, 0.0, kEndless, 4.0 },
                              { 1e30, 0.0, 8.0, 4.0 } })
        Get().DrawBitmap(image.get(), 1, rect.data());
    EXPECT_EQ(Count(0), 32);
}

TEST_F(BitmapDrawing, DataThatIsNoImageMakesNone) {
    const std::uint8_t noise[100] = { 1, 2, 3 };
    EXPECT_EQ(Get().CreateBitmapFromImageData(noise, sizeof noise), nullptr);
    EXPECT_EQ(Get().CreateBitmapFromImageData(nullptr, 100), nullptr);
    EXPECT_EQ(Get().CreateBitmapFromImageData(noise, 0), nullptr);
}

TEST_F(BitmapDrawing, PackedRowsMakeAnImageAndThreeOfThemNone) {
    // One row of two pixels: each plane repeats its byte twice.
    const char* const rows[] = { "FF10", "FF20", "FF30", "FFFF" };
    EXPECT_EQ(Get().CreateBitmapFromPackedRows(rows, 3), nullptr);
    const std::unique_ptr<IBitMap2D> image(Get().CreateBitmapFromPackedRows(rows, 4));
    ASSERT_TRUE(image);
    Get().DrawBitmap(image.get(), 1, kAll);
    EXPECT_EQ(Count(0xFF302010u), 32);
}

TEST(RecordingRenderer2D, AnAlphaSurfaceKeepsOneByteForEachPixel) {
    const auto canvas = RecordingRenderer2D::Create(8, 4, SurfaceFormat::Alpha8);
    const double left[4] = { 0, 0, 4, 4 };
    canvas->SetFillColor(0.1, 0.2, 0.3, 0.5);
    canvas->FillRectangle(left);
    Seen seen;
    canvas->ReadPixels(seen);
    EXPECT_EQ(seen.rowBytes, 8);
    EXPECT_EQ(seen.bytes.size(), 32u);
    EXPECT_EQ(canvas->Pixel(3, 3), 128u);
    EXPECT_EQ(canvas->Pixel(4, 3), 0u);
    canvas->FillRectangle(left);
    EXPECT_EQ(canvas->Pixel(3, 3), 192u) << "128 + 128 * 127 / 255 = 191.75";
}

TEST(RecordingRenderer2D, ResizeLeavesASurfaceInMemoryAsItIs) {
    const auto canvas = RecordingRenderer2D::Create(8, 4, SurfaceFormat::Pbgra32);
    canvas->Resize(100, 100);
    Seen seen;
    canvas->ReadPixels(seen);
    EXPECT_EQ(seen.width, 8);
}

} // namespace
} // namespace orvane::render
