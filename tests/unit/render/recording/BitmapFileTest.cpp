#include "render/recording/BitmapFile.h"

#include "unit/render/recording/BitmapFileBytes.h"

#include <gtest/gtest.h>

#include <vector>

namespace orvane::render {
namespace {

using Bytes = std::vector<std::uint8_t>;

// A file in a heap block of exactly its size, so that a read past its end is seen by the sanitizer.
std::optional<PackedPicture> Decode(const std::vector<std::byte>& file, std::size_t size) {
    const std::vector<std::byte> exact(file.begin(), file.begin() + std::ptrdiff_t(size));
    return DecodeBitmapFile(exact);
}

Bytes PixelsOf(const PackedPicture& picture) {
    return { picture.bytes.get(), picture.bytes.get() + picture.RowBytes() * picture.height };
}

TEST(BitmapFile, RowsOf24BitsStandFromTheBottomUpInFourByteSteps) {
    // 1 by 2: the file's first row is the picture's last, and each is padded by one byte.
    const auto file = BitmapFileBytes(1, 2, 24, { 4, 5, 6, 99, 1, 2, 3, 99 });
    const auto picture = DecodeBitmapFile(file);
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->width, 1u);
    EXPECT_EQ(picture->height, 2u);
    EXPECT_EQ(PixelsOf(*picture), (Bytes{ 1, 2, 3, 255, 4, 5, 6, 255 }));
}

TEST(BitmapFile, ANegativeHeightStandsFromTheTopDownAnd32BitsAreOpaque) {
    const auto picture = DecodeBitmapFile(BitmapFileBytes(1, -2, 32, { 1, 2, 3, 0, 4, 5, 6, 7 }));
    ASSERT_TRUE(picture);
    EXPECT_EQ(PixelsOf(*picture), (Bytes{ 1, 2, 3, 255, 4, 5, 6, 255 }));
}

TEST(BitmapFile, AFileCutAnywhereIsRefused) {
    const auto file = BitmapFileBytes(1, 2, 24, { 4, 5, 6, 0, 1, 2, 3, 0 });
    for (std::size_t size = 0; size < file.size(); ++size) EXPECT_FALSE(Decode(file, size)) << size;
    EXPECT_TRUE(Decode(file, file.size()));
}

TEST(BitmapFile, OtherFilesAreRefused) {
    const Bytes pixels(64, 0);
    EXPECT_FALSE(DecodeBitmapFile({}));
    EXPECT_FALSE(DecodeBitmapFile(BitmapFileBytes(0, 1, 32, pixels)));
    EXPECT_FALSE(DecodeBitmapFile(BitmapFileBytes(-1, 1, 32, pixels)));
    EXPECT_FALSE(DecodeBitmapFile(BitmapFileBytes(1, 0, 32, pixels)));
    EXPECT_FALSE(DecodeBitmapFile(BitmapFileBytes(1, INT32_MIN, 32, pixels)));
    EXPECT_FALSE(DecodeBitmapFile(BitmapFileBytes(INT32_MAX, 1, 32, pixels)));
    EXPECT_FALSE(DecodeBitmapFile(BitmapFileBytes(1, 1, 8, pixels)));
    EXPECT_FALSE(DecodeBitmapFile(BitmapFileBytes(1, 1, 32, pixels, 3)));
    auto far = BitmapFileBytes(1, 1, 32, pixels);
    far[13] = std::byte(0xFF); // the pixels would begin far behind the file
    EXPECT_FALSE(DecodeBitmapFile(far));
    far = BitmapFileBytes(1, 1, 32, pixels);
    far[0] = std::byte('X');
    EXPECT_FALSE(DecodeBitmapFile(far));
}

} // namespace
} // namespace orvane::render
