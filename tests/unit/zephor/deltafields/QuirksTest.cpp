// What looks odd in single members, and stays.
#include "unit/zephor/deltafields/Fields.h"
#include "unit/zephor/deltafields/NamedMember.h"
#include "unit/zephor/deltafields/ScriptedRandom.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <memory>
#include <set>

namespace orvane::zephor {
namespace {

using tests::MakeNamed;
using tests::OracleRandom;
using tests::SeedNextDraw;
using tests::TestField;

// The seed of the last row of a field of 4 rows: y is 0.5, whose bits 0x3F000000 are turned by 0.
constexpr std::uint32_t kSeedOfHalf = 0x3F000000;

TEST(Flee, MovesEachRowAsAWhole) {
    TestField field(40, 16);
    ComputeDeltaField(field.Get(), *MakeNamed("Flee"));
    std::set<long> shifts;
    for (int row = 0; row < 16; ++row) {
        const float shift = field.Cell(20, row).x - 20;
        for (int column = 5; column < 35; ++column)
            EXPECT_NEAR(field.Cell(column, row).x - float(column), shift, 1e-4) << column << ", " << row;
        EXPECT_NEAR(field.Cell(20, row).y, row, 1e-4);
        shifts.insert(std::lround(shift * 1e4f));
    }
    // Rows above and below the middle have the same y but for the sign, which the seed leaves out.
    EXPECT_EQ(shifts.size(), 9u);
}

TEST(Flee, RowsShiftWithinTheReach) {
    const DeltaFactory factory = tests::FactoryNamed("Flee");
    SeedNextDraw(32767); // a reach of nearly 0.021, which is 0.42 of the 40 columns
    const std::unique_ptr<DeltafieldFunctor> functor = factory();
    TestField field(40, 64);
    ComputeDeltaField(field.Get(), *functor);
    for (int row = 0; row < 64; ++row) EXPECT_LE(std::abs(field.Cell(20, row).x - 20), 0.4201f) << row;
}

TEST(Flee, FieldsOfTheSameReachAreTheSame) {
    const std::unique_ptr<DeltafieldFunctor> functor = MakeNamed("Flee");
    TestField first(20, 20), second(20, 20);
    platform::SeedRand(1);
    ComputeDeltaField(first.Get(), *functor);
    platform::SeedRand(2);
    ComputeDeltaField(second.Get(), *functor);
    EXPECT_EQ(first.Bytes(), second.Bytes());
}

TEST(Flee, LeavesTheGeneratorSeededByItsLastRow) {
    TestField field(8, 4);
    ComputeDeltaField(field.Get(), *MakeNamed("Flee"));
    OracleRandom random(kSeedOfHalf);
    random.Next(); // the noise of the last pixel
    EXPECT_EQ(platform::Rand(), random.Next());
}

TEST(DTChaos, LeavesTheGeneratorSeededByItsLastRow) {
    TestField field(8, 4);
    ComputeDeltaField(field.Get(), *MakeNamed("DT - Chaos"));
    EXPECT_EQ(platform::Rand(), OracleRandom(kSeedOfHalf).Next());
}

TEST(DTChaos, EachCallOfItsSlotSeedsTheGenerator) {
    const std::unique_ptr<DeltafieldFunctor> functor = MakeNamed("DT - Chaos");
    static_cast<void>(functor->MapCartesian(0.25f, 0.5f));
    EXPECT_EQ(platform::Rand(), OracleRandom(kSeedOfHalf).Next());
}

TEST(Swirly, DrawsForFourVorticesAndUsesTwo) {
    constexpr std::uint32_t kSeed = 9;
    constexpr int kDrawsOfAVortex = 5; // strength, its sign, falloff, two offsets
    const DeltaFactory factory = tests::FactoryNamed("Swirly");
    platform::SeedRand(kSeed);
    const std::unique_ptr<DeltafieldFunctor> functor = factory();
    const int nextDraw = platform::Rand();

    OracleRandom random(kSeed);
    double x = 0.25, y = -0.5, newX = x, newY = y;
    for (const double signOfQ : { 1.0, -1.0 }) {
        const double size = 6 + 2 * random.Next() / 32768.0, strength = random.Next() >= 16384 ? size : -size;
        const double falloff = 1000 + 1000 * random.Next() / 32768.0;
        const double m = x + random.Next() / 32768.0, n = y + signOfQ * random.Next() / 32768.0;
        const double s = strength / ((n * n + m * m) * falloff + 10);
        newX += n * s;
        newY -= m * s;
    }
    const auto [resultX, resultY] = functor->MapCartesian(float(x), float(y));
    EXPECT_NEAR(resultX, newX, 1e-6);
    EXPECT_NEAR(resultY, newY, 1e-6);

    for (int i = 0; i < 2 * kDrawsOfAVortex; ++i) random.Next();
    EXPECT_EQ(nextDraw, random.Next());
}

TEST(GravityBall, TheCentreItselfIsNoNumber) {
    // 0 times the logarithm's -infinity. The feedback step takes it for 0.
    const auto [r, theta] = MakeNamed("Gravity Ball")->MapPolar(0.0f, 0.0f);
    EXPECT_TRUE(std::isnan(r));
    EXPECT_EQ(theta, 0.0f);
    TestField field(4, 4);
    ComputeDeltaField(field.Get(), *MakeNamed("Gravity Ball"));
    EXPECT_TRUE(std::isnan(field.Cell(2, 2).x));
    EXPECT_FALSE(std::isnan(field.Cell(3, 2).x));
}

TEST(SineMultiCirc, HalfOfAllDoNotTurn) {
    int still = 0, left = 0, right = 0;
    const DeltaFactory factory = tests::FactoryNamed("Sine Multi Circ");
    platform::SeedRand(5);
    for (int i = 0; i < 400; ++i) {
        const float turn = factory()->MapPolar(0.5f, 0.0f).second;
        EXPECT_LE(std::abs(turn), 0.1f);
        ++(turn == 0 ? still : turn < 0 ? left : right);
    }
    EXPECT_NEAR(still, 200, 50);
    EXPECT_NEAR(left, 100, 40);
    EXPECT_NEAR(right, 100, 40);
}

TEST(DTSwirl, SteepnessNeverMeetsANegativeNumber) {
    // At the corners r is the root of 2, and 1 - 0.7 r still above 0.
    const auto [r, theta] = MakeNamed("DT - Swirl")->MapPolar(1.41421356f, 1.0f);
    EXPECT_FALSE(std::isnan(r));
    EXPECT_FALSE(std::isnan(theta));
}

} // namespace
} // namespace orvane::zephor
