#include "zephor/effects/waveforms/Traces.h"

#include "EffectFixture.h"

#include <cmath>

namespace orvane::zephor {
namespace {

constexpr double kPi = 3.14159265358979;

// ---- Default Waveform: c = cos(time / 5), s = sin(time / 5).

using DefaultWaveform = EffectOnItsOwn<DefaultWaveformFunctor>;

TEST_F(DefaultWaveform, LiesLevelAtFirst) {
    PrepareAt(0);
    ExpectPlace(Map(0, 0, 0), -1.05f, -0.2f); // a = -0.5 * 2.1
    ExpectPlace(Map(0, 0.75f, 0.4f), 0.525f, -0.3f);
    ExpectPlace(Map(1, 0.75f, 0.4f), 0.525f, 0.3f);
}

TEST_F(DefaultWaveform, StandsUprightAfterAQuarterTurn) {
    PrepareAt(kPi * 2.5);
    ExpectPlace(Map(0, 0.75f, 0.4f), 0.3f, 0.525f);  // b, a
    ExpectPlace(Map(1, 0.75f, 0.4f), -0.3f, 0.525f); // -b, a
}

TEST_F(DefaultWaveform, TurnsSmoothlyAfterMonthsOfRunning) {
    constexpr double kTurns = 100000;
    PrepareAt(kTurns * 10 * kPi + kPi * 2.5); // a turn takes 10 pi seconds
    ExpectPlace(Map(0, 0.75f, 0.4f), 0.3f, 0.525f);
}

TEST_F(DefaultWaveform, FillsTheFrameFromItsFirstPreparationOn) {
    EXPECT_FALSE(mEffect.fullFrame);
    mContext.pointSize = 5;
    mEffect.PrepareFrame(mContext);
    EXPECT_TRUE(mEffect.fullFrame);
    EXPECT_EQ(mContext.pointSize, 1);
}

// ---- Random Corridor

using RandomCorridor = EffectOnItsOwn<RandomCorridorFunctor>;

TEST_F(RandomCorridor, HasTheAngleOfItsStart) {
    StartAt(50); // 4068 / 32768 of a turn: 0.780039 radians, cosine 0.710886, sine 0.703308
    PrepareAt(60);
    // a = 0.25 * 2.5 = 0.625, b = 0.5 * 0.3 + 0.25 = 0.4
    ExpectPlace(Map(0, 0.75f, 0.5f), 0.444304f + 0.281323f, 0.439567f - 0.284354f);
    ExpectPlace(Map(1, 0.75f, 0.5f), 0.444304f - 0.281323f, 0.439567f + 0.284354f);
    PrepareAt(600);
    ExpectPlace(Map(0, 0.75f, 0.5f), 0.444304f + 0.281323f, 0.439567f - 0.284354f);
}

TEST_F(RandomCorridor, EachStartDrawsAnotherAngle) {
    StartAt(50);
    const WaveFormPoint first = Map(0, 0.75f);
    mEffect.Start(mContext);
    EXPECT_GT(std::abs(Map(0, 0.75f).x - first.x), 0.01f);
}

// ---- Example Spectrum

using ExampleSpectrum = EffectOnItsOwn<ExampleSpectrumFunctor>;

TEST_F(ExampleSpectrum, RunsForthBelowAndBackAbove) {
    PrepareAt(0);
    EXPECT_EQ(mContext.pointSize, 2);
    mContext.sampleSpectrum = 1.5f;
    ExpectPlace(Map(0, 0.2f), -0.6f, 0.6f);
    ExpectPlace(Map(1, 0.2f), 0.6f, -0.6f);
    mContext.sampleSpectrum = 0;
    ExpectPlace(Map(0, 0.5f), 0, -0.9f);
    ExpectPlace(Map(1, 0.5f), 0, 0.9f);
}

// ---- Big And Banded

using BigAndBanded = EffectOnItsOwn<BigAndBandedFunctor>;

TEST_F(BigAndBanded, IsATraceOfTwoPixels) {
    const WaveFormPoint point = Map(0, 0.75f, -0.5f);
    ExpectPlace(point, 0.5f, -0.45f);
    EXPECT_EQ(point.size, 2);
}

TEST_F(BigAndBanded, IsBrighterWhereItIsLouder) {
    EXPECT_EQ(Map(0, 0, 0).colorIndex, 12);        // 12.75
    EXPECT_EQ(Map(0, 0, 0.03125f).colorIndex, 44); // a = 1/4: 1/8 * 255 + 12.75 = 44.625
    EXPECT_EQ(Map(0, 0, -0.03125f).colorIndex, 44);
    EXPECT_EQ(Map(0, 0, 0.1f).colorIndex, 195);   // a = 0.8: 0.715542 * 255 + 12.75 = 195.2
    EXPECT_EQ(Map(0, 0, 0.125f).colorIndex, 255); // and no more
    EXPECT_EQ(Map(0, 0, 1).colorIndex, 255);
}

// ---- Radar Sweep: k = 0.4 + 4068 / 32768 * 1.3 = 0.561389 radians a second.

using RadarSweep = EffectOnItsOwn<RadarSweepFunctor>;

TEST_F(RadarSweep, PointsLeftAtFirstWithTheSoundAcross) {
    StartAt(0);
    PrepareAt(0);
    ExpectPlace(Map(0, 0.5f, 0.5f), -0.55f, 0.11f); // c = 1.1, e = 0.5 * 0.4 * 0.5
    ExpectPlace(Map(0, 0, 1), 0, 0);
}

TEST_F(RadarSweep, ComesRoundAtTheSpeedOfItsStart) {
    StartAt(0);
    PrepareAt(kPi / 2 / 0.561389);
    ExpectPlace(Map(0, 0.5f, 0.5f), -0.11f, -0.55f); // a quarter: s = 1.1
}

TEST_F(RadarSweep, ItsSpeedLiesBetween4And17TenthsOfARadian) {
    StartAt(0, 0);
    for (int start = 0; start < 100; ++start) {
        mEffect.Start(mContext);
        PrepareAt(1);
        const WaveFormPoint tip = Map(0, 1);
        const float angle = std::atan2(-tip.y, -tip.x);
        EXPECT_GE(angle, 0.3999f);
        EXPECT_LT(angle, 1.7f);
    }
}

} // namespace
} // namespace orvane::zephor
