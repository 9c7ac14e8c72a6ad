// Which lines and samples are walked, and what a map is given.
#include "WaveformFixture.h"

#include <cmath>
#include <vector>

namespace orvane::zephor {
namespace {

using tests::kOneSample;
using tests::TestWaveform;

using WaveformLines = WaveformFixture;

TEST_F(WaveformLines, TwoLinesFadingOutBehindFiveComingInRepeatByModulo) {
    TestWaveform now(Strokes(5)), before(Strokes(2));
    now.mStep = before.mStep = kOneSample;
    Draw(now, &before, 100);
    EXPECT_EQ(now.Lines(), (std::vector<int>{ 0, 1, 2, 3, 4 }));
    EXPECT_EQ(before.Lines(), (std::vector<int>{ 0, 1, 0, 1, 0 }));
}

TEST_F(WaveformLines, TwoLinesComingInBeforeFiveFadingOutRepeatByModulo) {
    TestWaveform now(Strokes(2)), before(Strokes(5));
    now.mStep = before.mStep = kOneSample;
    Draw(now, &before, 100);
    EXPECT_EQ(now.Lines(), (std::vector<int>{ 0, 1, 0, 1, 0 }));
    EXPECT_EQ(before.Lines(), (std::vector<int>{ 0, 1, 2, 3, 4 }));
}

TEST_F(WaveformLines, NoLinesOnBothSidesAreNoLoopAtAll) {
    TestWaveform now(Strokes(0)), before(Strokes(0));
    Draw(now, &before, 100);
    EXPECT_TRUE(now.mPoints.empty());
    EXPECT_TRUE(before.mPoints.empty());
    EXPECT_EQ(mLayer.mCalls,
              (std::vector<tests::LayerCall>{ tests::LayerCall::Begin, tests::LayerCall::End }));
}

TEST_F(WaveformLines, ASideWithoutLinesFollowsTheOther) {
    TestWaveform none(Strokes(0)), three(Strokes(3));
    none.mStep = three.mStep = kOneSample;
    Draw(none, &three, 100);
    EXPECT_EQ(none.Lines(), (std::vector<int>{ 0, 1, 2 }));
    none.mPoints.clear();
    Draw(three, &none, 100);
    EXPECT_EQ(none.Lines(), (std::vector<int>{ 0, 1, 2 }));
}

// ---- Parked lines.

TEST_F(WaveformLines, AParkedLineThatTheNewWaveformLacksWaitsAtItsPlaceUnmapped) {
    TestWaveform now(Strokes(2), 0, 0), before(Strokes(3), 0, 0);
    now.mStep = before.mStep = kOneSample;
    mStage.parked[2] = true;
    mStage.parkX[2] = -1, mStage.parkY[2] = -2;
    Draw(now, &before, 32);
    EXPECT_EQ(now.Lines(), (std::vector<int>{ 0, 1 }));
    // A quarter of the old (0, 0), three of the place: (-0.75, -1.5) of 200 by 100.
    EXPECT_EQ(mLayer.mSegments[2], (tests::Segment{ 25, -25, 26, -25, 1 }));
}

TEST_F(WaveformLines, AParkedLineThatTheOldWaveformLacksComesFromItsPlace) {
    TestWaveform now(Strokes(3), 0, 0), before(Strokes(2), 0, 0);
    now.mStep = before.mStep = kOneSample;
    mStage.parked[2] = true;
    mStage.parkX[2] = -1, mStage.parkY[2] = -2;
    Draw(now, &before, 32);
    EXPECT_EQ(before.Lines(), (std::vector<int>{ 0, 1 }));
    EXPECT_EQ(mLayer.mSegments[2], (tests::Segment{ 75, 25, 76, 25, 1 })); // (-0.25, -0.5)
}

TEST_F(WaveformLines, ALineThatTheWaveformHasIsNeverParked) {
    TestWaveform now(Strokes(2), 0, 0);
    now.mStep = kOneSample;
    mStage.parked.fill(true);
    Draw(now);
    EXPECT_EQ(now.Lines(), (std::vector<int>{ 0, 1 }));
}

TEST_F(WaveformLines, LinesBeyondTheFifteenthAreNeverParked) {
    TestWaveform now(Strokes(1)), before(Strokes(17));
    now.mStep = before.mStep = kOneSample;
    mStage.parked.fill(true);
    Draw(now, &before, 100);
    EXPECT_EQ(now.Lines(), (std::vector<int>{ 0, 0, 0 })); // its own, the 16th and the 17th
}

// ---- Samples.

TEST_F(WaveformLines, EvenLinesTakeChannel1AndOddOnesChannel0) {
    TestWaveform now(Strokes(3)), before(Strokes(3));
    now.mStep = before.mStep = kOneSample;
    mAudio.waveform[0][0] = 0.25f, mAudio.spectrum[0][0] = 0.5f;
    mAudio.waveform[1][0] = -0.75f, mAudio.spectrum[1][0] = 1.5f;
    std::vector<float> samples;
    const auto note = [&](const WaveFormContext& context, WaveFormPoint&) {
        samples.push_back(context.sampleWave);
        samples.push_back(context.sampleSpectrum);
    };
    now.mMap = before.mMap = note;
    Draw(now, &before);
    const std::vector<float> expected{ -0.75f, 1.5f, -0.75f, 1.5f, 0.25f,  0.5f,
                                       0.25f,  0.5f, -0.75f, 1.5f, -0.75f, 1.5f };
    EXPECT_EQ(samples, expected);
}

TEST_F(WaveformLines, EverySampleIsTakenAndLiesWhereItsNumberSays) {
    TestWaveform now;
    std::vector<float> samples;
    for (int i = 0; i < kAudioPoints; ++i) mAudio.waveform[1][i] = float(i);
    now.mMap = [&](const WaveFormContext& context, WaveFormPoint&) { samples.push_back(context.sampleWave); };
    Draw(now);
    ASSERT_EQ(samples.size(), 256u);
    EXPECT_EQ(samples[0], 0);
    EXPECT_EQ(samples[255], 255);
    EXPECT_EQ(now.mPoints[0].t, 0);
    EXPECT_NEAR(now.mPoints[100].t, 0.39f, 1e-5f);
    EXPECT_NEAR(now.mPoints[255].t, 0.9945f, 1e-5f);
}

TEST_F(WaveformLines, AStepTakesEveryStepthSample) {
    TestWaveform now;
    now.mStep = 10;
    std::vector<float> samples;
    for (int i = 0; i < kAudioPoints; ++i) mAudio.waveform[1][i] = float(i);
    now.mMap = [&](const WaveFormContext& context, WaveFormPoint&) { samples.push_back(context.sampleWave); };
    Draw(now);
    ASSERT_EQ(samples.size(), 26u);
    EXPECT_EQ(samples[25], 250);
    EXPECT_NEAR(now.mPoints[25].t, 0.975f, 1e-5f);
}

TEST_F(WaveformLines, AStepOfZeroOrBelowBecomesOne) {
    for (const int step : { 0, -1, -1000000 }) {
        TestWaveform now;
        now.mPrepare = [&](WaveFormContext& context) { context.sampleStep = step; };
        Draw(now);
        EXPECT_EQ(now.mPoints.size(), 256u) << step;
    }
}

TEST_F(WaveformLines, StepsAreMixedBeforeTheyAreHeldToOne) {
    TestWaveform now, before;
    now.mPrepare = [](WaveFormContext& context) { context.sampleStep = -10; };
    before.mPrepare = [](WaveFormContext& context) { context.sampleStep = 10; };
    Draw(now, &before, 96);             // -10 + 20 * 0.75
    EXPECT_EQ(now.mPoints.size(), 52u); // a step of 5
    now.mPoints.clear();
    Draw(now, &before, 64); // 0
    EXPECT_EQ(now.mPoints.size(), 256u);
}

TEST_F(WaveformLines, TheMixedStepIsAWholeNumberRoundedDown) {
    TestWaveform now, before;
    now.mStep = 5;
    before.mStep = 17;
    Draw(now, &before, 100); // 5 + 12 * 0.78125 = 14.375
    EXPECT_EQ(now.mPoints.size(), 19u);
    EXPECT_NEAR(now.mPoints[1].t, 14 * 0.0039f, 1e-6f);
}

TEST_F(WaveformLines, AStepBeyondTheLastSampleTakesTheFirst) {
    TestWaveform now;
    now.mStep = 2000000000;
    Draw(now);
    EXPECT_EQ(now.mPoints.size(), 1u);
}

// ---- What a map is given.

TEST_F(WaveformLines, APointComesAtTheMiddleWithTheLastPointsSizeAndColour) {
    TestWaveform now(Strokes(2));
    now.mStep = 128;
    now.mPrepare = [](WaveFormContext& context) { context.pointSize = 3, context.colorIndex = 200; };
    now.mMap = [](const WaveFormContext&, WaveFormPoint& point) {
        point.x = point.y = 0.5f;
        point.size += 1;
        point.colorIndex = std::uint8_t(point.colorIndex - 1);
    };
    Draw(now);
    ASSERT_EQ(now.mPoints.size(), 4u);
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(now.mPoints[i].x, 0);
        EXPECT_EQ(now.mPoints[i].y, 0);
        EXPECT_EQ(now.mPoints[i].size, 3 + float(i)) << "carried over, from line to line too";
        EXPECT_EQ(now.mPoints[i].colorIndex, 200 - int(i));
    }
}

TEST_F(WaveformLines, EachWaveformCarriesItsOwnSizeOver) {
    TestWaveform now, before;
    now.mStep = before.mStep = 128;
    now.mMap = [](const auto&, WaveFormPoint& point) { point.size = 10; };
    before.mMap = [](const auto&, WaveFormPoint& point) { point.size = 30; };
    Draw(now, &before, 64);
    EXPECT_EQ(now.mPoints[1].size, 10);
    EXPECT_EQ(before.mPoints[1].size, 30);
}

TEST_F(WaveformLines, AMapThatWritesNothingLeavesThePointInTheMiddleAtTheContextsSize) {
    TestWaveform now;
    now.mStep = kOneSample;
    now.mPrepare = [](WaveFormContext& context) { context.pointSize = 4; };
    Draw(now);
    EXPECT_EQ(mLayer.mSegments[0], (tests::Segment{ 100, 50, 101, 50, 4 }));
}

TEST_F(WaveformLines, UsesAsyncMapChoosesTheMap) {
    TestWaveform now;
    now.mStep = kOneSample;
    now.usesAsyncMap = false;
    Draw(now);
    EXPECT_EQ(now.mPlainMaps, 1);
    EXPECT_TRUE(now.mPoints.empty());
}

TEST_F(WaveformLines, AWaveFormFunctorIsOneWithoutTheAsyncMap) {
    const WaveFormFunctor plain("Plain", Connected(11).FullFrame());
    EXPECT_FALSE(plain.usesAsyncMap);
    EXPECT_TRUE(plain.connectPoints);
    EXPECT_TRUE(plain.fullFrame);
    EXPECT_FALSE(plain.drawDots);
    EXPECT_EQ(plain.lineCount, 11);
    EXPECT_EQ(plain.passCount, 1);
}

} // namespace
} // namespace orvane::zephor
