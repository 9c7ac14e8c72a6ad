// When the three ingredients change by themselves: from where their timers count.
#include "ZephorFixture.h"

namespace orvane::zephor {
namespace {

constexpr double kFrame = 1.0 / 64; // seconds; sums of it are exact
constexpr double kLittle = 1.0 / 1024;

class ZephorTimers : public ZephorFixture {
protected:
    // Frames first, first + 1 and so on to last, each at its number of frame times.
    void Frames(int first, int last) {
        for (int frame = first; frame <= last; ++frame) FrameAt(frame * kFrame);
    }
};

TEST_F(ZephorTimers, AChangeOfWaveformTakes128FramesAnd11Seconds) {
    Start();
    Frames(1, 1);
    EXPECT_EQ(mZephor->mStage.fadeFrames, 127) << "chosen and counted in one frame";
    Frames(2, 127);
    EXPECT_EQ(mZephor->mStage.fadeFrames, 1);
    EXPECT_EQ(mZephor->mWaveformChangeTime, 0) << "not yet set";
    Frames(128, 128);
    EXPECT_EQ(mZephor->mStage.fadeFrames, 0);
    constexpr double kDue = 128 * kFrame + 11;
    EXPECT_EQ(mZephor->mWaveformChangeTime, kStart + kDue);
    FrameAt(kDue);
    EXPECT_EQ(mZephor->mStage.fadeFrames, 0) << "its time, not past it";
    FrameAt(kDue + kLittle);
    EXPECT_EQ(mZephor->mStage.fadeFrames, 127);
    EXPECT_EQ(mZephor->mStage.previousWaveformIndex, 6);
}

TEST_F(ZephorTimers, TheFirstColourFadeTakes85FramesAndTheNext255WithThe17SecondsBehindThem) {
    Start();
    Frames(1, 84);
    EXPECT_EQ(mZephor->mClut.fadeLevel, 3);
    Frames(85, 85);
    EXPECT_EQ(mZephor->mClut.fadeLevel, 0);
    constexpr double kDue = 85 * kFrame + 17;
    EXPECT_EQ(mZephor->mClut.changeTime, kStart + kDue);
    FrameAt(kDue);
    EXPECT_EQ(mZephor->mClut.fadeLevel, 0);
    for (int frame = 1; frame <= 254; ++frame) FrameAt(kDue + frame * kLittle);
    EXPECT_EQ(mZephor->mClut.fadeLevel, 1);
    FrameAt(kDue + 1);
    EXPECT_EQ(mZephor->mClut.fadeLevel, 0);
    EXPECT_EQ(mZephor->mClut.changeTime, kStart + kDue + 1 + 17);
}

TEST_F(ZephorTimers, TheFieldChanges15SecondsAfterTheLastChange) {
    StartAndDraw();
    const auto version = [&] { return mZephor->mLayers->nextDeltaField->Version(); };
    const auto first = version();
    FrameAt(15);
    EXPECT_EQ(version(), first);
    FrameAt(15 + kLittle);
    EXPECT_GT(version(), first);
    EXPECT_EQ(mZephor->mDeltaChangeTime, kStart + 30 + kLittle) << "from the change, not from a fade's end";
    EXPECT_EQ(mZephor->mDeltaFade.FramesLeft(), 40);
    const auto second = version();
    FrameAt(30 + kLittle);
    EXPECT_EQ(version(), second);
    FrameAt(30.5);
    EXPECT_GT(version(), second);
}

TEST_F(ZephorTimers, BeforeTheFirstSizeThePeriodsAre0AndASizeSetsThem) {
    Make();
    EXPECT_EQ(mZephor->mWaveformPeriod, 0);
    EXPECT_EQ(mZephor->mDeltaPeriod, 0);
    EXPECT_EQ(mZephor->mClut.changePeriod, 0);
    Start();
    EXPECT_EQ(mZephor->mWaveformPeriod, 11);
    EXPECT_EQ(mZephor->mDeltaPeriod, 15);
    EXPECT_EQ(mZephor->mClut.changePeriod, 17);
}

TEST_F(ZephorTimers, HeldNothingChangesByItself) {
    StartAndDraw();
    while (mZephor->mChangeMode != 0) Press(u'M');
    Frames(1, 300);
    const auto* waveform = mZephor->mStage.waveform;
    const auto* functor = mZephor->mDeltaFunctor.get();
    const std::int32_t slot = mZephor->mClut.currentSlot;
    for (int second = 10; second < 200; ++second) FrameAt(second);
    EXPECT_EQ(mZephor->mStage.waveform, waveform);
    EXPECT_EQ(mZephor->mDeltaFunctor.get(), functor);
    EXPECT_EQ(mZephor->mClut.currentSlot, slot);
}

TEST_F(ZephorTimers, TheModesOfRandomAndPresetsChangeAllThreeAlike) {
    for (const std::int32_t mode : { 1, 2 }) {
        StartAndDraw();
        mZephor->mChangeMode = mode;
        Frames(1, 300);
        const auto version = mZephor->mLayers->nextDeltaField->Version();
        FrameAt(100);
        EXPECT_GT(mZephor->mLayers->nextDeltaField->Version(), version) << mode;
        EXPECT_EQ(mZephor->mStage.fadeFrames, 127) << mode;
        EXPECT_EQ(mZephor->mClut.fadeLevel, 254) << mode;
    }
}

} // namespace
} // namespace orvane::zephor
