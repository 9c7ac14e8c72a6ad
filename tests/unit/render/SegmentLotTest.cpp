#include "render/canvas/SegmentLot.h"

#include "CanvasOracle.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <limits>
#include <vector>

namespace orvane::render {
namespace {

const CoverageSurface kSurface = { nullptr, 1002, 802, 1024 };

// All the numbers of one segment, as bits.
std::vector<std::uint32_t> NumbersOf(const SegmentLot& lot, int i) {
    std::vector<std::uint32_t> numbers;
    const auto add = [&](const auto(&field)[SegmentLot::kMost]) {
        std::uint32_t bits = 0;
        std::memcpy(&bits, &field[i], sizeof bits);
        numbers.push_back(bits);
    };
    for (const auto* edge : { &lot.leftSide, &lot.rightSide, &lot.leftEnd, &lot.rightEnd }) {
        add(edge->top);
        add(edge->bottom);
        add(edge->x);
    }
    for (const auto* field : { &lot.slope, &lot.endSlope, &lot.run, &lot.steepness, &lot.left, &lot.right })
        add(*field);
    for (const auto* field : { &lot.originX, &lot.originY, &lot.firstRow, &lot.belowUpper, &lot.lower,
                               &lot.lastRow, &lot.columns })
        add(*field);
    return numbers;
}

bool IsShort(std::array<double, 4> segment, float width) {
    SegmentLot lot;
    lot.Take(segment.data(), 1, width, kSurface);
    return lot.isShort[0];
}

TEST(SegmentLot, TheWideFormMakesTheScalarFormsNumbers) {
    tests::Dice dice(41);
    int compared = 0;
    for (int round = 0; round < 20000; ++round) {
        double segments[SegmentLot::kMost * 4];
        for (int i = 0; i < SegmentLot::kMost; ++i) {
            const double reach = std::pow(10, dice.Between(-30, 3));
            double* const s = segments + i * 4;
            s[0] = dice.Between(-80, kSurface.width + 80);
            s[1] = dice.Between(-80, kSurface.height + 80);
            s[2] = s[0] + dice.Between(-reach, reach);
            s[3] = s[1] + dice.Between(-reach, reach);
            if (round % 3 == 0) std::transform(s, s + 4, s, [](double v) { return std::round(v); });
            const int kind = dice.Below(12);
            if (kind < 2) s[2 + kind] = s[kind];
            if (kind == 2) s[dice.Below(4)] = std::numeric_limits<double>::quiet_NaN();
            if (kind == 3) s[dice.Below(4)] *= 1e60;
        }
        const float width = float(dice.Between(0.01, 9));
        const int count = 1 + dice.Below(SegmentLot::kMost);
        SegmentLot scalar, wide;
        scalar.TakeScalar(segments, count, width, kSurface);
        wide.Take(segments, count, width, kSurface);
        for (int i = 0; i < SegmentLot::kMost; ++i) {
            ASSERT_EQ(scalar.isShort[i], wide.isShort[i]) << round << " " << i;
            if (!scalar.isShort[i]) continue;
            ASSERT_EQ(NumbersOf(scalar, i), NumbersOf(wide, i)) << round << " " << i;
            ++compared;
        }
    }
    EXPECT_GT(compared, 10000);
}

TEST(SegmentLot, TheEdgesAreThoseOfTheRectangleAroundTheSegment) {
    // From (100, 50) 3 to the right and 4 down, 5 wide: half the width across it is (2, -1.5).
    const double segment[] = { 100, 50, 103, 54 };
    SegmentLot lot;
    lot.Take(segment, 1, 5, kSurface);
    ASSERT_TRUE(lot.isShort[0]);
    const auto expect = [&](const SegmentLot::Edge& edge, double x, double top, double bottom) {
        EXPECT_NEAR(edge.x[0] + float(lot.originX[0]), x, 1e-5);
        EXPECT_NEAR(edge.top[0] + float(lot.originY[0]), top, 1e-5);
        EXPECT_NEAR(edge.bottom[0] + float(lot.originY[0]), bottom, 1e-5);
    };
    expect(lot.leftSide, 98, 51.5, 55.5);
    expect(lot.rightSide, 102, 48.5, 52.5);
    expect(lot.leftEnd, 102, 48.5, 51.5);  // the upper one
    expect(lot.rightEnd, 105, 52.5, 55.5); // the lower one
    EXPECT_FLOAT_EQ(lot.slope[0], 0.75f);
    EXPECT_FLOAT_EQ(lot.endSlope[0], -4.0f / 3);
    EXPECT_FLOAT_EQ(lot.run[0], 0.75f);
    EXPECT_FLOAT_EQ(lot.steepness[0], 4.0f / 3);
    EXPECT_NEAR(lot.left[0] + float(lot.originX[0]), 98, 1e-5);
    EXPECT_NEAR(lot.right[0] + float(lot.originX[0]), 105, 1e-5);
    EXPECT_EQ(lot.firstRow[0] + lot.originY[0], 48);
    EXPECT_EQ(lot.belowUpper[0] + lot.originY[0], 52);
    EXPECT_EQ(lot.lower[0] + lot.originY[0], 52);
    EXPECT_EQ(lot.lastRow[0] + lot.originY[0], 56);
}

TEST(SegmentLot, TheColumnsOfARowAreEnough) {
    // Level: all of it, 10 columns and a fraction at both ends. Upright: its width and the fractions.
    for (const auto& [segment, width, columns] :
         { std::tuple{ std::array{ 50.5, 20.0, 60.5, 20.0 }, 1.0f, 12 },
           std::tuple{ std::array{ 50.5, 20.0, 50.5, 30.0 }, 3.0f, 5 } }) {
        SegmentLot lot;
        lot.Take(segment.data(), 1, width, kSurface);
        ASSERT_TRUE(lot.isShort[0]);
        EXPECT_EQ(lot.columns[0], columns);
    }
}

TEST(SegmentLot, OnlySegmentsThatFitAreShort) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_TRUE(IsShort({ 10, 10, 20, 15 }, 8));
    EXPECT_FALSE(IsShort({ 10, 10, 20, 15 }, 8.01f));
    EXPECT_FALSE(IsShort({ 10, 10, 10, 10 }, 1)) << "without length";
    EXPECT_TRUE(IsShort({ -64, -64, 1066, 866 }, 1)) << "long, but short in each row";
    EXPECT_FALSE(IsShort({ -64.1, 10, 20, 15 }, 1)) << "out of reach";
    EXPECT_FALSE(IsShort({ 10, 10, 20, 866.1 }, 1)) << "out of reach";
    EXPECT_TRUE(IsShort({ 10, 10, 260, 10 }, 1));
    EXPECT_FALSE(IsShort({ 10, 10, 270, 10 }, 1)) << "too far along a row";
    for (int i = 0; i < 4; ++i) {
        std::array<double, 4> segment = { 10, 10, 20, 15 };
        segment[std::size_t(i)] = nan;
        EXPECT_FALSE(IsShort(segment, 1)) << i;
    }
}

} // namespace
} // namespace orvane::render
