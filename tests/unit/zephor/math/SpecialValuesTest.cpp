// Zeros, infinities, NaNs and the limits of arguments, as Single.h states them.
#include "zephor/math/Single.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace orvane::zephor::single {
namespace {

constexpr float kTiny = std::numeric_limits<float>::denorm_min();
constexpr float kHuge = std::numeric_limits<float>::max();
constexpr float kAboveSines = 51472.0f;

TEST(SpecialValues, SineAndCosineOfZeroAreZeroAndOne) {
    EXPECT_EQ(Sin(0.0f), 0.0f);
    EXPECT_EQ(Sin(-0.0f), 0.0f);
    EXPECT_EQ(Cos(0.0f), 1.0f);
    EXPECT_EQ(Tan(0.0f), 0.0f);
    EXPECT_EQ(Sin(kTiny), kTiny);
}

TEST(SpecialValues, AnglesTooLargeCountAsZero) {
    for (const float angle : { kAboveSines, -kAboveSines, kHuge, -kHuge }) {
        EXPECT_EQ(Sin(angle), 0.0f) << angle;
        EXPECT_EQ(Cos(angle), 1.0f) << angle;
        EXPECT_EQ(Tan(angle), 0.0f) << angle;
    }
}

TEST(SpecialValues, InfiniteAnglesGiveNaN) {
    for (const float angle : { kInfinity, -kInfinity, kNaN }) {
        EXPECT_TRUE(std::isnan(Sin(angle))) << angle;
        EXPECT_TRUE(std::isnan(Cos(angle))) << angle;
        EXPECT_TRUE(std::isnan(Tan(angle))) << angle;
    }
}

TEST(SpecialValues, AngleOfTheOriginIsZero) {
    for (const float y : { 0.0f, -0.0f })
        for (const float x : { 0.0f, -0.0f }) EXPECT_EQ(Atan2(y, x), 0.0f) << y << ", " << x;
}

TEST(SpecialValues, AnglesOfTheAxes) {
    EXPECT_EQ(Atan2(0.0f, 1.0f), 0.0f);
    EXPECT_EQ(Atan2(1.0f, 0.0f), kHalfPi);
    EXPECT_EQ(Atan2(1.0f, -0.0f), kHalfPi);
    EXPECT_EQ(Atan2(-1.0f, 0.0f), -kHalfPi);
    EXPECT_EQ(Atan2(0.0f, -1.0f), kPi);
    EXPECT_EQ(Atan2(-0.0f, -1.0f), -kPi);
    EXPECT_FLOAT_EQ(Atan2(kTiny, kTiny), kPi / 4);
}

TEST(SpecialValues, AnglesOfInfinities) {
    EXPECT_EQ(Atan(kInfinity), kHalfPi);
    EXPECT_EQ(Atan(-kInfinity), -kHalfPi);
    EXPECT_EQ(Atan2(1.0f, kInfinity), 0.0f);
    EXPECT_EQ(Atan2(1.0f, -kInfinity), kPi);
    EXPECT_EQ(Atan2(-kInfinity, 1.0f), -kHalfPi);
    EXPECT_FLOAT_EQ(Atan2(kInfinity, kInfinity), kPi / 4);
    EXPECT_FLOAT_EQ(Atan2(kInfinity, -kInfinity), 3 * kPi / 4);
    EXPECT_FLOAT_EQ(Atan2(-kInfinity, -kInfinity), -3 * kPi / 4);
}

TEST(SpecialValues, AnglesOfNaNAreNaN) {
    EXPECT_TRUE(std::isnan(Atan(kNaN)));
    for (const float other : { 0.0f, 1.0f, -1.0f, kInfinity }) {
        EXPECT_TRUE(std::isnan(Atan2(kNaN, other))) << other;
        EXPECT_TRUE(std::isnan(Atan2(other, kNaN))) << other;
    }
}

TEST(SpecialValues, LogarithmAtItsLimits) {
    EXPECT_EQ(Log(0.0f), -kInfinity);
    EXPECT_EQ(Log(-0.0f), -kInfinity);
    EXPECT_EQ(Log(1.0f), 0.0f);
    EXPECT_EQ(Log(kInfinity), kInfinity);
    for (const float x : { -kTiny, -1.0f, -kInfinity, kNaN }) EXPECT_TRUE(std::isnan(Log(x))) << x;
}

TEST(SpecialValues, ExponentialAtItsLimits) {
    EXPECT_EQ(Exp(0.0f), 1.0f);
    EXPECT_EQ(Exp(89.0f), kInfinity);
    EXPECT_EQ(Exp(kInfinity), kInfinity);
    EXPECT_EQ(Exp(-104.0f), 0.0f);
    EXPECT_EQ(Exp(-kInfinity), 0.0f);
    EXPECT_TRUE(std::isnan(Exp(kNaN)));
}

TEST(SpecialValues, RootsAndWholePartsOfSpecialValues) {
    EXPECT_EQ(Sqrt(kInfinity), kInfinity);
    EXPECT_TRUE(std::isnan(Sqrt(-1.0f)));
    EXPECT_TRUE(std::isnan(Sqrt(kNaN)));
    EXPECT_EQ(Floor(-kTiny), -1.0f);
    EXPECT_EQ(Floor(-kInfinity), -kInfinity);
    EXPECT_TRUE(std::signbit(Floor(-0.0f)));
    EXPECT_EQ(Fraction(-2.75f), -0.75f);
    EXPECT_TRUE(std::isnan(Fraction(kInfinity)));
    EXPECT_TRUE(std::isnan(Floor(kNaN)));
    EXPECT_EQ(Abs(-kInfinity), kInfinity);
}

TEST(SpecialValues, AnythingToThePowerZeroAndOneToAnyPowerAreOne) {
    for (const float x : { 0.0f, 1.0f, -3.0f, kInfinity, -kInfinity, kNaN }) {
        EXPECT_EQ(Pow(x, 0.0f), 1.0f) << x;
        EXPECT_EQ(Pow(1.0f, x), 1.0f) << x;
    }
    EXPECT_EQ(Pow(-1.0f, kInfinity), 1.0f);
}

TEST(SpecialValues, PowersOfZeroAndInfinity) {
    EXPECT_EQ(Pow(0.0f, 0.01f), 0.0f);
    EXPECT_EQ(Pow(0.0f, -2.0f), kInfinity);
    EXPECT_EQ(Pow(-0.0f, 3.0f), 0.0f);
    EXPECT_FALSE(std::signbit(Pow(-0.0f, 3.0f)));
    EXPECT_EQ(Pow(kInfinity, 2.0f), kInfinity);
    EXPECT_EQ(Pow(kInfinity, -2.0f), 0.0f);
    EXPECT_EQ(Pow(-kInfinity, 3.0f), -kInfinity);
    EXPECT_EQ(Pow(0.5f, kInfinity), 0.0f);
    EXPECT_EQ(Pow(2.0f, kInfinity), kInfinity);
    EXPECT_EQ(Pow(2.0f, -kInfinity), 0.0f);
}

TEST(SpecialValues, NegativeNumbersHaveWholePowersOnly) {
    EXPECT_EQ(Pow(-2.0f, 3.0f), -8.0f);
    EXPECT_EQ(Pow(-2.0f, 4.0f), 16.0f);
    EXPECT_EQ(Pow(-2.0f, -1.0f), -0.5f);
    EXPECT_EQ(Pow(-1.0f, 16777216.0f), 1.0f);
    for (const float exponent : { 0.5f, 2.2f, -1.55f, kNaN }) {
        EXPECT_TRUE(std::isnan(Pow(-2.0f, exponent))) << exponent;
        EXPECT_TRUE(std::isnan(Pow(-kInfinity, exponent))) << exponent;
    }
    EXPECT_TRUE(std::isnan(Pow(kNaN, 2.0f)));
    EXPECT_TRUE(std::isnan(Pow(2.0f, kNaN)));
}

TEST(SpecialValues, PowersBeyondTheRangeAreInfinityAndZero) {
    EXPECT_EQ(Pow(10.0f, 39.0f), kInfinity);
    EXPECT_EQ(Pow(-10.0f, 39.0f), -kInfinity);
    EXPECT_EQ(Pow(10.0f, -46.0f), 0.0f);
    EXPECT_EQ(Pow(2.0f, -149.0f), kTiny);
    EXPECT_EQ(Pow(2.0f, 127.0f), 0x1p127f);
}

} // namespace
} // namespace orvane::zephor::single
