#include "render/canvas/Coverage.h"

#include "CanvasOracle.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace orvane::render {
namespace {

TEST(Coverage, OverIsCPlusBTimesOneLessCRoundedOnceForEveryPair) {
    for (int b = 0; b <= 255; ++b)
        for (int c = 0; c <= 255; ++c) {
            // c + b(255 - c) / 255 to the nearest, in whole numbers; there are no halves.
            const int expected = c + (2 * b * (255 - c) + 255) / (2 * 255);
            ASSERT_EQ(Over(std::uint8_t(b), std::uint8_t(c)), expected) << "b " << b << " c " << c;
        }
}

TEST(Coverage, FullCoverageSets255AndNoneKeepsTheValue) {
    for (int b = 0; b <= 255; ++b) {
        EXPECT_EQ(Over(std::uint8_t(b), 255), 255);
        EXPECT_EQ(Over(std::uint8_t(b), 0), b);
    }
}

TEST(Coverage, ACoverageBecomes255thsRoundedToNearestHalvesUp) {
    EXPECT_EQ(CoverageByte(0, 255), 0);
    EXPECT_EQ(CoverageByte(1, 255), 255);
    EXPECT_EQ(CoverageByte(0.5f, 255), 128); // 127.5
    EXPECT_EQ(CoverageByte(0.25f, 255), 64); // 63.75
    EXPECT_EQ(CoverageByte(-3, 255), 0);
    EXPECT_EQ(CoverageByte(7, 255), 255);
    EXPECT_EQ(CoverageByte(1, 127.5f), 128); // an alpha of one half
}

// A piece from xTop to xBottom, right sided, of that height.
EdgePiece Piece(float xTop, float xBottom, float height) {
    const float extent = std::max(std::abs(xBottom - xTop), EdgePiece::kLeastExtent);
    const float right = (xTop + xBottom) / 2 + extent / 2;
    return { right, extent, 1 + extent, height / extent / 2 };
}

TEST(Coverage, ThePartOfAPixelLeftOfAnEdgeIsItsArea) {
    EXPECT_FLOAT_EQ(ShareOfPixel(Piece(3, 4, 1), 3), 0.5f);  // the diagonal
    EXPECT_FLOAT_EQ(ShareOfPixel(Piece(3, 4, 1), 2), 1.0f);  // wholly to the left of it
    EXPECT_FLOAT_EQ(ShareOfPixel(Piece(3, 4, 1), 4), 0.0f);  // wholly to the right
    EXPECT_FLOAT_EQ(ShareOfPixel(Piece(3, 5, 1), 3), 0.75f); // a triangle of 1/4 is missing
    EXPECT_FLOAT_EQ(ShareOfPixel(Piece(3, 5, 1), 4), 0.25f);
    EXPECT_FLOAT_EQ(ShareOfPixel(Piece(3, 4, 0.5f), 3), 0.25f);
    EXPECT_NEAR(ShareOfPixel(Piece(3.25f, 3.25f, 1), 3), 0.25f, 1e-4);
    EXPECT_FLOAT_EQ(ShareOfPixel(Piece(1000.5f, 1000.5f, 1), 0), 1.0f); // far to the left, still exactly 1
}

TEST(Coverage, TheWideFormMakesTheScalarFormsBytesAtEveryLengthAndOffset) {
    tests::Dice dice(41);
    for (int round = 0; round < 4000; ++round) {
        const int offset = dice.Below(9);
        const int count = dice.Below(40);
        std::vector<std::uint8_t> scalar(std::size_t(offset + count) + CoverageSurface::kRowPadding);
        for (auto& byte : scalar) byte = std::uint8_t(dice.Below(256));
        auto wide = scalar;
        std::vector<EdgePiece> pieces;
        for (int i = dice.Below(7); i > 0; --i) {
            EdgePiece piece =
                Piece(float(dice.Between(-3, 43)), float(dice.Between(-3, 43)), float(dice.Between(0, 1)));
            piece.weight *= dice.Below(2) ? 1.0f : -1.0f;
            pieces.push_back(piece);
        }
        const CoverageSpan span = { scalar.data() + offset, count, float(dice.Below(5)),
                                    float(dice.Between(-1, 1)), float(dice.Between(0, 255)) };
        CoverageSpan wideSpan = span;
        wideSpan.pixels = wide.data() + offset;
        BlendPiecesScalar(span, pieces.data(), int(pieces.size()));
        BlendPieces(wideSpan, pieces.data(), int(pieces.size()));
        ASSERT_EQ(scalar, wide) << "round " << round << " count " << count << " offset " << offset;
    }
}

TEST(Coverage, ARunIsOneCoverageOverEveryPixelOfItAndNoOther) {
    for (const float coverage : { 0.0f, 0.25f, 1.0f }) {
        std::vector<std::uint8_t> pixels = { 9, 0, 100, 255, 9 };
        BlendRun({ pixels.data() + 1, 3, 0, coverage, 255 });
        const auto c = std::uint8_t(std::lround(255 * coverage));
        EXPECT_EQ(pixels, (std::vector<std::uint8_t>{ 9, Over(0, c), Over(100, c), Over(255, c), 9 }));
    }
    std::vector<std::uint8_t> pixels = { 9 };
    BlendRun({ pixels.data(), -5, 0, 1, 255 });
    EXPECT_EQ(pixels[0], 9);
}

} // namespace
} // namespace orvane::render
