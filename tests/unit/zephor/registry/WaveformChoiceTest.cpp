#include "zephor/registry/WaveformChoice.h"

#include "zephor/registry/Selection.h"

#include "support/RandBands.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <utility>

namespace orvane::zephor {
namespace {

using tests::Exactly;
using tests::kAnyRand;
using tests::kLower;
using tests::kMiddle;
using tests::kUpper;
using tests::RandRange;
using tests::ScriptRand;

constexpr WaveformLengths kLengths = { 3, 4, 99 };
constexpr std::int32_t kNone = -1;

// What a band draws for a number, in double precision. Numbers near a boundary are not asked for.
int IndexOf(int number, int within) {
    return int(number / 32767.0 * within);
}

TEST(WaveformChoice, TheBandsAreNested) {
    struct Case {
        RandRange band;
        int within;
    };

    for (const Case& c : { Case{ kUpper, 3 }, Case{ kMiddle, 7 }, Case{ kLower, 106 } })
        for (const int number : { 0, 5000, 12345, 20000, 32000 }) {
            ScriptRand({ c.band, Exactly(number) });
            EXPECT_EQ(ChooseWaveformIndex(kLengths, kNone, 0), IndexOf(number, c.within))
                << number << " within " << c.within;
        }
}

TEST(WaveformChoice, ABandBeginsAtItsLeastNumber) {
    // A little more than half: 1.5 of 3, 3.5 of 7 and 53.5 of 106, so the index tells the band.
    const RandRange half = { 16500, 16600 };
    const std::pair<int, int> cases[] = { { 21627, 1 }, { 21626, 3 }, { 10814, 3 }, { 10813, 53 } };
    for (const auto& [band, index] : cases) {
        ScriptRand({ Exactly(band), half });
        EXPECT_EQ(ChooseWaveformIndex(kLengths, kNone, 0), index) << band;
    }
}

TEST(WaveformChoice, TheBandIsDrawnOnceAndTheIndexAgainWhileItEqualsTheOneInForce) {
    // Twice the middle of three, then the last: 11,000 and 32,000 of 32,767.
    ScriptRand({ kUpper, { 11000, 21000 }, { 11000, 21000 }, { 22000, 32000 }, Exactly(1234) });
    EXPECT_EQ(ChooseWaveformIndex(kLengths, 1, 0), 2);
    EXPECT_EQ(platform::Rand(), 1234);
}

TEST(WaveformChoice, AStepGivesTheNeighbourAndDrawsAllTheSame) {
    for (const std::int32_t step : { 1, -1 }) {
        ScriptRand({ kAnyRand, kAnyRand, Exactly(77) });
        EXPECT_EQ(ChooseWaveformIndex(kLengths, 41, step), 41 + step);
        EXPECT_EQ(platform::Rand(), 77);
    }
}

TEST(WaveformChoice, AStepBelowTheFirstIsNegative) {
    EXPECT_EQ(ChooseWaveformIndex(kLengths, 0, -1), -1);
}

TEST(WaveformChoice, StepsThatAddUpForEverWrapRound) {
    constexpr std::int32_t kLargest = std::numeric_limits<std::int32_t>::max();
    constexpr std::int32_t kSmallest = std::numeric_limits<std::int32_t>::min();
    EXPECT_EQ(ChooseWaveformIndex(kLengths, 5, kLargest), kSmallest + 4);
    EXPECT_EQ(ChooseWaveformIndex(kLengths, -3, kSmallest), kLargest - 2);
}

TEST(WaveformChoice, AStepToMinusTenIsTakenTwice) {
    // 0 - 10 is the index that stands for "none", so the step is taken again, from there.
    ScriptRand({ kAnyRand, kAnyRand, kAnyRand, Exactly(99) });
    EXPECT_EQ(ChooseWaveformIndex(kLengths, 0, -10), -20);
    EXPECT_EQ(platform::Rand(), 99);
}

TEST(WaveformChoice, TheLargestDrawLandsBehindTheLastEntryOfTheBand) {
    const std::pair<RandRange, int> cases[] = { { kUpper, 3 }, { kMiddle, 7 }, { kLower, 106 } };
    for (const auto& [band, index] : cases) {
        ScriptRand({ band, Exactly(32767) });
        EXPECT_EQ(ChooseWaveformIndex(kLengths, kNone, 0), index);
    }
}

TEST(WaveformChoice, ListOneIsFavouredAndEveryWaveformComes) {
    constexpr int kChoices = 200000;
    platform::SeedRand(7);
    std::array<int, 107> counts{};
    for (int i = 0; i < kChoices; ++i) ++counts[std::size_t(ChooseWaveformIndex(kLengths, kNone, 0))];
    // A third of the choices fall on 3, a third on 7 and a third on 106 entries.
    const double perEntry[] = { 0.34 / 3 + 0.33 / 7 + 0.33 / 106, 0.33 / 7 + 0.33 / 106, 0.33 / 106 };
    for (std::size_t i = 0; i < 106; ++i) {
        const double expected = kChoices * perEntry[i < 3 ? 0 : i < 7 ? 1 : 2];
        EXPECT_NEAR(counts[i], expected, 5 * std::sqrt(expected)) << i;
    }
    EXPECT_LT(counts[106], 20); // the largest draw alone
}

TEST(OverlayChoice, UsesTheSameBands) {
    const std::pair<RandRange, int> cases[] = { { kUpper, 3 }, { kMiddle, 7 }, { kLower, 106 } };
    for (const auto& [band, within] : cases) {
        ScriptRand({ band, Exactly(12345) });
        EXPECT_EQ(ChooseOverlayIndex(kLengths, {}), IndexOf(12345, within));
    }
}

TEST(OverlayChoice, RejectsEachRecentIndex) {
    const std::int32_t recent[] = { 0, 2 };
    ScriptRand({ kUpper, { 0, 10000 }, { 22000, 32000 }, { 11000, 21000 }, Exactly(4321) });
    EXPECT_EQ(ChooseOverlayIndex(kLengths, recent), 1);
    EXPECT_EQ(platform::Rand(), 4321);
}

TEST(OverlayChoice, WithAllOfListOneRecentTheLargestDrawEndsTheTries) {
    const std::int32_t recent[] = { 0, 1, 2 };
    ScriptRand({ kUpper });
    EXPECT_EQ(ChooseOverlayIndex(kLengths, recent), 3);
}

} // namespace
} // namespace orvane::zephor
