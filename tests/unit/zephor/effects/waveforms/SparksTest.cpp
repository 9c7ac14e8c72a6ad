#include "zephor/effects/waveforms/Sparks.h"

#include "EffectFixture.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <utility>
#include <vector>

namespace orvane::zephor {
namespace {

// ---- Kaleidoscope

using Kaleidoscope = EffectOnItsOwn<KaleidoscopeFunctor>;

TEST_F(Kaleidoscope, ItsLinesAreTheEightSymmetricPositions) {
    const float w = 0.4f, t = 0.7f; // of a sample of 0.5
    ExpectPlace(Map(0, t, 0.5f), w, t);
    ExpectPlace(Map(1, t, 0.5f), t, w);
    ExpectPlace(Map(2, t, 0.5f), -w, t);
    std::set<std::pair<int, int>> places; // in tenths
    for (int line = 0; line < 8; ++line) {
        const WaveFormPoint point = Map(line, t, 0.5f);
        places.emplace(int(std::lround(point.x * 10)), int(std::lround(point.y * 10)));
    }
    EXPECT_EQ(places,
              (std::set<std::pair<int, int>>{
                  { 4, 7 }, { 7, 4 }, { -4, 7 }, { 7, -4 }, { 4, -7 }, { -7, 4 }, { -4, -7 }, { -7, -4 } }));
}

TEST_F(Kaleidoscope, IsAsWideAsTheSoundIsLoud) {
    EXPECT_NEAR(Map(3, 0, 0.5f).size, 9.2f, kNear); // 0.5 * 0.8 * 23
    EXPECT_NEAR(Map(3, 0, -0.5f).size, 9.2f, kNear);
}

// ---- Particle Pulse: size 1 + 4068 / 32768 * 3 = 1.372437.

using ParticlePulse = EffectOnItsOwn<ParticlePulseFunctor>;

TEST_F(ParticlePulse, ItsParticlesWindAroundTheMiddle) {
    StartAt(0);
    PrepareAt(0);
    EXPECT_EQ(mContext.sampleStep, 5);
    ExpectPlace(Map(0, 0, 1), 0.9f, 0);
    const float a = 0.5f * 43.766876f;
    ExpectPlace(Map(0, 0.5f, -0.4f), std::cos(a) * 0.39f, std::sin(a) * 0.39f); // 0.4 * 0.85 + 0.05
    EXPECT_NEAR(Map(0, 0.5f).size, 1.372437f, kNear);
}

TEST_F(ParticlePulse, TheySettleSlowlyAgainstTheClock) {
    StartAt(0);
    PrepareAt(1000); // p = 0.3
    ExpectPlace(Map(0, 0, 1), 0.9f * std::cos(0.3f), -0.9f * std::sin(0.3f));
}

// ---- Explosion1

using Explosion1 = EffectOnItsOwn<Explosion1Functor>;

TEST_F(Explosion1, TheSeedOfAPassIsItsBitsRotatedByTheLowFive) {
    EXPECT_EQ(Explosion1Functor::SeedOf(1, 0), 0x3F800000u); // 1.0f, low bits 0
    EXPECT_EQ(Explosion1Functor::SeedOf(1, 2), 0x40400000u); // 3.0f
    // 0x3F800001 by 1, and 0x3F80001F by 31.
    EXPECT_EQ(Explosion1Functor::SeedOf(1.00000012f, 0), 0x7F000002u);
    EXPECT_EQ(Explosion1Functor::SeedOf(1.00000370f, 0), 0x9FC0000Fu);
}

TEST_F(Explosion1, APassDrawsTheSameParticlesInEachFrame) {
    StartAt(700);
    const auto particles = [this] {
        PrepareAt(700.5);
        std::vector<float> places;
        for (int i = 0; i < 50; ++i) {
            const WaveFormPoint point = Map(0, 0);
            places.push_back(point.x);
            places.push_back(point.y);
        }
        return places;
    };
    const auto first = particles();
    platform::SeedRand(99);
    EXPECT_EQ(particles(), first);
    mContext.pass = 1;
    EXPECT_NE(particles(), first);
}

TEST_F(Explosion1, HasSome60To160Particles) {
    for (int seed = 0; seed < 200; ++seed) {
        StartAt(700, seed * 1000);
        PrepareAt(700);
        EXPECT_GE(mContext.sampleStep, 1); // 255 / 160
        EXPECT_LE(mContext.sampleStep, 4); // 255 / 60
    }
}

TEST_F(Explosion1, BurstsFromAPointOutwards) {
    StartAt(700);
    const auto spread = [this](double time) {
        PrepareAt(time);
        float left = 9, right = -9;
        for (int i = 0; i < 100; ++i) {
            const float x = Map(0, 0).x;
            left = std::min(left, x);
            right = std::max(right, x);
        }
        return right - left;
    };
    EXPECT_NEAR(spread(700), 0, kNear);
    EXPECT_GT(spread(700.3), 0.2f);
    EXPECT_GT(spread(701), spread(700.3));
    EXPECT_NEAR(spread(702.4001), 0, 0.01f) << "and then the next one";
}

} // namespace
} // namespace orvane::zephor
