#include "zephor/deltafields/Draws.h"

#include "unit/zephor/deltafields/ScriptedRandom.h"

#include <gtest/gtest.h>

namespace orvane::zephor {
namespace {

using tests::SeedNextDraw;

TEST(Draws, RunFromTheLowLimitToBelowTheHighOne) {
    SeedNextDraw(0);
    EXPECT_EQ(Draw(2, 6), 2.0f);
    SeedNextDraw(16384);
    EXPECT_EQ(Draw(2, 6), 4.0f);
    SeedNextDraw(32767);
    EXPECT_LT(Draw(2, 6), 6.0f);
    SeedNextDraw(32767);
    EXPECT_GT(Draw(2, 6), 5.9998f);
    SeedNextDraw(32767);
    EXPECT_LT(Draw(0.002f, 0.008f), 0.008f);
}

TEST(Draws, ThroughReachesTheHighLimit) {
    SeedNextDraw(0);
    EXPECT_EQ(DrawThrough(-0.5f, 0.5f), -0.5f);
    SeedNextDraw(32767);
    EXPECT_EQ(DrawThrough(-0.5f, 0.5f), 0.5f);
}

TEST(Draws, WholeNeverReachesTheHighLimit) {
    SeedNextDraw(0);
    EXPECT_EQ(DrawWhole(0, 10), 0.0f);
    SeedNextDraw(32767);
    EXPECT_EQ(DrawWhole(0, 10), 9.0f);
    SeedNextDraw(32767);
    EXPECT_EQ(DrawWhole(1, 3.1f), 3.0f);
}

TEST(Draws, SignsAreHalfAndHalf) {
    SeedNextDraw(16383);
    EXPECT_EQ(DrawSign(), -1.0f);
    SeedNextDraw(16384);
    EXPECT_EQ(DrawSign(), 1.0f);
}

TEST(Draws, SeedIsTheBitsWithoutTheSignTurnedLeftByTheirLowestFive) {
    const auto seedOfBits = [](std::uint32_t bits) { return SeedOf(std::bit_cast<float>(bits)); };
    EXPECT_EQ(SeedOf(1.0f), 0x3F800000u);
    EXPECT_EQ(SeedOf(-1.0f), 0x3F800000u);
    EXPECT_EQ(SeedOf(0.0f), 0u);
    EXPECT_EQ(seedOfBits(0x3F000001), 0x7E000002u);
    EXPECT_EQ(seedOfBits(0xC0000003), 0x0000001Au); // 0x40000003 turned by 3
    EXPECT_EQ(seedOfBits(0x3F80001F), 0x9FC0000Fu); // turned by 31: one to the right
}

} // namespace
} // namespace orvane::zephor
