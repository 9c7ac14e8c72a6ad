#include "unit/visualizer/VisualizerFixture.h"

namespace orvane::visualizer {
namespace {

class FrameClock : public testing::Test {
protected:
    bool StepAt(double now) {
        mClock.SetTo(now);
        return mVisualizer.StepFrameClock();
    }

    tests::SetClock mClock{ kStart };
    tests::TestVisualizer mVisualizer{ kStart };
};

TEST_F(FrameClock, TheFirstFrameTakesTheInstantaneousFpsDirectly) {
    EXPECT_TRUE(StepAt(100.03125));
    EXPECT_EQ(mVisualizer.mFrameCount, 1u);
    EXPECT_EQ(mVisualizer.mNow, 100.03125);
    EXPECT_EQ(mVisualizer.mElapsed, 0.03125);
    EXPECT_EQ(mVisualizer.mInstantaneousFps, 32.0);
    EXPECT_EQ(mVisualizer.mSmoothedFps, 32.0);
    EXPECT_EQ(mVisualizer.mFrameStep, 1.25);
    EXPECT_EQ(mVisualizer.mLastTime, 100.03125);
}

TEST_F(FrameClock, LaterFramesWeighASixtiethInTheRunningAverage) {
    StepAt(100.03125);  // 32
    StepAt(100.046875); // 64
    EXPECT_EQ(mVisualizer.mInstantaneousFps, 64.0);
    EXPECT_DOUBLE_EQ(mVisualizer.mSmoothedFps, (59 * 32.0 + 64.0) / 60);
    EXPECT_EQ(mVisualizer.mFrameCount, 2u);
    EXPECT_EQ(mVisualizer.mFrameStep, 0.625);
}

TEST_F(FrameClock, TwoFramesWithin10MicrosecondsGiveAnFpsOf1000) {
    StepAt(100.5);
    StepAt(100.5 + 0.75e-5);
    EXPECT_EQ(mVisualizer.mInstantaneousFps, 1000.0);
    StepAt(100.5 + 0.75e-5);
    EXPECT_EQ(mVisualizer.mInstantaneousFps, 1000.0);
    EXPECT_EQ(mVisualizer.mFrameStep, 0.51);
}

TEST_F(FrameClock, AStallOfTenSecondsGivesAStepOf1Point49) {
    StepAt(100.5);
    StepAt(110.5);
    EXPECT_EQ(mVisualizer.mFrameStep, 1.49);
    EXPECT_EQ(mVisualizer.mElapsed, 10.5);
    EXPECT_EQ(mVisualizer.mInstantaneousFps, 0.1);
}

TEST_F(FrameClock, AClockThatRunsBackwardsGivesTheShortestStepAndAnFpsOf1000) {
    StepAt(101);
    StepAt(50);
    EXPECT_EQ(mVisualizer.mFrameStep, 0.51);
    EXPECT_EQ(mVisualizer.mInstantaneousFps, 1000.0);
    EXPECT_EQ(mVisualizer.mElapsed, -50.0);
}

TEST_F(FrameClock, ElapsedBeginsAsTheStartTimeSoThatAFadeRestartedBeforeTheFirstFrameBeginsThatMuchLater) {
    EXPECT_EQ(mVisualizer.mElapsed, kStart);
    mVisualizer.RestartTrackInfoFade();
    EXPECT_EQ(mVisualizer.mTrackChangeTime, kStart);
    StepAt(kStart + 30);
    EXPECT_EQ(mVisualizer.mElapsed, 30.0) << "70 seconds before the fade's moment";
    mVisualizer.RestartTrackInfoFade();
    EXPECT_EQ(mVisualizer.mTrackChangeTime, 30.0) << "from the first frame on it is now";
}

// The same as the user sees it: a clock at 100 seconds, and so a first track that fades from 110 to 120.
TEST_F(VisualizerFixture, TheTrackOfTheCreationIsShownForAsLongAsTheClockHadRun) {
    Start();
    PlayTrack();
    const auto alphaAt = [&](double elapsed) {
        FrameAt(elapsed);
        const auto* const draw = DrawOf(mVisualizer->mTrackTextTexture);
        return draw ? draw->tint[3] : -1.0f;
    };
    EXPECT_EQ(alphaAt(21), 1.0f);
    EXPECT_EQ(alphaAt(110), 1.0f);
    EXPECT_NEAR(alphaAt(115), 0.5f, 1e-6);
    EXPECT_EQ(alphaAt(121), -1.0f);
}

} // namespace
} // namespace orvane::visualizer
