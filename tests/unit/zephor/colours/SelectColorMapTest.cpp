#include "ManagerFixture.h"

#include "zephor/registry/PresetTable.h"

#include "support/RandBands.h"

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

constexpr std::int32_t kHeld = 0, kRandom = 1;

class SelectColorMap : public ManagerTest {
protected:
    SelectColorMap() { mClut.request = 0; }

    // Selects; true if a fade began.
    bool Selects(std::uint32_t flags, std::int32_t changeMode, double now = 1.0) {
        mClut.SelectColorMap(now, flags, changeMode);
        return mClut.fadeLevel == kFadeStart;
    }

    // The slot that a request leads to.
    std::int32_t SlotOf(std::int32_t request) {
        mClut.fadeLevel = 0;
        mClut.request = request;
        EXPECT_TRUE(Selects(17, kHeld)) << request;
        EXPECT_EQ(mClut.request, 0);
        EXPECT_EQ(mClut.currentSlot, mClut.lastSlot);
        return mClut.currentSlot;
    }
};

TEST_F(SelectColorMap, HeldWithoutRequestAndForceNothingHappensNotEvenADraw) {
    ScriptRand({ Exactly(123) });
    EXPECT_FALSE(Selects(kSelect_AllTimed, kHeld));
    EXPECT_FALSE(Selects(kSelect_Immediate, kHeld));
    EXPECT_EQ(platform::Rand(), 123);
}

TEST_F(SelectColorMap, ForceWithoutARequestIsAsGoodAsTimed) {
    EXPECT_FALSE(Selects(kSelect_AllForced, kHeld));
    mClut.changeTime = 2.0;
    EXPECT_FALSE(Selects(kSelect_AllForced, kRandom, 1.0));
    EXPECT_TRUE(Selects(kSelect_AllForced, kRandom, 3.0));
}

TEST_F(SelectColorMap, ImmediateWithForceActsThoughHeldAndInAFade) {
    mClut.fadeLevel = 100;
    EXPECT_TRUE(Selects(kSelect_AllImmediate, kHeld));
}

TEST_F(SelectColorMap, ATimedChangeNeedsAModeAClockPastTheTimeAndNoFade) {
    mClut.changeTime = 5.0;
    mClut.request = 1;
    EXPECT_FALSE(Selects(kSelect_AllTimed, kHeld, 6.0)); // held, though a request waits
    EXPECT_FALSE(Selects(kSelect_AllTimed, kRandom, 5.0));
    mClut.fadeLevel = 1;
    EXPECT_FALSE(Selects(kSelect_AllTimed, kRandom, 6.0));
    mClut.fadeLevel = 0;
    EXPECT_TRUE(Selects(kSelect_AllTimed, kRandom, 5.001));
}

TEST_F(SelectColorMap, AnySlotIsDrawnWithEqualChanceWhateverTheBand) {
    for (const RandRange& band : { kUpper, kMiddle, kLower })
        for (const int number : { 1000, 15000, 31000 }) {
            mClut.fadeLevel = 0;
            mClut.lastSlot = kNoIndex;
            ScriptRand({ band, Exactly(number) });
            ASSERT_TRUE(Selects(kSelect_AllImmediate, kHeld));
            EXPECT_EQ(mClut.currentSlot, number * 64 / 32767);
        }
}

TEST_F(SelectColorMap, TheDrawIsRepeatedWhileItGivesTheSlotChosenLast) {
    mClut.lastSlot = 32;
    // Slot 32 begins at 16,384 and slot 40 at 20,480 of 32,767.
    const std::vector<int> drawn = ScriptRand({ kAnyRand, { 16400, 16880 }, { 20500, 20980 }, kAnyRand });
    ASSERT_TRUE(Selects(kSelect_AllImmediate, kHeld));
    EXPECT_EQ(mClut.currentSlot, 40);
    EXPECT_EQ(platform::Rand(), drawn[3]) << "one number too many or too few was drawn";
}

TEST_F(SelectColorMap, TheLargestDrawIsSlotZero) {
    mClut.lastSlot = 5;
    ScriptRand({ kAnyRand, Exactly(32767) }); // rounds to 64
    ASSERT_TRUE(Selects(kSelect_AllImmediate, kHeld));
    EXPECT_EQ(mClut.currentSlot, 0);
}

