// Which field, waveform and colours come, and by what request.
#include "ZephorFixture.h"

#include "support/ScriptedRand.h"
#include "zephor/effects/waveforms/WaveformLists.h"
#include "zephor/registry/PresetTable.h"

namespace orvane::zephor {
namespace {

using tests::Exactly;
using tests::RandRange;
using tests::ScriptRand;

// By how a choice draws: a band, and then a place within it.
constexpr int kUpperThird = 30000, kLowerThird = 1000;

// What a timed change of the field leaves: 3499211612, read as signed, and 2.
constexpr std::int32_t kTimedRequest = -795755682;

constexpr std::uint32_t kTimed = kSelect_AllTimed, kForced = kSelect_AllForced,
                        kImmediate = kSelect_AllImmediate;
constexpr double kLater = kStart + 1000; // past every timer

class ZephorSelection : public ZephorFixture {
protected:
    // Behind the first frame, with no request pending and nothing due.
    void StartAtRest() {
        StartAndDraw();
        OpenZephor& z = *mZephor;
        z.mDeltaRequest = z.mWaveformRequest = z.mClut.request = 0;
        z.mStage.fadeFrames = 0;
        z.mClut.fadeLevel = 0;
        z.mWaveformChangeTime = z.mDeltaChangeTime = z.mClut.changeTime = kStart + 5;
    }

    std::uint64_t FieldVersion() { return mZephor->mLayers->nextDeltaField->Version(); }

    // Whether the call chose another field, waveform, map.
    bool ChangesField(double now, std::uint32_t flags) {
        const auto before = FieldVersion();
        mZephor->SelectDeltaField(now, flags);
        return FieldVersion() != before;
    }

    bool ChangesWaveform(double now, std::uint32_t flags) {
        mZephor->mStage.fadeFrames = 0;
        mZephor->SelectWaveform(now, flags);
        return mZephor->mStage.fadeFrames == WaveformStage::kFadeFrames;
    }

