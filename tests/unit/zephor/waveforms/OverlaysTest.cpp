// When overlays start and end.
#include "OverlayFixture.h"

#include <algorithm>
#include <limits>

namespace orvane::zephor {
namespace {

using tests::Exactly;
using tests::LayerCall;
using tests::ScriptRand;

using Overlays = OverlayFixture;

constexpr std::array<std::int32_t, 3> kNothing{ -1, -1, -1 };

// ---- Starting.

TEST_F(Overlays, ASetStartsWithThreeSlotsThatHoldTheFirstWaveformAndNoColour) {
    EXPECT_EQ(mSet.activeCount, 0);
    EXPECT_EQ(mSet.indices, (std::array<std::int32_t, 3>{ 0, 0, 0 }));
    EXPECT_EQ(mSet.recent, (std::array<std::int32_t, 3>{ 0, 0, 0 }));
    for (const ZephorOverlaySlot& slot : mSet.slots) {
        EXPECT_EQ(slot.colorCap, 0);
        EXPECT_FALSE(slot.started);
    }
}

TEST_F(Overlays, WithoutAnActiveOneNothingIsDrawn) {
    ScriptRand({ Exactly(32767) }); // never
    Update();
    EXPECT_TRUE(mLayer.mCalls.empty());
}

TEST_F(Overlays, ADrawIsMadeEveryHalfSecond) {
    mTime = 1000;
    ScriptRand({ Exactly(32767) });
    Update();
    EXPECT_EQ(mSet.nextCheckTime, 1000.5);
    mTime = 1000.5; // not past it
    ScriptStart(0.9, 0.5);
    Update();
    EXPECT_EQ(mSet.activeCount, 0);
    mTime = 1000.51;
    Update();
    EXPECT_EQ(mSet.activeCount, 1);
}

TEST_F(Overlays, OnHoldADrawIsMadeSixtyTimesASecond) {
    ScriptRand({ Exactly(32767) });
    Update({ .hold = true });
    EXPECT_EQ(mSet.nextCheckTime, 1000 + 0.016666666666666666);
}

// 0.04 * (n + 1)^-1.55 in units of 3.051851e-05: 1310.7, 447.6 and 238.8.
TEST_F(Overlays, TheChanceFallsWithTheNumberOfOverlays) {
    const int lastThatStarts[] = { 1310, 447, 238 };
    for (std::int32_t count = 0; count < 3; ++count) {
        for (const int above : { 0, 1 }) {
            mSet = {};
            mSet.activeCount = count;
            ScriptRand({ Exactly(lastThatStarts[count] + above) });
            Update({ .changesHeld = true });
            EXPECT_EQ(mSet.activeCount, count + 1 - above) << count;
        }
    }
}

TEST_F(Overlays, AFourthOneNeverStarts) {
    mSet.activeCount = 3;
    ScriptRand({ Exactly(0) });
    Update();
    EXPECT_EQ(mSet.activeCount, 3);
    EXPECT_EQ(mSet.nextCheckTime, 0) << "nothing is even drawn";
}

TEST_F(Overlays, ANewOneTakesTheFirstSlotInUseAndNeverAFreeOne) {
    mSet.indices = { -1, 5, 0 };
    mSet.activeCount = 1;
    mSet.recent = { 4, 6, 8 };
    ScriptRand({ Exactly(0) });
    Update({ .changesHeld = true });
    EXPECT_EQ(mSet.indices, (std::array<std::int32_t, 3>{ -1, 6, 0 }));
    EXPECT_EQ(mSet.activeCount, 2);
}

TEST_F(Overlays, WithEverySlotFreeNoneStartsAnyMore) {
    mSet.indices = kNothing;
    ScriptRand({ Exactly(0) });
    Update();
    EXPECT_EQ(mSet.indices, kNothing);
    EXPECT_EQ(mSet.activeCount, 0);
    EXPECT_EQ(mSet.nextCheckTime, 1000.5);
}

TEST_F(Overlays, TheSlotIsSetForTwelveSecondsWithoutDrift) {
    mSet.slots[0].started = true;
    mSet.slots[0].drift = true;
    mSet.slots[0].targetX = 9;
    ScriptStart(0.9, 0.5); // of list 1: the second
    Update();
    const ZephorOverlaySlot& slot = mSet.slots[0];
    EXPECT_EQ(mSet.indices[0], 1);
    EXPECT_EQ(mSet.recent[0], 1);
    EXPECT_EQ(slot.startTime, 1000);
    EXPECT_EQ(slot.endTime, 1012);
    EXPECT_EQ(slot.colorCap, 256);
    EXPECT_EQ(slot.strength, 1);
    EXPECT_FALSE(slot.drift);
    EXPECT_EQ(slot.targetX, 9) << "nothing is parked";
    EXPECT_EQ(Waveform(1).mStarts, 1) << "started anew";
}

// ---- Which one.

TEST_F(Overlays, TheUpperBandDrawsFromList1) {
    ScriptStart(0.8, 0.9);
    Update();
    EXPECT_EQ(mSet.indices[0], 2); // 3 * 0.9
}

TEST_F(Overlays, TheMiddleBandDrawsFromLists1And2) {
    ScriptStart(0.5, 0.95);
    Update();
    EXPECT_EQ(mSet.indices[0], 6); // 7 * 0.95
}

TEST_F(Overlays, TheLowerBandDrawsFromAllLists) {
    ScriptStart(0.1, 0.92);
    Update();
    EXPECT_EQ(mSet.indices[0], 18); // 20 * 0.92
}

TEST_F(Overlays, ARecentOneIsDrawnAgain) {
    // The count is 1 by then, so the first entry of `recent` counts: not the waveform that it holds.
    mSet.recent = { 2, 1, 1 };
    ScriptRand({ tests::RandRange{ 0, 1300 }, tests::RandRange{ 22000, 32000 },
                 tests::RandRange{ 23000, 32000 }, tests::RandRange{ 12000, 20000 } });
    Update();
    EXPECT_EQ(mSet.indices[0], 1);
}

TEST_F(Overlays, WithChangesHeldASlotGetsItsLastOneAgain) {
    mSet.recent = { 11, 1, 2 };
    ScriptRand({ Exactly(0) });
    Update({ .changesHeld = true });
    EXPECT_EQ(mSet.indices[0], 11);
    EXPECT_EQ(mSet.recent[0], 11);
}

TEST_F(Overlays, AnIndexPastTheEndIsTheFirstOfList1) {
    OnlyOverlay(kAll, mTime);
    Update();
    EXPECT_EQ(Waveform(0).mPrepared, 1);
    mSet.indices[0] = 1000000;
    Update();
    EXPECT_EQ(Waveform(0).mPrepared, 2);
}

// ---- Running.

TEST_F(Overlays, AllAreDrawnBetweenOneBeginAndOneEnd) {
    mSet.activeCount = 3;
    mSet.nextCheckTime = 1e9;
    mSet.indices = { 4, 5, 6 };
    Update();
    EXPECT_EQ(std::ranges::count(mLayer.mCalls, LayerCall::Begin), 1);
    EXPECT_EQ(std::ranges::count(mLayer.mCalls, LayerCall::End), 1);
    EXPECT_EQ(mLayer.mCalls.front(), LayerCall::Begin);
    EXPECT_EQ(mLayer.mCalls.back(), LayerCall::End);
    EXPECT_EQ(Waveform(4).mPrepared + Waveform(5).mPrepared + Waveform(6).mPrepared, 3);
}

TEST_F(Overlays, SlotsThatWereNeverUsedDrawTheFirstWaveformFromTheFirstOverlayOn) {
    ScriptStart(0.5, 0.95);
    Update();
    EXPECT_EQ(Waveform(6).mPrepared, 1);
    EXPECT_EQ(Waveform(0).mStarts, 2) << "once for each slot";
    EXPECT_EQ(Waveform(0).mPrepared, 2);
}

TEST_F(Overlays, StrengthFallsFromOneToZeroInFourSeconds) {
    const ZephorOverlaySlot& slot = OnlyOverlay(0, 1000);
    const auto strengthAt = [&](double time) {
        mTime = time;
        Update();
        return slot.strength;
    };
    EXPECT_EQ(strengthAt(1000), 1);
    EXPECT_NEAR(strengthAt(1001), 1 - std::exp(0.03 * std::log(0.25)), 1e-6); // 0.0407
    EXPECT_NEAR(strengthAt(1000.04), 1 - std::exp(0.03 * std::log(0.01)), 1e-6);
    EXPECT_EQ(strengthAt(1004), 0);
    EXPECT_EQ(strengthAt(1011), 0) << "and never below";
    EXPECT_EQ(strengthAt(999), 0) << "there is no such power";
}

TEST_F(Overlays, TheCapFallsByOneInEachFramePastTheEndOnly) {
    const ZephorOverlaySlot& slot = OnlyOverlay(0, 1000);
    mTime = 1012;
    Update();
    EXPECT_EQ(slot.colorCap, 256);
    mTime = 1012.01;
    Update();
    EXPECT_EQ(slot.colorCap, 255);
    Update();
    EXPECT_EQ(slot.colorCap, 254);
}

TEST_F(Overlays, AnOverlayEndsWhenItsCapIsZeroAfter256Frames) {
    OnlyOverlay(0, 1000);
    mTime = 1013;
    for (int frame = 1; frame <= 255; ++frame) Update();
    EXPECT_EQ(mSet.indices[0], 0);
    EXPECT_EQ(mSet.activeCount, 1);
    Update();
    EXPECT_EQ(mSet.indices, kNothing);
    EXPECT_EQ(mSet.activeCount, 0);
    EXPECT_EQ(Waveform(0).mPrepared, 256) << "drawn in its last frame too";
    Update();
    EXPECT_EQ(Waveform(0).mPrepared, 256);
}

TEST_F(Overlays, TheCapOfASlotThatWasNeverUsedRunsOnBelowZero) {
    mSet.activeCount = 1;
    mSet.nextCheckTime = 1e9;
    for (int frame = 0; frame < 3; ++frame) Update();
    for (std::size_t slot = 0; slot < 3; ++slot) {
        EXPECT_EQ(mSet.slots[slot].colorCap, -3);
        EXPECT_EQ(mSet.indices[slot], 0);
    }
    EXPECT_EQ(mSet.activeCount, 1);
}

TEST_F(Overlays, TheCapStopsAtTheLowestNumber) {
    mSet.activeCount = 1;
    mSet.nextCheckTime = 1e9;
    constexpr auto kLowest = std::numeric_limits<std::int32_t>::min();
    mSet.slots[0].colorCap = kLowest;
    Update();
    EXPECT_EQ(mSet.slots[0].colorCap, kLowest);
}

TEST_F(Overlays, AnEveningOfThemKeepsEveryNumberInItsRange) {
    constexpr int kFrames = 40000; // at two a second, five and a half hours
    for (int frame = 0; frame < kFrames; ++frame) {
        mTime += 0.51;
        mClock.SetTo(mTime);
        platform::SeedRand(std::uint32_t(frame) * 7919);
        mLayer.Forget();
        for (auto& waveform : mObjects) waveform->mPoints.clear();
        Update();
        ASSERT_GE(mSet.activeCount, 0);
        ASSERT_LE(mSet.activeCount, 3);
        for (const std::int32_t index : mSet.indices) ASSERT_GE(index, -1);
    }
    // All slots have had an overlay and ended; those that were replaced while they ran are still counted.
    EXPECT_EQ(mSet.indices, kNothing);
    EXPECT_LT(mSet.activeCount, 3);
}

} // namespace
} // namespace orvane::zephor
