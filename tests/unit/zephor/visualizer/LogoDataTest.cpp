#include "zephor/visualizer/LogoData.h"

#include "render/PackedRows.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <vector>

namespace orvane::zephor {
namespace {

using Row = std::vector<std::uint8_t>;

std::vector<Row> LogoPixels() {
    std::vector<Row> rows;
    for (const char* text : kLogoRows) {
        Row& row = rows.emplace_back(kLogoSide);
        render::UnpackRow(render::ParsePackedRow(text), row.data(), 1, row.size());
    }
    return rows;
}

TEST(LogoData, EachRowIsWholeAndUnpacksToTwoHundredBytes) {
    for (const char* text : kLogoRows) {
        ASSERT_NE(text, nullptr);
        const render::PackedRow row = render::ParsePackedRow(text);
        EXPECT_EQ(row.size * 2, std::strlen(text)) << "what isn't hexadecimal ends a row";
        EXPECT_EQ(render::UnpackedLength(row), kLogoSide);
    }
}

TEST(LogoData, NoControlByteIs80) {
    for (const char* text : kLogoRows) {
        const render::PackedRow row = render::ParsePackedRow(text);
        for (std::size_t at = 0; at < row.size;) {
            ASSERT_NE(row.bytes[at], 0x80);
            at += row.bytes[at] > 0x80 ? 2 : std::size_t(row.bytes[at]) + 2;
        }
    }
}

TEST(LogoData, TheCornersLetThePictureThroughAndTheZIsWhite) {
    const std::vector<Row> rows = LogoPixels();
    for (const std::size_t y : { 0u, 199u })
        for (const std::size_t x : { 0u, 199u }) EXPECT_EQ(rows[y][x], 0) << x << ", " << y;
    // The middle of the Z's diagonal, and its two bars: 0.3 half widths above and below it.
    for (const std::size_t y : { 53u, 83u, 113u }) EXPECT_EQ(rows[y][100], 255) << y;
}

TEST(LogoData, TheEmblemIsTheSameHalfRound) {
    const std::vector<Row> rows = LogoPixels();
    // Around (100, 83), as far as the name leaves room.
    for (std::size_t y = 20; y < 146; ++y)
        for (std::size_t x = 10; x < 190; ++x)
            ASSERT_NEAR(rows[y][x], rows[165 - y][199 - x], 3) << x << ", " << y;
}

TEST(LogoData, TheNameStandsBelowAndNothingTouchesTheEdge) {
    const std::vector<Row> rows = LogoPixels();
    int lit = 0;
    for (std::size_t y = 168; y < 192; ++y)
        lit += int(std::ranges::count_if(rows[y], [](int g) { return g > 200; }));
    EXPECT_GT(lit, 500);
    for (std::size_t i = 0; i < kLogoSide; ++i)
        for (const int grey : { rows[0][i], rows[i][0], rows[i][199] }) EXPECT_LT(grey, 10) << i;
}

} // namespace
} // namespace orvane::zephor
