// Each member's answers against the oracle of its definition, its draws among them, and some worked out by hand.
#include "unit/zephor/deltafields/Fields.h"
#include "unit/zephor/deltafields/MemberOracle.h"
#include "unit/zephor/deltafields/NamedMember.h"

#include <gtest/gtest.h>

#include <cctype>
#include <cmath>
#include <cstdint>
#include <memory>
#include <string>

namespace orvane::zephor {
namespace {

using tests::FactoryNamed;
using tests::MakeNamed;
using tests::OracleFormula;
using tests::OraclePoint;
using tests::OracleRandom;
using tests::OracleRow;
using tests::SeedNextDraw;
using tests::TestField;

constexpr double kTolerance = 3e-6; // some ulps of a number between 1 and 4, and of the formula's steps

OraclePoint Asked(const DeltafieldFunctor& functor, float first, float second) {
    if (functor.flags.isPolar) {
        const auto [r, theta] = functor.MapPolar(first, second);
        return { double(r), double(theta) };
    }
    const auto [x, y] = functor.MapCartesian(first, second);
    return { x, y };
}

void ExpectNear(double result, double expected, const std::string& where) {
    EXPECT_NEAR(result, expected, kTolerance * (1 + expected * expected)) << where;
}

class Members : public testing::TestWithParam<OracleRow> {};

TEST_P(Members, AnswerAsDefinedAndDrawAsOftenAndInOrder) {
    const OracleRow& row = GetParam();
    ASSERT_NE(FactoryNamed(row.name), nullptr);
    const DeltaFactory factory = FactoryNamed(row.name);
    for (const std::uint32_t seed : { 1u, 2u, 77u, 4068u, 123456789u }) {
        platform::SeedRand(seed);
        OracleRandom random(seed);
        const std::unique_ptr<DeltafieldFunctor> functor = factory();
        const OracleFormula oracle = row.make(random);
        EXPECT_EQ(functor->flags.isPolar, row.isPolar);
        constexpr int kSteps = 17; // no step falls on the singular places of a formula
        for (int i = 0; i < kSteps; ++i) {
            for (int j = 0; j < kSteps; ++j) {
                const float u = (float(i) + 0.4f) / kSteps, v = (float(j) + 0.3f) / kSteps * 2 - 1;
                const float first = row.isPolar ? u * 1.41f : u * 2 - 1,
                            second = row.isPolar ? v * 3.1415f : v;
                const OraclePoint result = Asked(*functor, first, second);
                const OraclePoint expected = oracle(double(first), double(second), random);
                const std::string where = std::string(row.name) + " at " + std::to_string(first) + ", " +
                                          std::to_string(second) + ", seed " + std::to_string(seed);
                ExpectNear(result.first, expected.first, where + ", first");
                ExpectNear(result.second, expected.second, where + ", second");
                if (HasFailure()) return;
            }
        }
        EXPECT_EQ(platform::Rand(), random.Next()) << row.name << ": as many draws as defined";
    }
}

std::string TestNameOf(const testing::TestParamInfo<OracleRow>& row) {
    std::string name;
    for (const char* c = row.param.name; *c != 0; ++c)
        if (std::isalnum(static_cast<unsigned char>(*c)) != 0) name += *c;
    return name;
}

INSTANTIATE_TEST_SUITE_P(Oracles, Members, testing::ValuesIn(tests::MemberOracles()), TestNameOf);

TEST(MembersByHand, PointsOfFormulasWithoutParameters) {
    const auto expect = [](const char* name, float first, float second, double a, double b) {
        const OraclePoint result = Asked(*MakeNamed(name), first, second);
        EXPECT_NEAR(result.first, a, 1e-6) << name;
        EXPECT_NEAR(result.second, b, 1e-6) << name;
    };
    expect("Tripping Hard", 0.5f, 1.0f, 0.33, 0.799);
    expect("Constant Out", 0.004f, 2.0f, -0.006, 2.0);
    expect("Simple Sine Sphere", 0.25f, 0.0f, 0.27, 0.015);  // the sine of a quarter turn
    expect("Radial Breakaway", 0.55f, 0.0f, 0.55, -0.01);    // the arc tangent of 0
    expect("Gravity Ball", 1.0f / 15, 3.0f, 0.92 / 15, 3.0); // the logarithm of 1
    expect("The MAW", 0.324f, 0.25f, 0.3359, 0.25);          // a factor of 0
    expect("Boxilight", 0.0f, 0.0f, 0.0, 0.0);
    expect("SOLs Base", 0.5f, 1.0f, 0.52499995, 1.006);
    expect("Julia Seahorse", 0.0f, 0.0f, -0.74543 * 0.6535948, 0.12697752);
    expect("Standard Map", 0.2f, 0.5f, 0.2 - 1 / 3.1415927, 0.7 - 1 / 3.1415927);
    expect("Tunnel", 0.7f, 0.0f, std::sin(0.7), 0.0);
    expect("Weierstrauss Spread", 0.0f, 0.5f, 0.0, 0.5 + 0.00984375); // all cosines are 1
    expect("Once Upon A Time", 0.5f, 1.0f, 0.508, 0.95);
}

// An 8 x 8 field: column 6 and row 4 are x = 0.5 and y = 0, so r is 0.5 and theta 0.
TEST(MembersByHand, CellsOfASmallField) {
    TestField field(8, 8);
    ComputeDeltaField(field.Get(), *MakeNamed("Collapse & Turn"));
    EXPECT_NEAR(field.Cell(6, 4).x, (std::cos(0.021) * 0.505 + 1) * 4, 1e-6);
    EXPECT_NEAR(field.Cell(6, 4).y, (std::sin(0.021) * 0.505 + 1) * 4, 1e-6);
    ComputeDeltaField(field.Get(), *MakeNamed("SOLs Base"));
    EXPECT_NEAR(field.Cell(6, 4).x, (0.9187499 * 0.5 + 1) * 4, 1e-6);
    EXPECT_NEAR(field.Cell(6, 4).y, (0.036 + 1) * 4, 1e-6);
}

TEST(MembersByHand, NoiseReachesTheEndsOfItsRange) {
    const auto expect = [](const char* name, int draw, double a) {
        const std::unique_ptr<DeltafieldFunctor> functor = MakeNamed(name);
        SeedNextDraw(draw);
        EXPECT_NEAR(Asked(*functor, 1.0f, 0.0f).first, a, 1e-6) << name << ", " << draw;
    };
    expect("Scattered Flow out", 0, 0.93);
    expect("Scattered Flow out", 32767, 0.98);
}

TEST(MembersByHand, NoiseForYIsDrawnFirst) {
    for (const char* name : { "Linear Spread", "Phantom Mist", "SOLs Warp", "Gravity" }) {
        const std::unique_ptr<DeltafieldFunctor> functor = MakeNamed(name);
        // Of the same second draw and a first one of 0 and of nearly all: only y may differ.
        std::uint32_t seed = 0;
        OraclePoint low{}, high{};
        for (int found = 0; found < 2; ++seed) {
            OracleRandom random(seed);
            const int first = random.Next(), second = random.Next();
            if (second / 64 != 100 || (found == 0 ? first > 300 : first < 32400)) continue;
            platform::SeedRand(seed);
            (found++ == 0 ? low : high) = Asked(*functor, 0.25f, 0.5f);
        }
        EXPECT_NEAR(low.first, high.first, 0.01 * 64 / 32768) << name;
        EXPECT_GT(std::abs(high.second - low.second), 0.004) << name;
    }
}

} // namespace
} // namespace orvane::zephor
