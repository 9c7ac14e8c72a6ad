#include "zephor/registry/DeltaChoice.h"

#include "support/RandBands.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <memory>
#include <random>
#include <utility>
#include <vector>

namespace orvane::zephor {
namespace {

using tests::Exactly;
using tests::kAnyRand;
using tests::kLower;
using tests::kMiddle;
using tests::kUpper;
using tests::RandRange;
using tests::ScriptRand;

// A delta field that knows its index and draws one parameter.
class Field {
public:
    explicit Field(int fieldIndex)
        : index(fieldIndex)
        , parameter(platform::Rand()) {
        sBuilt.push_back(index);
        sMostAlive = std::max(sMostAlive, ++sAlive);
    }

    ~Field() { --sAlive; }

    const int index, parameter;

    inline static std::vector<int> sBuilt; // indices, in order
    inline static int sAlive = 0, sMostAlive = 0;
};

template <int Index>
std::unique_ptr<Field> Make() {
    return std::make_unique<Field>(Index);
}

template <int... Indices>
constexpr auto FactoriesOf(std::integer_sequence<int, Indices...>) {
    return std::array<FactoryOf<Field>, sizeof...(Indices)>{ Make<Indices>... };
}

// The lists have the lengths of the product's: 3, 8, 14 and 109.
constexpr auto kFactories = FactoriesOf(std::make_integer_sequence<int, 134>());

DeltaSequence<Field> Deltas() {
    const std::span<const FactoryOf<Field>> all = kFactories;
    return DeltaSequence<Field>({ all.first(3), all.subspan(3, 8), all.subspan(11, 14), all.subspan(25) });
}

constexpr std::int32_t kNone = -1;

class DeltaChoice : public testing::Test {
protected:
    DeltaChoice() {
        Field::sBuilt.clear();
        Field::sMostAlive = 0;
    }

    ~DeltaChoice() override {
        mFunctor.reset();
        EXPECT_EQ(Field::sAlive, 0) << "a field leaked";
        EXPECT_LE(Field::sMostAlive, 1) << "the old field outlived the making of the new one";
    }

    std::int32_t Choose(std::int32_t lastIndex, std::int32_t request) {
        return ChooseDeltaFunctor(Deltas(), mFunctor, lastIndex, request);
    }

