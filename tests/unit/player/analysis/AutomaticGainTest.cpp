#include "player/analysis/AutomaticGain.h"

#include <gtest/gtest.h>

#include <cmath>

namespace orvane::player {
namespace {

constexpr double kPulse = 1 / 60.0;

float Decibels(float factor) {
    return 20 * std::log10(factor);
}

TEST(AutomaticGain, LoudMusicIsLeftAsItIs) {
    AutomaticGain gain;
    for (const float peak : { 0.7f, 0.9f, 1.0f }) EXPECT_EQ(gain.Follow(peak, kPulse), 1.0f);
}

TEST(AutomaticGain, QuietMusicComesUpByOneDecibelASecond) {
    AutomaticGain gain;
    gain.Follow(0.7f, 0);
    for (int second = 1; second <= 12; ++second) {
        for (int pulse = 0; pulse < 60; ++pulse) gain.Follow(0.01f, kPulse);
        EXPECT_NEAR(Decibels(gain.Factor()), second, 0.05) << "after " << second << " s"; // 6.02 dB in 6 s
    }
}

TEST(AutomaticGain, TheLoudestPeakComesUpToTheTargetAndNoFurther) {
    AutomaticGain gain;
    for (int pulse = 0; pulse < 60 * 60; ++pulse) gain.Follow(0.35f, kPulse);
    EXPECT_FLOAT_EQ(gain.Factor(), 2.0f);
}

TEST(AutomaticGain, NothingIsMadeMoreThanEightTimesAsLoud) {
    AutomaticGain gain;
    for (int pulse = 0; pulse < 60 * 60; ++pulse) gain.Follow(0, kPulse);
    EXPECT_FLOAT_EQ(gain.Factor(), 8.0f);
    gain.Follow(0, 1e9);
    EXPECT_FLOAT_EQ(gain.Factor(), 8.0f);
}

TEST(AutomaticGain, GoesDownAtOnce) {
    AutomaticGain gain;
    gain.Follow(0.01f, 60);
    EXPECT_FLOAT_EQ(gain.Factor(), 8.0f);
    EXPECT_EQ(gain.Follow(0.8f, kPulse), 1.0f);
}

TEST(AutomaticGain, StandsStillWhileTheSongDoes) {
    AutomaticGain gain;
    gain.Follow(0.35f, 60);
    const float before = gain.Factor();
    for (const double seconds : { 0.0, -1.0, std::nan("") })
        EXPECT_EQ(gain.Follow(0, seconds), before) << seconds;
}

} // namespace
} // namespace orvane::player
