// The life of a waveform on stage: what is called when, and with what.
#include "WaveformFixture.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

namespace orvane::zephor {
namespace {

using tests::kOneSample;
using tests::LayerCall;
using tests::TestWaveform;

class Stage : public WaveformFixture {
protected:
    // Notes the order of calls.
    void Note(TestWaveform& waveform, const std::string& name) {
        waveform.mStep = kOneSample;
        waveform.mStart = [this, name](auto&) { mNotes.push_back(name + " starts"); };
        waveform.mPrepare = [this, name](auto&) { mNotes.push_back(name + " prepares"); };
    }

    std::vector<std::string> mNotes;
};

TEST_F(Stage, WithoutAWaveformNothingRuns) {
    TestWaveform before;
    platform::SeedRand(1);
    const int first = platform::Rand();
    platform::SeedRand(1);
    mStage.previousWaveform = &before;
    DrawWaveforms(mStage, Frame());
    EXPECT_TRUE(mLayer.mCalls.empty());
    EXPECT_EQ(before.mStarts + before.mPrepared, 0);
    EXPECT_EQ(platform::Rand(), first) << "seeded";
}

TEST_F(Stage, DrawingBeginsAndEndsOnce) {
    TestWaveform waveform(Strokes(3));
    Draw(waveform);
    EXPECT_EQ(mLayer.mCalls.front(), LayerCall::Begin);
    EXPECT_EQ(mLayer.mCalls.back(), LayerCall::End);
    EXPECT_EQ(std::ranges::count(mLayer.mCalls, LayerCall::Begin), 1);
    EXPECT_EQ(std::ranges::count(mLayer.mCalls, LayerCall::End), 1);
}

TEST_F(Stage, TheFirstFrameStartsBothWaveforms) {
    TestWaveform now, before;
    Note(now, "new");
    Note(before, "old");
    mStage.waveform = &now;
    mStage.previousWaveform = &before;
    DrawWaveforms(mStage, Frame());
    EXPECT_EQ(mNotes,
              (std::vector<std::string>{ "old starts", "new starts", "old prepares", "new prepares" }));
    EXPECT_TRUE(mStage.contextsReady);
}

TEST_F(Stage, AtRestBothArePreparedAndNoneStarts) {
    TestWaveform now, before;
    Note(now, "new");
    Note(before, "old");
    Draw(now, &before);
    EXPECT_EQ(mNotes, (std::vector<std::string>{ "old prepares", "new prepares" }));
}

TEST_F(Stage, TheFirstFrameOfAFadeStartsTheNewWaveformOnly) {
    TestWaveform now, before;
    Note(now, "new");
    Note(before, "old");
    Draw(now, &before, 127);
    Draw(now, &before, 126);
    EXPECT_EQ(mNotes, (std::vector<std::string>{ "new starts", "old prepares", "new prepares", "old prepares",
                                                 "new prepares" }));
}

TEST_F(Stage, AWaveformThatIsStillFadingOutAndComesBackStartsAgain) {
    TestWaveform first, second;
    mStage.contextsReady = true;
    mStage.PutOn(0, &first);
    mStage.fadeFrames = 127;
    DrawWaveforms(mStage, Frame());
    mStage.PutOn(1, &second);
    mStage.fadeFrames = 127;
    DrawWaveforms(mStage, Frame());
    mStage.PutOn(0, &first);
    mStage.fadeFrames = 127;
    DrawWaveforms(mStage, Frame());
    EXPECT_EQ(first.mStarts, 2);
    EXPECT_EQ(second.mStarts, 1);
}

TEST_F(Stage, WhoeverIsPutOnLeavesTheOneInForceToFadeOut) {
    TestWaveform first, second;
    mStage.PutOn(4, &first);
    mStage.PutOn(9, &second);
    EXPECT_EQ(mStage.waveform, &second);
    EXPECT_EQ(mStage.waveformIndex, 9);
    EXPECT_EQ(mStage.previousWaveform, &first);
    EXPECT_EQ(mStage.previousWaveformIndex, 4);
    EXPECT_EQ(mStage.fadeFrames, 128);
}

TEST_F(Stage, AFadeHandsTheNewWaveformsContextToTheOldOne) {
    TestWaveform now, before;
    mStage.currentContext.endTime = 3;
    mStage.currentContext.pass = 2;
    Draw(now, &before, 127);
    EXPECT_EQ(mStage.previousContext.endTime, 3);
    EXPECT_EQ(mStage.previousContext.pass, 2);
    EXPECT_EQ(mStage.previousContext.waveform, mAudio.waveform[0]);
}

TEST_F(Stage, TheContextIsRenewedBeforeAFrameIsPrepared) {
    TestWaveform now;
    mTime = 1234.5;
    const auto spoil = [this](WaveFormContext& context) {
        EXPECT_EQ(context.time, 1234.5);
        EXPECT_EQ(context.pointSize, 1);
        EXPECT_EQ(context.sampleStep, 1);
        EXPECT_EQ(context.colorIndex, 255);
        EXPECT_EQ(context.endTime, 0);
        EXPECT_EQ(context.waveform, mAudio.waveform[0]);
        EXPECT_EQ(context.spectrum, mAudio.spectrum[0]);
        context.pointSize = 9;
        context.sampleStep = 100;
        context.colorIndex = 7;
    };
    now.mPrepare = spoil;
    Draw(now);
    Draw(now);
    EXPECT_EQ(now.mPrepared, 2);
}

// ---- Random numbers.

TEST_F(Stage, NoLineIsParkedWhenAFadeBeginsButEachGetsAPlaceAboveTheScreen) {
    TestWaveform now;
    mStage.parked.fill(true);
    platform::SeedRand(1234); // 4068, 213, 12761
    Draw(now, nullptr, 127);
    for (const bool parked : mStage.parked) EXPECT_FALSE(parked);
    EXPECT_NEAR(mStage.parkX[0], -1.503403f, 1e-6f); // 4068 * 0.00012207404 - 2
    EXPECT_NEAR(mStage.parkY[0], -1.506500f, 1e-6f); // -(213 * 3.051851e-05 + 1.5)
    EXPECT_NEAR(mStage.parkX[1], -0.442213f, 1e-6f); // 12761 * 0.00012207404 - 2
    for (std::size_t line = 0; line < mStage.parkY.size(); ++line) {
        EXPECT_LE(mStage.parkY[line], -1.5f);
        EXPECT_GE(mStage.parkY[line], -2.5001f);
        EXPECT_LE(std::abs(mStage.parkX[line]), 2.0001f);
    }
}

TEST_F(Stage, AFadeDrawsThirtyNumbersBeforeTheWaveformStarts) {
    TestWaveform now;
    platform::SeedRand(1234);
    for (int i = 0; i < 30; ++i) platform::Rand();
    const int thirtyFirst = platform::Rand();
    int drawn = -1;
    now.mStart = [&](auto&) { drawn = platform::Rand(); };
    platform::SeedRand(1234);
    Draw(now, nullptr, 127);
    EXPECT_EQ(drawn, thirtyFirst);
}

TEST_F(Stage, AFrameLeavesRandSeededWithTheClocksWholeSeconds) {
    TestWaveform now;
    mClock.SetTo(1234.9);
    Draw(now);
    EXPECT_EQ(platform::Rand(), 4068); // the first number of seed 1234
    now.mMap = [](auto&, auto&) { platform::SeedRand(5); };
    Draw(now);
    EXPECT_EQ(platform::Rand(), 4068) << "whatever the effect seeds";
}

} // namespace
} // namespace orvane::zephor