    std::unique_ptr<Field> mFunctor;
};

TEST_F(DeltaChoice, EachBandDrawsFromAListOfItsOwn) {
    struct Case {
        RandRange band;
        int first, length;
    };

    for (const Case& c : { Case{ kUpper, 0, 3 }, Case{ kMiddle, 3, 8 }, Case{ kLower, 11, 14 } })
        for (const int number : { 0, 5000, 12345, 20000, 32000 }) {
            ScriptRand({ c.band, Exactly(number) });
            const int expected = c.first + int(number / 32767.0 * c.length);
            EXPECT_EQ(Choose(kNone, 0), expected) << number;
            ASSERT_TRUE(mFunctor);
            EXPECT_EQ(mFunctor->index, expected);
        }
}

TEST_F(DeltaChoice, ABandBeginsAtItsLeastNumber) {
    const std::pair<int, int> cases[] = { { 21627, 0 }, { 21626, 3 }, { 10814, 3 }, { 10813, 11 } };
    for (const auto& [band, first] : cases) {
        ScriptRand({ Exactly(band), { 0, 2000 } });
        EXPECT_EQ(Choose(kNone, 0), first) << band;
    }
}

TEST_F(DeltaChoice, TheLargestDrawLandsOnTheFirstEntryOfTheNextList) {
    const std::pair<RandRange, int> cases[] = { { kUpper, 3 }, { kMiddle, 11 }, { kLower, 25 } };
    for (const auto& [band, index] : cases) {
        ScriptRand({ band, Exactly(32767) });
        EXPECT_EQ(Choose(kNone, 0), index);
        EXPECT_EQ(mFunctor->index, index);
    }
}

TEST_F(DeltaChoice, RequestOneStoresTheNextIndexAndBuildsARandomFunctor) {
    ScriptRand({ kMiddle, Exactly(20000) });
    EXPECT_EQ(Choose(5, 1), 6);
    ASSERT_TRUE(mFunctor);
    EXPECT_EQ(mFunctor->index, 3 + 4); // 20,000 of 32,767 times 8 is 4.9
}

TEST_F(DeltaChoice, APresetChangesTheStoredIndexOnlyNeverTheFunctor) {
    for (std::int32_t request = 2; request <= 9; ++request) {
        Field::sBuilt.clear();
        // Band, the preset's parameter, and the draw that counts: 12,345 of 32,767 times 3 is 1.1.
        ScriptRand({ kUpper, kAnyRand, Exactly(12345) });
        EXPECT_EQ(Choose(100, request), 100 + request);
        ASSERT_TRUE(mFunctor);
        EXPECT_EQ(mFunctor->index, 1);
        const int preset = kPresetTable[std::size_t(request) - 2].delta;
        EXPECT_EQ(Field::sBuilt, (std::vector<int>{ preset, 1 }));
    }
}

TEST_F(DeltaChoice, RequestsAboveNineBuildTheEighthRowsPreset) {
    for (const std::int32_t request : { 10, 11, 12, 1000, std::numeric_limits<std::int32_t>::max() }) {
        Field::sBuilt.clear();
        const std::int32_t stored = Choose(0, request);
        EXPECT_EQ(stored, request);
        ASSERT_EQ(Field::sBuilt.size(), 2u);
        EXPECT_EQ(Field::sBuilt[0], 0); // the delta column of row 7
    }
}

TEST_F(DeltaChoice, AFactoryBuildsAFreshFunctor) {
    ScriptRand({ kMiddle, { 0, 2000 }, Exactly(111) });
    EXPECT_EQ(Choose(kNone, 0), 3);
    EXPECT_EQ(mFunctor->parameter, 111);
    ScriptRand({ kMiddle, { 0, 2000 }, Exactly(222) });
    EXPECT_EQ(Choose(kNone, 0), 3);
    EXPECT_EQ(mFunctor->parameter, 222);
}

TEST_F(DeltaChoice, TheIndexInForceIsDrawnAgainAndItsFunctorGoes) {
    // Index 1, its parameter, index 2: thirds of 32,767 are 10,922.
    ScriptRand({ kUpper, { 11000, 21000 }, kAnyRand, { 22000, 32000 } });
    EXPECT_EQ(Choose(1, 0), 2);
    EXPECT_EQ(mFunctor->index, 2);
    EXPECT_EQ(Field::sBuilt, (std::vector<int>{ 1, 2 }));
}

TEST_F(DeltaChoice, NoFunctorIsLeftBehindInListOneEither) {
    ScriptRand({ kUpper, { 0, 10000 } });
    EXPECT_EQ(Choose(kNone, 0), 0);
    ScriptRand({ kUpper, { 0, 10000 } });
    EXPECT_EQ(Choose(kNone, 0), 0);
    EXPECT_EQ(Field::sAlive, 1);
}

TEST_F(DeltaChoice, WithAnIndexPastTheEndThePresetsFunctorStays) {
    // Only list 1 has entries, so the middle band finds nothing; row 0 of the presets asks for index 1.
    const DeltaSequence<Field> deltas({ std::span(kFactories).first(3), {}, {}, {} });
    ScriptRand({ kMiddle, kAnyRand, Exactly(20000) });
    EXPECT_EQ(ChooseDeltaFunctor(deltas, mFunctor, 7, 2), 9);
    ASSERT_TRUE(mFunctor);
    EXPECT_EQ(mFunctor->index, 1);
}

TEST_F(DeltaChoice, WithoutListsTheFunctorIsGoneAndNothingIsRead) {
    mFunctor = Make<0>();
    EXPECT_EQ(ChooseDeltaFunctor(DeltaSequence<Field>({}), mFunctor, kNone, 0), 0);
    EXPECT_FALSE(mFunctor);
}

TEST_F(DeltaChoice, ForcedStepsThatAddUpForEverWrapRound) {
    constexpr std::int32_t kLargest = std::numeric_limits<std::int32_t>::max();
    constexpr std::int32_t kSmallest = std::numeric_limits<std::int32_t>::min();
    EXPECT_EQ(Choose(kLargest, 1), kSmallest);
    EXPECT_EQ(Choose(kSmallest, -1), kLargest);
    // The request that a timed change leaves behind is the default generator's value plus 2.
    const auto timed = static_cast<std::int32_t>(std::mt19937()() + 2);
    EXPECT_EQ(timed, -795755682); // 3499211614 less 2^32
    std::uint32_t expected = 4;
    std::int32_t index = 4;
    for (int i = 0; i < 100; ++i) {
        index = Choose(index, timed);
        expected += 3499211614u;
        EXPECT_EQ(static_cast<std::uint32_t>(index), expected);
    }
}

TEST_F(DeltaChoice, AStepToMinusTenIsTakenTwiceAndBuildsTwice) {
    EXPECT_EQ(Choose(0, -10), -20);
    EXPECT_EQ(Field::sBuilt.size(), 2u);
}

TEST_F(DeltaChoice, TheThreeBandsCoverTheFirstTwentyFiveIndices) {
    constexpr int kChoices = 100000;
    platform::SeedRand(3);
    std::array<int, 134> counts{};
    for (int i = 0; i < kChoices; ++i) {
        const std::int32_t index = Choose(kNone, 0);
        ASSERT_LE(index, 25);
        ++counts[std::size_t(index)];
    }
    const double perEntry[] = { 0.34 / 3, 0.33 / 8, 0.33 / 14 };
    for (std::size_t i = 0; i < 25; ++i) {
        const double expected = kChoices * perEntry[i < 3 ? 0 : i < 11 ? 1 : 2];
        EXPECT_NEAR(counts[i], expected, 5 * std::sqrt(expected)) << i;
    }
    EXPECT_LT(counts[25], 10); // the largest draw of the lowest band alone
}

} // namespace
} // namespace orvane::zephor
