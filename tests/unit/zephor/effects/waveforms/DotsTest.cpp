#include "zephor/effects/waveforms/Dots.h"

#include "EffectFixture.h"

#include <cmath>

namespace orvane::zephor {
namespace {

// ---- Attack

using Attack = EffectOnItsOwn<AttackFunctor>;

TEST_F(Attack, HasThreePassesAndTakesEvery17thSample) {
    StartAt(10);
    PrepareAt(10);
    EXPECT_EQ(mEffect.passCount, 3);
    EXPECT_EQ(mContext.sampleStep, 17);
}

TEST_F(Attack, GoesOutAndComesBackInTheTimeThatItHas) {
    mContext.endTime = 16;
    StartAt(10);
    const float expected[] = { 0, 0.707107f, 1, 0.707107f, 0 }; // sines of quarters of a half turn
    for (int quarter = 0; quarter <= 4; ++quarter) {
        PrepareAt(10 + 1.5 * quarter);
        EXPECT_NEAR(Map(0, 1).x, expected[quarter], kNear);
    }
}

TEST_F(Attack, ItsLinesAreFourMirrorPictures) {
    mContext.endTime = 16;
    StartAt(10);
    PrepareAt(13); // k = 1
    mContext.pass = 2;
    const float w = std::sin(39.0f + 0.5f * 15) * 0.1f; // time * 3 + t * 15
    ExpectPlace(Map(0, 0.5f), 0.5f, w + 0.8f);
    ExpectPlace(Map(1, 0.5f), 0.5f, w - 0.8f);
    ExpectPlace(Map(2, 0.5f), -0.5f, w + 0.8f);
    ExpectPlace(Map(3, 0.5f), -0.5f, w - 0.8f);
    mContext.pass = 0;
    ExpectPlace(Map(1, 0.5f), 0.5f, w);
}

TEST_F(Attack, AsTheMainWaveformItStaysNearTheMiddle) {
    StartAt(1000); // endTime 0
    for (int second = 0; second <= 12; ++second) {
        PrepareAt(1000 + second);
        const float out = std::sin(float(second) / 1000 * 3.14159f);
        EXPECT_NEAR(Map(0, 1).x, -out, kNear);
    }
}

TEST_F(Attack, WithoutAnyTimeItsDotsAreStillSomewhere) {
    StartAt(0); // from 0 to 0
    PrepareAt(0);
    const WaveFormPoint point = Map(3, 0.5f);
    EXPECT_TRUE(std::isfinite(point.x));
    EXPECT_TRUE(std::isfinite(point.y));
}

// ---- Falling Orbs: speed 0.3 + 4068 / 32768 * 0.6 = 0.374487.

using FallingOrbs = EffectOnItsOwn<FallingOrbsFunctor>;

TEST_F(FallingOrbs, GoThroughThePictureAtTheSpeedOfTheirStart) {
    StartAt(500);
    PrepareAt(500);
    ExpectPlace(Map(0, 0), -1, 1.5f);
    PrepareAt(502);
    ExpectPlace(Map(0, 0.975f), 0.95f, 0.751025f);
    EXPECT_EQ(mContext.sampleStep, 10);
    EXPECT_EQ(mContext.colorIndex, 242);
}

TEST_F(FallingOrbs, AreAsLargeAsTheirSampleOfChannel0IsLoud) {
    StartAt(500);
    PrepareAt(500);
    mWaveform[0] = 0.5f;
    mWaveform[127] = 0.25f;
    EXPECT_NEAR(Map(0, 0).size, 30.0945f, 1e-3f);   // 6^1.9
    EXPECT_NEAR(Map(0, 0.5f).size, 8.0636f, 1e-3f); // 3^1.9, at sample 127.5
}

TEST_F(FallingOrbs, TheLowerHalfOfAWaveHasNoSize) {
    StartAt(500);
    PrepareAt(500);
    mWaveform[0] = -0.5f;
    EXPECT_EQ(Map(0, 0).size, 0);
}

TEST_F(FallingOrbs, ReadNothingBeyondTheSamples) {
    StartAt(500);
    PrepareAt(500);
    mWaveform[0] = 1.0f / 12, mWaveform[255] = 0.5f;
    EXPECT_NEAR(Map(0, 3).size, 30.0945f, 1e-3f);
    EXPECT_NEAR(Map(0, -3).size, 1, 1e-3f);
}

// ---- DT Sine Dot

using DTSineDot = EffectOnItsOwn<DTSineDotFunctor>;

TEST_F(DTSineDot, IsThreeStringsOfDotsAsLargeAsTheSound) {
    PrepareAt(0);
    for (int line = 0; line < 3; ++line) {
        EXPECT_NEAR(Map(line, 0.25f, 0.5f).size, 9, kNear);
        EXPECT_NEAR(Map(line, 0.25f, -1).size, -12, kNear);
        EXPECT_NEAR(Map(line, 0.25f).x, -0.5f, kNear);
    }
}

TEST_F(DTSineDot, EachStringHasASineOfItsOwn) {
    PrepareAt(0); // all sines of time are 0
    EXPECT_NEAR(Map(0, 0.25f).y, std::sin(0.25f * 7) * 0.55f, kNear);
    EXPECT_NEAR(Map(1, 0.25f).y, std::sin(0.25f * 9) * 0.45f, kNear);
    EXPECT_NEAR(Map(2, 0.25f).y, std::sin(0.25f * 5) * 0.6f, kNear);
}

TEST_F(DTSineDot, TheStringsStayInThePicture) {
    for (int frame = 0; frame < 300; ++frame) {
        PrepareAt(frame * 1.7);
        for (int line = 0; line < 3; ++line)
            for (int sample = 0; sample < 256; sample += 5)
                EXPECT_LE(std::abs(Map(line, float(sample) * 0.0039f).y), 0.9001f);
    }
}

TEST_F(DTSineDot, IsBrightAccordingToTheSoundsLevel) {
    platform::SeedRand(1234); // 4068 / 32768 * 0.3 = 0.037244
    mWaveform[25] = 0;
    PrepareAt(0);
    EXPECT_EQ(mContext.colorIndex, 187); // 0.737244 * 255 = 187.997
    mWaveform[25] = -1;
    PrepareAt(0);
    EXPECT_EQ(mContext.colorIndex, 0);
    mWaveform[25] = 0.5f;
    PrepareAt(0);
    EXPECT_EQ(mContext.colorIndex, 255);
}

} // namespace
} // namespace orvane::zephor