    bool ChangesColours(double now, std::uint32_t flags) {
        mZephor->mClut.fadeLevel = 0;
        mZephor->SelectColorMap(now, flags);
        return mZephor->mClut.fadeLevel == kFadeStart;
    }
};

// ---- The delta field.

TEST_F(ZephorSelection, ATimedFieldComesPastItsTimeUnlessHeld) {
    StartAtRest();
    EXPECT_FALSE(ChangesField(kStart + 5, kTimed)) << "its time, not past it";
    EXPECT_TRUE(ChangesField(kStart + 5.001, kTimed));
    EXPECT_EQ(mZephor->mDeltaChangeTime, kStart + 5.001 + 15);
    EXPECT_EQ(mZephor->mDeltaFade.FramesLeft(), 40);
    mZephor->mChangeMode = 2;
    EXPECT_TRUE(ChangesField(kLater, kTimed));
    mZephor->mChangeMode = 0;
    EXPECT_FALSE(ChangesField(2 * kLater, kTimed));
    mZephor->mDeltaRequest = 1;
    EXPECT_FALSE(ChangesField(2 * kLater, kTimed)) << "a request doesn't make it act";
}

TEST_F(ZephorSelection, ATimedFieldNeedsAReadyOne) {
    StartAtRest();
    mZephor->mLayers->nextDeltaField->ready = false;
    const auto* functor = mZephor->mDeltaFunctor.get();
    EXPECT_FALSE(ChangesField(kLater, kTimed));
    EXPECT_EQ(mZephor->mDeltaFunctor.get(), functor);
    EXPECT_EQ(mZephor->mDeltaRequest, 0);
}

TEST_F(ZephorSelection, ATimedChangeOfTheDeltaFieldLeavesALargeNegativeRequest) {
    StartAtRest();
    ASSERT_TRUE(ChangesField(kLater, kTimed));
    EXPECT_EQ(mZephor->mDeltaRequest, kTimedRequest);
    const std::int32_t index = mZephor->mDeltaIndex;
    EXPECT_TRUE(ChangesField(kLater, kForced)) << "a forced selection acts on it";
    EXPECT_EQ(mZephor->mDeltaIndex, WrappingSum(index, kTimedRequest));
    EXPECT_EQ(mZephor->mDeltaRequest, kTimedRequest) << "and doesn't clear it";
}

TEST_F(ZephorSelection, AForcedFieldActsAtOnceOnARequestAndIsTimedWithoutOne) {
    StartAtRest();
    EXPECT_FALSE(ChangesField(kStart, kForced));
    EXPECT_TRUE(ChangesField(kLater, kForced));
    EXPECT_EQ(mZephor->mDeltaRequest, kTimedRequest);
    mZephor->mDeltaRequest = 1;
    EXPECT_TRUE(ChangesField(kStart, kForced));
    mZephor->mChangeMode = 0;
    EXPECT_TRUE(ChangesField(kStart, kForced)) << "held, too";
    mZephor->mDeltaRequest = 0;
    EXPECT_FALSE(ChangesField(2 * kLater, kForced));
}

TEST_F(ZephorSelection, AnImmediateFieldComesWhateverTimersAndRequestsSay) {
    StartAtRest();
    for (const std::int32_t mode : { 0, 1, 2 }) {
        mZephor->mChangeMode = mode;
        EXPECT_TRUE(ChangesField(kStart, kImmediate)) << mode;
        EXPECT_EQ(mZephor->mDeltaRequest, 0);
        EXPECT_EQ(mZephor->mDeltaChangeTime, kStart + 15);
    }
}

TEST_F(ZephorSelection, AFieldIsComputedBeforeTheSelectionReturns) {
    StartAtRest();
    ASSERT_TRUE(ChangesField(kStart, kImmediate));
    EXPECT_TRUE(mZephor->mLayers->nextDeltaField->ready);
}

TEST_F(ZephorSelection, WhileAFieldIsBuiltElsewhereAChoiceIsMadeAndNothingComputed) {
    StartAtRest();
    mZephor->mLayers->nextDeltaField->ready = false;
    mZephor->mDeltaRequest = 3;
    EXPECT_FALSE(ChangesField(kStart, kForced));
    EXPECT_EQ(mZephor->mDeltaIndex, 2 + 3);
    EXPECT_EQ(mZephor->mDeltaChangeTime, kStart + 5);
    EXPECT_NE(mZephor->mDeltaFade.FramesLeft(), 40);
}

TEST_F(ZephorSelection, EverythingHeldAFieldThatIsntInstalledIsComputedAgain) {
    StartAtRest();
    mZephor->mChangeMode = 0;
    EXPECT_FALSE(ChangesField(kStart, kTimed)) << "installed";
    mZephor->mDeltaFade.Resized();
    EXPECT_TRUE(ChangesField(kStart, kTimed));
    mZephor->mDeltaFunctor.reset();
    EXPECT_FALSE(ChangesField(kStart, kTimed)) << "no functor";
    mZephor->mChangeMode = 1;
    EXPECT_FALSE(ChangesField(kStart, kTimed));
}

TEST_F(ZephorSelection, AnotherFieldInAFadeBeginsTheCountAgain) {
    StartAtRest();
    ASSERT_TRUE(ChangesField(kStart, kImmediate));
    for (int frame = 1; frame <= 13; ++frame) Frame();
    EXPECT_EQ(mZephor->mDeltaFade.FramesLeft(), 27);
    ASSERT_TRUE(ChangesField(kStart, kImmediate));
    EXPECT_EQ(mZephor->mDeltaFade.FramesLeft(), 40);
}

TEST_F(ZephorSelection, ARequestForAFieldGivesTheIndexAndTheDrawGivesTheFunctor) {
    StartAtRest();
    for (const std::int32_t request : { 1, -1, 7 }) {
        if (request < kFirstPreset) ScriptRand({ Exactly(kUpperThird), { 12000, 20000 } });
        mZephor->mDeltaRequest = request;
        mZephor->mDeltaIndex = 11;
        ASSERT_TRUE(ChangesField(kStart, kForced));
        EXPECT_EQ(mZephor->mDeltaIndex, 11 + request);
        if (request < kFirstPreset) {
            EXPECT_EQ(mZephor->mDeltaFunctor->name, "Scattered Flow out") << "the middle one of list 1";
        }
    }
}

TEST_F(ZephorSelection, RequestsForAFieldAddUpPastTheEndsOfTheirRange) {
    StartAtRest();
    for (const std::int32_t request : { INT32_MAX, INT32_MIN }) {
        mZephor->mDeltaRequest = request;
        mZephor->mDeltaIndex = request;
        ASSERT_TRUE(ChangesField(kStart, kForced));
        EXPECT_EQ(mZephor->mDeltaIndex, request == INT32_MAX ? -2 : 0);
    }
}

// ---- The waveform.

TEST_F(ZephorSelection, ATimedWaveformComesPastItsTimeUnlessHeld) {
    StartAtRest();
    EXPECT_FALSE(ChangesWaveform(kStart + 5, kTimed));
    EXPECT_TRUE(ChangesWaveform(kStart + 5.001, kTimed));
    EXPECT_EQ(mZephor->mWaveformChangeTime, kStart + 5) << "set as the fade ends";
    mZephor->mChangeMode = 2;
    EXPECT_TRUE(ChangesWaveform(kLater, kTimed));
    mZephor->mChangeMode = 0;
    EXPECT_FALSE(ChangesWaveform(kLater, kTimed));
    mZephor->mWaveformRequest = 1;
    EXPECT_FALSE(ChangesWaveform(kLater, kTimed));
    EXPECT_EQ(mZephor->mWaveformRequest, 1);
}

TEST_F(ZephorSelection, ATimedWaveformWaitsForTheEndOfAFadeAndAForcedOneDoesNot) {
    StartAtRest();
    mZephor->mStage.fadeFrames = 1;
    const auto* waveform = mZephor->mStage.waveform;
    mZephor->SelectWaveform(kLater, kTimed);
    mZephor->SelectWaveform(kLater, kForced);
    EXPECT_EQ(mZephor->mStage.waveform, waveform);
    mZephor->mWaveformRequest = 1;
    mZephor->SelectWaveform(kStart, kForced);
    EXPECT_EQ(mZephor->mStage.waveformIndex, 7);
    EXPECT_EQ(mZephor->mStage.fadeFrames, 128);
}

TEST_F(ZephorSelection, AForcedWaveformActsAtOnceOnARequestAndIsTimedWithoutOne) {
    StartAtRest();
    EXPECT_FALSE(ChangesWaveform(kStart, kForced));
    EXPECT_TRUE(ChangesWaveform(kLater, kForced));
    mZephor->mChangeMode = 0;
    EXPECT_FALSE(ChangesWaveform(kLater, kForced));
    mZephor->mWaveformRequest = 1;
    EXPECT_TRUE(ChangesWaveform(kStart, kForced));
    EXPECT_TRUE(ChangesWaveform(kStart, kImmediate));
}

TEST_F(ZephorSelection, ANewWaveformTakesTheStageAndTheOldOneFades) {
    StartAtRest();
    auto* old = mZephor->mStage.waveform;
    ScriptRand({ Exactly(kUpperThird), { 12000, 20000 } });
    ASSERT_TRUE(ChangesWaveform(kStart, kImmediate));
    EXPECT_EQ(mZephor->mStage.waveformIndex, 1) << "the middle one of list 1";
    EXPECT_EQ(mZephor->mStage.waveform, WaveformList1()[1]);
    EXPECT_EQ(mZephor->mStage.previousWaveform, old);
    EXPECT_EQ(mZephor->mStage.previousWaveformIndex, 6);
}

TEST_F(ZephorSelection, ARandomWaveformIsNeverTheOneInForce) {
    StartAtRest();
    mZephor->mStage.waveformIndex = 1;
    ScriptRand({ Exactly(kUpperThird), { 12000, 20000 }, { 22000, 32000 } });
    ASSERT_TRUE(ChangesWaveform(kStart, kImmediate));
    EXPECT_EQ(mZephor->mStage.waveformIndex, 2) << "drawn again";
}

TEST_F(ZephorSelection, ARequestOfOneStepIsTakenFromTheWaveformInForceAndUsedUp) {
    StartAtRest();
    for (const std::int32_t step : { 1, -1 }) {
        mZephor->mStage.waveformIndex = 4;
        mZephor->mWaveformRequest = step;
        ASSERT_TRUE(ChangesWaveform(kStart, kForced));
        EXPECT_EQ(mZephor->mStage.waveformIndex, 4 + step);
        EXPECT_EQ(mZephor->mWaveformRequest, 0);
    }
}

TEST_F(ZephorSelection, AStepBelowTheFirstWaveformLeavesEverythingItsRequestIncluded) {
    StartAtRest();
    mZephor->mStage.waveformIndex = 0;
    const auto* waveform = mZephor->mStage.waveform;
    mZephor->mWaveformRequest = -1;
    EXPECT_FALSE(ChangesWaveform(kStart, kForced));
    EXPECT_EQ(mZephor->mWaveformRequest, -1);
    EXPECT_EQ(mZephor->mStage.waveform, waveform);
}

TEST_F(ZephorSelection, AStepPastTheLastWaveformUsesTheRequestUpAndLeavesTheWaveform) {
    StartAtRest();
    const auto last =
        std::int32_t(WaveformList1().size() + WaveformList2().size() + WaveformList3().size()) - 1;
    mZephor->mStage.waveformIndex = last;
    const auto* waveform = mZephor->mStage.waveform;
    mZephor->mWaveformRequest = 1;
    EXPECT_FALSE(ChangesWaveform(kStart, kForced));
    EXPECT_EQ(mZephor->mWaveformRequest, 0);
    EXPECT_EQ(mZephor->mStage.waveform, waveform);
    EXPECT_EQ(mZephor->mStage.waveformIndex, last);
}

TEST_F(ZephorSelection, APresetsWaveformComesForEachRowAndNoneBeyondTheTable) {
    StartAtRest();
    constexpr std::int32_t kWaveforms[] = { 6, 1, 13, 0, 12, 2, 4, 3, 5, 10 };
    for (std::int32_t row = 0; row < 10; ++row) {
        mZephor->mWaveformRequest = row + 2;
        ASSERT_TRUE(ChangesWaveform(kStart, kForced)) << row;
        EXPECT_EQ(mZephor->mStage.waveformIndex, kWaveforms[row]);
        EXPECT_EQ(mZephor->mWaveformRequest, 0);
    }
    for (const std::int32_t request : { 12, 1000, INT32_MAX }) {
        mZephor->mWaveformRequest = request;
        EXPECT_FALSE(ChangesWaveform(kStart, kForced)) << request;
        EXPECT_EQ(mZephor->mWaveformRequest, 0);
        EXPECT_EQ(mZephor->mStage.waveformIndex, 10);
    }
}

TEST_F(ZephorSelection, WithTheHoldFlagTheWaveformGoesToTheFirstOfList1WithAFadeOf128Frames) {
    StartAtRest();
    mZephor->SetHold();
    for (const std::int32_t request : { 0, 1, -1, 5 })
        for (const std::uint32_t flags : { kTimed, kForced, kImmediate }) {
            auto* const old = WaveformList3()[2];
            mZephor->mStage.waveformIndex = 9;
            mZephor->mStage.waveform = old;
            mZephor->mWaveformRequest = request;
            ASSERT_TRUE(ChangesWaveform(kLater, flags));
            EXPECT_EQ(mZephor->mStage.waveform, WaveformList1()[0]);
            EXPECT_EQ(mZephor->mStage.waveformIndex, 0);
            EXPECT_EQ(mZephor->mStage.previousWaveform, old);
            EXPECT_EQ(mZephor->mStage.previousWaveformIndex, 9);
            EXPECT_EQ(mZephor->mStage.fadeFrames, 128);
            EXPECT_EQ(mZephor->mWaveformRequest, request) << "pends";
        }
    mZephor->ClearHold();
    mZephor->mWaveformRequest = 5;
    ASSERT_TRUE(ChangesWaveform(kLater, kForced));
    EXPECT_EQ(mZephor->mStage.waveformIndex, 0) << "row 3";
    EXPECT_EQ(mZephor->mWaveformRequest, 0);
}

TEST_F(ZephorSelection, TheHoldFlagDoesNotMakeAWaveformDue) {
    StartAtRest();
    mZephor->SetHold();
    EXPECT_FALSE(ChangesWaveform(kStart + 5, kTimed));
    mZephor->mChangeMode = 0;
    EXPECT_FALSE(ChangesWaveform(kLater, kTimed));
}

// ---- The colours.

TEST_F(ZephorSelection, ColoursComeByTheirOwnTimerAndTheModeInForce) {
    StartAtRest();
    EXPECT_FALSE(ChangesColours(kStart + 5, kTimed));
    EXPECT_TRUE(ChangesColours(kStart + 5.001, kTimed));
    mZephor->mChangeMode = 0;
    EXPECT_FALSE(ChangesColours(kLater, kTimed));
    EXPECT_TRUE(ChangesColours(kLater, kImmediate));
}

// ---- Presets.

TEST_F(ZephorSelection, ThePresetOfThePresetPathIsAlwaysFour) {
    for (const double seconds : { 20.0, 33.3, 1234.5 })
        for (const std::uint32_t seed : { 1u, 77u }) {
            StartAtRest();
            OpenZephor& z = *mZephor;
            z.mChangeMode = 2;
            z.mDeltaIndex = 10;
            z.mLayers->nextDeltaField->ready = false;
            platform::SeedRand(seed);
            FrameAt(seconds);
            EXPECT_EQ(z.mDeltaRequest, 4);
            EXPECT_EQ(z.mDeltaIndex, 14);
            EXPECT_EQ(z.mDeltaChangeTime, 0);
            EXPECT_EQ(z.mWaveformChangeTime, 0);
            EXPECT_EQ(z.mClut.changeTime, 0);
            EXPECT_EQ(z.mStage.waveformIndex, 13) << "row 2";
            EXPECT_EQ(z.mWaveformRequest, 0);
            EXPECT_EQ(z.mClut.currentSlot, 7);
        }
}

} // namespace
} // namespace orvane::zephor
