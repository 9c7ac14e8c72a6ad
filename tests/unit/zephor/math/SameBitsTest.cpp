// Every width gives the same bits, and so does every build.
#include "zephor/math/Single.h"

#include "support/AcrossBuilds.h"
#include "unit/zephor/math/Widths.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <string>

namespace orvane::zephor::single {
namespace {

using tests::Applied;
using tests::Floats;

#define ORVANE_FORMULA(name, expression)                                                                     \
    struct name##Formula {                                                                                   \
        static constexpr const char* kName = #name;                                                          \
        template <class T>                                                                                   \
        [[gnu::always_inline]] T operator()(T a, [[maybe_unused]] T b) const {                               \
            return expression;                                                                               \
        }                                                                                                    \
    }

ORVANE_FORMULA(Abs, Abs(a));
ORVANE_FORMULA(Sqrt, Sqrt(a));
ORVANE_FORMULA(Truncate, Truncate(a));
ORVANE_FORMULA(Floor, Floor(a));
ORVANE_FORMULA(Fraction, Fraction(a));
ORVANE_FORMULA(Sin, Sin(a));
ORVANE_FORMULA(Cos, Cos(a));
ORVANE_FORMULA(SineOfBoth, SinCos(a).sine);
ORVANE_FORMULA(CosineOfBoth, SinCos(a).cosine);
ORVANE_FORMULA(Tan, Tan(a));
ORVANE_FORMULA(Atan, Atan(a));
ORVANE_FORMULA(Atan2, Atan2(a, b));
ORVANE_FORMULA(Log, Log(a));
ORVANE_FORMULA(Exp, Exp(a));
ORVANE_FORMULA(Pow, Pow(a, b));
ORVANE_FORMULA(PowOfAllToOne, Pow(a, 2.2f));
ORVANE_FORMULA(Polynomial, (a * 0.75f + b) * a - 1.25f);
ORVANE_FORMULA(Choice, Select(a < b, a - b, b / a));

constexpr float kSpecial[] = { 0.0f,
                               -0.0f,
                               1.0f,
                               -1.0f,
                               0.5f,
                               -2.0f,
                               3.0f,
                               2.5f,
                               -2.5f,
                               51471.0f,
                               51472.0f,
                               88.7f,
                               89.0f,
                               -104.0f,
                               8388607.5f,
                               8388608.0f,
                               16777216.0f,
                               std::numeric_limits<float>::min(),
                               std::numeric_limits<float>::denorm_min(),
                               std::numeric_limits<float>::max(),
                               std::numeric_limits<float>::lowest(),
                               std::numeric_limits<float>::infinity(),
                               -std::numeric_limits<float>::infinity(),
                               std::numeric_limits<float>::quiet_NaN() };

struct Arguments {
    Floats a, b;
};

// Each special value with each, then random bits (all magnitudes, infinities and NaNs among them), then what
// pictures are made of.
Arguments MakeArguments() {
    Arguments arguments;
    const auto add = [&](float a, float b) {
        arguments.a.push_back(a);
        arguments.b.push_back(b);
    };
    for (const float a : kSpecial)
        for (const float b : kSpecial) add(a, b);
    std::mt19937 random(3);
    for (int i = 0; i < 40000; ++i)
        add(std::bit_cast<float>(std::uint32_t(random())), std::bit_cast<float>(std::uint32_t(random())));
    const auto within = [&](float reach) { return (float(random() >> 8) * 0x1p-23f - 1.0f) * reach; };
    for (int i = 0; i < 40000; ++i) add(within(10), within(3));
    while (arguments.a.size() % 8 != 0) add(0, 0);
    return arguments;
}

bool SameFloat(float a, float b) {
    return std::bit_cast<std::uint32_t>(a) == std::bit_cast<std::uint32_t>(b) ||
           (std::isnan(a) && std::isnan(b));
}

template <class Formula>
class SameBits : public testing::Test {};

using Formulas = testing::Types<AbsFormula, SqrtFormula, TruncateFormula, FloorFormula, FractionFormula,
                                SinFormula, CosFormula, SineOfBothFormula, CosineOfBothFormula, TanFormula,
                                AtanFormula, Atan2Formula, LogFormula, ExpFormula, PowFormula,
                                PowOfAllToOneFormula, PolynomialFormula, ChoiceFormula>;

struct FormulaNames {
    template <class Formula>
    static std::string GetName(int) {
        return Formula::kName;
    }
};

TYPED_TEST_SUITE(SameBits, Formulas, FormulaNames);

TYPED_TEST(SameBits, InEveryWidth) {
    const Arguments arguments = MakeArguments();
    const Floats expected = Applied(TypeParam(), LaneForm::One, arguments.a, arguments.b);
    for (const LaneForm form : RunnableLaneForms()) {
        const Floats results = Applied(TypeParam(), form, arguments.a, arguments.b);
        for (std::size_t i = 0; i < results.size(); ++i)
            ASSERT_PRED2(SameFloat, results[i], expected[i])
                << NameOf(form) << ", arguments " << arguments.a[i] << " and " << arguments.b[i];
    }
    tests::Checksum sum;
    for (const float result : expected)
        sum.Add(std::isnan(result) ? 0x7FC00000 : std::bit_cast<std::uint32_t>(result));
    tests::SayForEveryBuild(TypeParam::kName, sum.Get());
}

TEST(SameBits, OfSineAndCosineAloneAndTogether) {
    const Arguments arguments = MakeArguments();
    for (const float a : arguments.a) {
        const SineAndCosine<float> both = SinCos(a);
        ASSERT_PRED2(SameFloat, both.sine, Sin(a)) << a;
        ASSERT_PRED2(SameFloat, both.cosine, Cos(a)) << a;
    }
}

} // namespace
} // namespace orvane::zephor::single
