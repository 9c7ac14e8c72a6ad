// The errors that Single.h states, against double precision: over all magnitudes, and densely where pictures are.
#include "zephor/math/Single.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <string>

namespace orvane::zephor::single {
namespace {

enum class Measure { Absolute, Ulp, OfTangent };

double Ulp(double value) {
    constexpr int kSmallestExponent = -149;
    int exponent = 0;
    std::frexp(value, &exponent);
    return std::ldexp(1.0, std::max(exponent - 24, kSmallestExponent));
}

double Error(Measure measure, float result, double expected) {
    if (std::isinf(float(expected)) || std::isinf(result))
        return double(result) == double(float(expected)) ? 0 : HUGE_VAL;
    const double error = std::abs(double(result) - expected);
    switch (measure) {
    case Measure::Ulp:
        return error / Ulp(expected);
    case Measure::OfTangent:
        return error / (1 + expected * expected);
    case Measure::Absolute:
        break;
    }
    return error;
}

struct Row {
    const char* name;
    float low, high;           // of all magnitudes
    float denseLow, denseHigh; // in even steps
    Measure measure;
    double bound;
    float (*function)(float);
    double (*expected)(double);
};

constexpr float kX = 0.3f; // of Atan2, beside others below

const Row kRows[] = {
    { "Sin", -51471, 51471, -10, 10, Measure::Absolute, 6.5e-8, [](float x) { return Sin(x); },
      [](double x) { return std::sin(x); } },
    { "Cos", -51471, 51471, -10, 10, Measure::Absolute, 6.5e-8, [](float x) { return Cos(x); },
      [](double x) { return std::cos(x); } },
    { "Tan", -51471, 51471, -3, 3, Measure::OfTangent, 1.1e-7, [](float x) { return Tan(x); },
      [](double x) { return std::tan(x); } },
    { "Atan", -kInfinity, kInfinity, -3, 3, Measure::Ulp, 1.6, [](float x) { return Atan(x); },
      [](double x) { return std::atan(x); } },
    { "Atan2Right", -kInfinity, kInfinity, -1, 1, Measure::Ulp, 1.6, [](float y) { return Atan2(y, kX); },
      [](double y) { return std::atan2(y, double(kX)); } },
    { "Atan2Left", -kInfinity, kInfinity, -1, 1, Measure::Ulp, 1.6, [](float y) { return Atan2(y, -kX); },
      [](double y) { return std::atan2(y, -double(kX)); } },
    { "Atan2FarLeft", -kInfinity, kInfinity, -1, 1, Measure::Ulp, 1.6,
      [](float y) { return Atan2(y, -3e38f); }, [](double y) { return std::atan2(y, -double(3e38f)); } },
    { "Log", 0, kInfinity, 0.5f, 2, Measure::Ulp, 0.9, [](float x) { return Log(x); },
      [](double x) { return std::log(x); } },
    { "Exp", -110, 95, -2, 2, Measure::Ulp, 1, [](float x) { return Exp(x); },
      [](double x) { return std::exp(x); } },
    { "PowOneHundredth", 0, kInfinity, 0, 3, Measure::Ulp, 0.51, [](float x) { return Pow(x, 0.01f); },
      [](double x) { return std::pow(x, double(0.01f)); } },
    { "PowTwoPointTwo", 0, kInfinity, 0, 3, Measure::Ulp, 0.51, [](float x) { return Pow(x, 2.2f); },
      [](double x) { return std::pow(x, double(2.2f)); } },
    { "PowBelowZero", 0, kInfinity, 0, 3, Measure::Ulp, 0.51, [](float x) { return Pow(x, -1.55f); },
      [](double x) { return std::pow(x, double(-1.55f)); } },
    { "PowSteep", 0, kInfinity, 0, 3, Measure::Ulp, 0.51, [](float x) { return Pow(x, 19.5f); },
      [](double x) { return std::pow(x, double(19.5f)); } },
    { "PowOfTwoPointSeven", -160, 100, -2, 2, Measure::Ulp, 0.51, [](float x) { return Pow(2.7f, x); },
      [](double x) { return std::pow(double(2.7f), x); } },
    { "Sqrt", 0, kInfinity, 0, 2, Measure::Ulp, 0.5, [](float x) { return Sqrt(x); },
      [](double x) { return std::sqrt(x); } },
};

class Accuracy : public testing::TestWithParam<Row> {
protected:
    void Check(float x) {
        const double error =
            Error(GetParam().measure, GetParam().function(x), GetParam().expected(double(x)));
        if (error <= mLargest) return;
        mLargest = error;
        mAt = x;
    }

    void ExpectWithinBound() const { EXPECT_LE(mLargest, GetParam().bound) << "at " << mAt; }

private:
    double mLargest = 0;
    float mAt = 0;
};

TEST_P(Accuracy, HoldsOverAllMagnitudes) {
    constexpr std::uint64_t kStep = 1009; // a prime: all endings of mantissas occur
    for (std::uint64_t bits = 0; bits <= UINT32_MAX; bits += kStep) {
        const auto x = std::bit_cast<float>(std::uint32_t(bits));
        if (x >= GetParam().low && x <= GetParam().high) Check(x);
    }
    ExpectWithinBound();
}

TEST_P(Accuracy, HoldsDenselyWherePicturesAre) {
    constexpr int kSteps = 200000;
    const double low = GetParam().denseLow, high = GetParam().denseHigh;
    for (int i = 0; i <= kSteps; ++i) Check(float(low + (high - low) * i / kSteps));
    ExpectWithinBound();
}

INSTANTIATE_TEST_SUITE_P(Functions, Accuracy, testing::ValuesIn(kRows),
                         [](const auto& row) { return row.param.name; });

// Whole parts are exact: the library's own float functions say what they are.
TEST(WholeParts, AreExactOverAllMagnitudes) {
    for (std::uint64_t bits = 0; bits <= UINT32_MAX; bits += 1009) {
        const auto x = std::bit_cast<float>(std::uint32_t(bits));
        if (std::isnan(x)) continue;
        ASSERT_EQ(Floor(x), std::floor(x)) << x;
        ASSERT_EQ(Truncate(x), std::trunc(x)) << x;
        ASSERT_EQ(Abs(x), std::fabs(x)) << x;
        if (std::isinf(x)) continue;
        ASSERT_EQ(Fraction(x), x - std::trunc(x)) << x;
    }
}

} // namespace
} // namespace orvane::zephor::single