TEST_F(SelectColorMap, WithoutUniformDrawsABandHasSlotsOfItsOwn) {
    mClut.uniformRandom = false;

    struct Case {
        RandRange band;
        int number, slot;
    };

    const Case cases[] = {
        { kUpper, 0, 0 },           { kUpper, 12345, 1 },
        { kUpper, 32000, 3 }, // of 4 slots
        { kMiddle, 0, 4 },          { kMiddle, 12345, 5 },
        { kMiddle, 32000, 6 }, // of 3 from 4 on
        { kLower, 0, 21 },          { kLower, 12345, 37 },
        { kLower, 32000, 62 }, // of 43 from 21 on
        { kUpper, 32767, 4 },       { kMiddle, 32767, 7 },
        { kLower, 32767, 0 }, // one past the band
        { Exactly(21627), 0, 0 },   { Exactly(21626), 0, 4 },
        { Exactly(10814), 400, 4 }, { Exactly(10813), 400, 21 },
    };
    for (const Case& c : cases) {
        mClut.fadeLevel = 0;
        mClut.lastSlot = kNoIndex;
        const RandRange number = c.number == 0 || c.number == 400 ? RandRange{ 0, 700 } : Exactly(c.number);
        ScriptRand({ c.band, number });
        ASSERT_TRUE(Selects(kSelect_AllImmediate, kHeld));
        EXPECT_EQ(mClut.currentSlot, c.slot) << c.band.low << ' ' << c.number;
    }
}

TEST_F(SelectColorMap, DrawsStayUniformForAsLongAsTheyRun) {
    platform::SeedRand(5);
    std::array<int, kRotationSlots> counts{};
    for (int i = 0; i < 64000; ++i) {
        mClut.fadeLevel = 0;
        ASSERT_TRUE(Selects(kSelect_AllTimed, kRandom));
        ++counts[std::size_t(mClut.currentSlot)];
    }
    EXPECT_TRUE(mClut.uniformRandom);
    for (std::size_t slot = 0; slot < kRotationSlots; ++slot)
        EXPECT_NEAR(counts[slot], 1000, 160) << slot; // 5 standard deviations
}

TEST_F(SelectColorMap, RequestOneGoesThroughAllSlotsInOrderAndRoundAgain) {
    mClut.lastSlot = 0;
    for (int press = 1; press <= 130; ++press) EXPECT_EQ(SlotOf(1), press % 64) << press;
}

TEST_F(SelectColorMap, AStepBackFromTheFirstSlotIsTheLast) {
    mClut.lastSlot = 0;
    EXPECT_EQ(SlotOf(-1), 63);
    EXPECT_EQ(SlotOf(-1), 62);
}

TEST_F(SelectColorMap, AStepDrawsItsBandAndOneNumberAllTheSame) {
    ScriptRand({ kAnyRand, kAnyRand, Exactly(66) });
    SlotOf(1);
    EXPECT_EQ(platform::Rand(), 66);
}

TEST_F(SelectColorMap, APresetDrawsItsBandOnly) {
    ScriptRand({ kAnyRand, Exactly(67) });
    SlotOf(2);
    EXPECT_EQ(platform::Rand(), 67);
}

TEST_F(SelectColorMap, APresetChoosesTheSlotOfItsRow) {
    const int slots[] = { 2, 6, 7, 8, 10, 6, 10, 6, 10, 6 };
    for (int row = 0; row < 10; ++row) EXPECT_EQ(SlotOf(row + 2), slots[row]) << row;
}

TEST_F(SelectColorMap, APresetMayChooseTheSlotThatIsShown) {
    EXPECT_EQ(SlotOf(2), 2);
    EXPECT_EQ(SlotOf(2), 2);
}

TEST_F(SelectColorMap, APresetPastTheTableIsUsedUpAndLeavesThingsAsTheyAre) {
    for (const std::int32_t request : { 12, 13, 1000, std::numeric_limits<std::int32_t>::max() }) {
        mClut.request = request;
        mClut.currentSlot = mClut.lastSlot = 9;
        EXPECT_FALSE(Selects(17, kHeld)) << request;
        EXPECT_EQ(mClut.request, 0);
        EXPECT_EQ(mClut.currentSlot, 9);
        EXPECT_EQ(mClut.fadeLevel, 0);
    }
}

TEST_F(SelectColorMap, RequestsThatAddUpForEverWrapRoundAndStayWithinTheSlots) {
    mClut.lastSlot = 63;
    EXPECT_EQ(SlotOf(WrappingSum(std::numeric_limits<std::int32_t>::max(), 1)), 63);
    mClut.lastSlot = -20;
    EXPECT_EQ(SlotOf(std::numeric_limits<std::int32_t>::min()), 0); // the sum passes the end: very large
    mClut.lastSlot = 3;
    EXPECT_EQ(SlotOf(-1000), 63);
}

} // namespace
} // namespace orvane::zephor
