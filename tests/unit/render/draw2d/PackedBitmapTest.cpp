// Images from packed rows, and the drawing of images.
#include "render/draw2d/LayerBacked2DRenderer.h"

#include "render/draw2d/WBitMap2D.h"
#include "unit/render/draw2d/Surface.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <string>
#include <vector>

namespace orvane::render {
namespace {

using namespace tests;

using Bitmap = std::unique_ptr<IBitMap2D>;

Bitmap Packed(IRenderer2D& canvas, const std::vector<const char*>& rows) {
    return Bitmap(canvas.CreateBitmapFromPackedRows(rows.data(), rows.size()));
}

void ExpectSize(const Bitmap& bitmap, double width, double height) {
    ASSERT_NE(bitmap, nullptr);
    double size[2] = { -1, -1 };
    bitmap->GetSize(size);
    EXPECT_EQ(size[0], width);
    EXPECT_EQ(size[1], height);
}

// Draws each pixel of the bitmap onto one pixel of a surface of its size.
Picture Unscaled(Surface& surface, const Bitmap& bitmap) {
    double rect[4] = { 0, 0, 0, 0 };
    bitmap->GetSize(rect + 2);
    return surface.After([&](IRenderer2D& canvas) { canvas.DrawBitmap(bitmap.get(), 1, rect); });
}

TEST(PackedBitmap, TheStringFF00UnpacksToTwoZeroBytes) {
    Surface surface(2, 1);
    const Bitmap bitmap = Packed(surface.canvas, { "FF00", "FF80", "FF00", "FF80" });
    ExpectSize(bitmap, 2, 1);
    const Picture picture = Unscaled(surface, bitmap);
    EXPECT_EQ(picture.At(0, 0), (Pixel{ 0x00, 0x80, 0x00, 0x80 }));
    EXPECT_EQ(picture.At(1, 0), (Pixel{ 0x00, 0x80, 0x00, 0x80 }));
}

TEST(PackedBitmap, ThreeStringsReturnNull) {
    Surface surface(4, 4);
    EXPECT_EQ(Packed(surface.canvas, { "00FF", "00FF", "00FF" }), nullptr);
}

TEST(PackedBitmap, NoRowsAndNoWidthReturnNull) {
    Surface surface(4, 4);
    EXPECT_EQ(surface.canvas.CreateBitmapFromPackedRows(nullptr, 4), nullptr);
    EXPECT_EQ(Packed(surface.canvas, {}), nullptr);
    EXPECT_EQ(Packed(surface.canvas, { "", "00FF", "00FF", "00FF" }), nullptr);
}

// Literal and repeated runs, every plane a row of its own: blue, green, red, alpha.
TEST(PackedBitmap, ThePlanesAreTheBytesOfAPixelInMemoryOrder) {
    Surface surface(4, 2);
    const Bitmap bitmap = Packed(surface.canvas, { "0310203040", "FD50", "0060FE70", "FDFF", "FD00",
                                                   "0301020304", "FD00", "0380808080" });
    ExpectSize(bitmap, 4, 2);
    const Picture picture = Unscaled(surface, bitmap);
    EXPECT_EQ(picture.At(0, 0), (Pixel{ 0x10, 0x50, 0x60, 0xFF }));
    EXPECT_EQ(picture.At(1, 0), (Pixel{ 0x20, 0x50, 0x70, 0xFF }));
    EXPECT_EQ(picture.At(3, 0), (Pixel{ 0x40, 0x50, 0x70, 0xFF }));
    EXPECT_EQ(picture.At(0, 1), (Pixel{ 0x00, 0x01, 0x00, 0x80 }));
    EXPECT_EQ(picture.At(3, 1), (Pixel{ 0x00, 0x04, 0x00, 0x80 }));
}

TEST(PackedBitmap, StringsBeyondTheLastWholeRowAreLeftOut) {
    Surface surface(4, 4);
    ExpectSize(Packed(surface.canvas, { "00FF", "00FF", "00FF", "00FF", "00FF", "00FF", "00FF" }), 1, 1);
}

// The last row too: a run of 128 in a picture one pixel wide stays within the picture.
TEST(PackedBitmap, RowsLongerThanTheWidthStayWithinThePicture) {
    Surface surface(1, 2);
    const Bitmap bitmap =
        Packed(surface.canvas, { "00FF", "81FF", "81FF", "81FF", "81FF", "81FF", "81FF", "80FF" });
    ExpectSize(bitmap, 1, 2);
    EXPECT_TRUE(Unscaled(surface, bitmap).IsAll(kWhite));
}

TEST(PackedBitmap, APictureTooTallForTheComponentIsNull) {
    // Every row the same string of the widest kind: 512 runs of 129 make 66048 pixels.
    Surface surface(4, 4);
    std::string wide;
    for (int i = 0; i < 512; ++i) wide += "80FF";
    const std::vector<const char*> rows(4 * 64, wide.c_str());
    EXPECT_EQ(Packed(surface.canvas, rows), nullptr);
}

TEST(PackedBitmap, AnEmptyBitmapHasNoSizeAndDrawsNothing) {
    WBitMap2D empty(nullptr);
    double size[2] = { -1, -1 };
    empty.GetSize(size);
    EXPECT_EQ(size[0], 0);
    EXPECT_EQ(size[1], 0);
    Surface surface(8, 8);
    const double whole[4] = { 0, 0, 8, 8 };
    EXPECT_TRUE(
        surface.After([&](IRenderer2D& canvas) { canvas.DrawBitmap(&empty, 1, whole); }).IsAll(kClear));
}

// What a white picture on a clear surface becomes at that opacity.
Pixel WhiteAt(float opacity) {
    Surface surface(8, 8);
    const Bitmap bitmap = Packed(surface.canvas, { "00FF", "00FF", "00FF", "00FF" });
    const double whole[4] = { 0, 0, 8, 8 };
    return surface.After([&](IRenderer2D& canvas) { canvas.DrawBitmap(bitmap.get(), opacity, whole); })
        .At(4, 4);
}

TEST(DrawBitmap, AtOpacity2DrawsAsAtOpacity1) {
    EXPECT_EQ(WhiteAt(1), kWhite);
    EXPECT_EQ(WhiteAt(2), kWhite);
    EXPECT_EQ(WhiteAt(std::numeric_limits<float>::infinity()), kWhite);
}

TEST(DrawBitmap, AtOpacity0DrawsNothing) {
    EXPECT_EQ(WhiteAt(0), kClear);
}

TEST(DrawBitmap, AtANegativeOrUndefinedOpacityDrawsNothing) {
    EXPECT_EQ(WhiteAt(-0.5f), kClear);
    EXPECT_EQ(WhiteAt(std::numeric_limits<float>::quiet_NaN()), kClear);
}

TEST(DrawBitmap, AtHalfOpacityAllFourBytesAreHalved) {
    const Pixel half = WhiteAt(0.5f);
    EXPECT_TRUE(Near(half, { 128, 128, 128, 128 }, 1)) << half;
}

TEST(DrawBitmap, ANullBitmapDrawsNothing) {
    Surface surface(8, 8);
    const double whole[4] = { 0, 0, 8, 8 };
    EXPECT_TRUE(
        surface.After([&](IRenderer2D& canvas) { canvas.DrawBitmap(nullptr, 1, whole); }).IsAll(kClear));
}

// Premultiplied: a pixel of half alpha leaves half of what is below it.
TEST(DrawBitmap, IsLaidOverWhatIsThere) {
    Surface surface(8, 8);
    const Bitmap bitmap = Packed(surface.canvas, { "0000", "0000", "0080", "0080" });
    const double whole[4] = { 0, 0, 8, 8 };
    const Picture picture = surface.After([&](IRenderer2D& canvas) {
        canvas.FillRectangle(whole);
        canvas.DrawBitmap(bitmap.get(), 1, whole);
    });
    EXPECT_TRUE(Near(picture.At(4, 4), { 127, 127, 255, 255 }, 1)) << picture.At(4, 4);
}

TEST(DrawBitmap, ScalesTheWholePictureIntoTheRectangle) {
    Surface surface(64, 64);
    // Two pixels: blue and red.
    const Bitmap bitmap = Packed(surface.canvas, { "01FF00", "FF00", "0100FF", "FFFF" });
    const double rect[4] = { 8, 16, 40, 20 };
    const Picture picture =
        surface.After([&](IRenderer2D& canvas) { canvas.DrawBitmap(bitmap.get(), 1, rect); });
    // Up to the middle of each source pixel there is nothing to mix with.
    EXPECT_TRUE(Near(picture.At(10, 26), kBlue, 2)) << picture.At(10, 26);
    EXPECT_TRUE(Near(picture.At(46, 26), kRed, 2)) << picture.At(46, 26);
    EXPECT_EQ(picture.At(4, 26), kClear);
    EXPECT_EQ(picture.At(52, 26), kClear);
    EXPECT_EQ(picture.At(28, 12), kClear);
    EXPECT_EQ(picture.At(28, 40), kClear);
    // Linear: half of each in the middle, and no step anywhere.
    EXPECT_NEAR(picture.At(28, 26).red, 128, 10);
    EXPECT_NEAR(picture.At(28, 26).blue, 128, 10);
    for (int x = 9; x < 47; ++x) {
        EXPECT_LE(picture.At(x, 26).red, picture.At(x + 1, 26).red) << x;
        EXPECT_LE(picture.At(x + 1, 26).red - picture.At(x, 26).red, 32) << x;
    }
}

TEST(DrawBitmap, ScalesDownToo) {
    Surface surface(16, 16);
    const std::vector<const char*> rows(4 * 64, "C1FF"); // 64 by 64, white
    const Bitmap bitmap = Packed(surface.canvas, rows);
    ExpectSize(bitmap, 64, 64);
    const double rect[4] = { 4, 4, 8, 8 };
    const Picture picture =
        surface.After([&](IRenderer2D& canvas) { canvas.DrawBitmap(bitmap.get(), 1, rect); });
    EXPECT_EQ(picture.At(8, 8), kWhite);
    EXPECT_EQ(picture.At(2, 8), kClear);
    EXPECT_EQ(picture.At(13, 8), kClear);
}

} // namespace
} // namespace orvane::render
