// The maps whose formulas are laid down, against the same formulas in double precision.
#include "zephor/colourmaps/AllColourMaps.h"
#include "zephor/colourmaps/RandomHueColorMaps.h"

#include "support/ColourOracle.h"
#include "support/ScriptedRand.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdlib>
#include <functional>
#include <numbers>

namespace orvane::zephor {
namespace {

using tests::ExactHsv;
using tests::Exactly;
using tests::ScriptRand;

using Rgb = std::array<int, 3>;
using Formula = std::function<ExactHsv(double v)>;

Rgb ColourOf(std::int32_t id, float v) {
    std::uint8_t rgb[3] = {};
    AllColourMaps().FindComputed(id)->Map(v, rgb);
    return { rgb[0], rgb[1], rgb[2] };
}

// At all 256 intensities. A level next to a byte's edge may fall on either side.
void ExpectFormula(std::int32_t id, const Formula& formula) {
    for (int i = 0; i < 256; ++i) {
        const float v = float(i) / 255.0f;
        const Rgb colour = ColourOf(id, v), exact = tests::ExactColour(formula(v));
        for (std::size_t c = 0; c < 3; ++c)
            ASSERT_LE(std::abs(colour[c] - exact[c]), 1) << "intensity " << i << " channel " << c;
    }
}

TEST(Aqua, IsBlackAtZeroAndWhiteAtOne) {
    EXPECT_EQ(ColourOf(11, 0), (Rgb{ 0, 0, 0 }));
    EXPECT_EQ(ColourOf(11, 1), (Rgb{ 255, 255, 255 }));
}

TEST(Formulas, OfMapsWithoutTimeAndChance) {
    ExpectFormula(11, [](double v) -> ExactHsv { return { 0.45, std::pow(1 - v, 0.3), std::pow(v, 0.7) }; });
    ExpectFormula(19, [](double v) -> ExactHsv { return { 0.369, std::pow(1 - v, 0.3), std::pow(v, 0.7) }; });
    ExpectFormula(18, [](double v) -> ExactHsv { return { std::pow(v, 1.9) * 0.166, 1, std::pow(v, 0.9) }; });
    ExpectFormula(26, [](double v) -> ExactHsv { return { std::pow(v, 1.6), 1, v }; });
    ExpectFormula(48, [](double v) -> ExactHsv {
        return { 0.8 - v * v * std::sqrt(v) * 0.7, 0.99, std::sqrt(v) * v };
    });
}

TEST(Formulas, OfMapsWithTime) {
    for (const double time : { 0.0, 12.5, 100.0, 3000.0 }) {
        for (const std::int32_t id : { 13, 14, 17 }) AllColourMaps().FindComputed(id)->Reset(float(time));
        ExpectFormula(13, [&](double v) -> ExactHsv {
            return { time * 0.03, 1 - std::sqrt(v) * 0.6 * v * v, v };
        });
        ExpectFormula(17, [&](double v) -> ExactHsv {
            const double distance = std::abs(v - 0.5) + 0.5;
            return { time * 0.016 + v * 0.5, distance, distance };
        });
        ExpectFormula(14, [&](double v) -> ExactHsv {
            return { (std::sin(time * 0.004 + v * 3.1456) + std::sin(time * 0.08)) * 0.2 + 0.5,
                     std::cos(time * 0.05 + v * 12) * 0.4 + 0.6,
                     (std::sin(std::cos(time * 0.01) * v * 15 + time * 0.01) + std::cos(time * 0.1)) * 0.2 +
                         0.6 };
        });
    }
}

TEST(Formulas, ATimeDependentMapIsAStillPictureUntilItsNextReset) {
    CLUTProc* wheel = AllColourMaps().FindComputed(13);
    wheel->Reset(0.0f); // red
    EXPECT_EQ(ColourOf(13, 0.5f)[2], ColourOf(13, 0.5f)[1]);
    EXPECT_GT(ColourOf(13, 0.5f)[0], ColourOf(13, 0.5f)[1]);
    wheel->Reset(10.0f); // 0.3 of a turn: green
    EXPECT_GT(ColourOf(13, 0.5f)[1], ColourOf(13, 0.5f)[0]);
}

TEST(Formulas, OfMapsWithRandomParameters) {
    const int number = ScriptRand({ { 20000, 20100 } })[0];
    const double hue = number / 32767.0;
    for (const std::int32_t id : { 15, 45 }) {
        ScriptRand({ Exactly(number) });
        AllColourMaps().FindComputed(id)->Reset(1.0f);
    }
    ExpectFormula(15, [&](double v) -> ExactHsv { return { hue, std::pow(v, 2.9), std::pow(v, 0.9) }; });
    ExpectFormula(45, [&](double v) -> ExactHsv {
        return { hue, std::sqrt(1 - v) * (1 - v), std::pow(v, 1.3) };
    });
}

TEST(Formulas, ColorGapDrawsItsHueAndThenItsSaturation) {
    const std::vector<int> drawn = ScriptRand({ Exactly(10000), { 16000, 17000 } });
    AllColourMaps().FindComputed(12)->Reset(0.0f);
    const auto* gap = dynamic_cast<ColorGapColorMap*>(AllColourMaps().FindComputed(12));
    ASSERT_NE(gap, nullptr);
    EXPECT_NEAR(gap->hue, 10000 / 32767.0, 1e-6);
    EXPECT_NEAR(gap->saturation, 0.5 + 0.3 * drawn[1] / 32767.0, 1e-6);
    ExpectFormula(12, [&](double v) -> ExactHsv {
        const double c = std::cos((1 - v) * 5 * std::numbers::pi);
        return { 10000 / 32767.0, 0.5 + 0.3 * drawn[1] / 32767.0, c * v * 0.3 + c * 0.2 + v * 0.3 + 0.2 };
    });
}

TEST(Formulas, RandomParametersReachBothEndsOfTheirRanges) {
    auto* gap = dynamic_cast<ColorGapColorMap*>(AllColourMaps().FindComputed(12));
    ASSERT_NE(gap, nullptr);
    ScriptRand({ Exactly(0), { 0, 10 } });
    gap->Reset(0.0f);
    EXPECT_EQ(gap->hue, 0.0f);
    EXPECT_NEAR(gap->saturation, 0.5, 1e-4);
    ScriptRand({ Exactly(32767), { 32757, 32767 } });
    gap->Reset(0.0f);
    EXPECT_EQ(gap->hue, 1.0f); // as good as 0
    EXPECT_NEAR(gap->saturation, 0.8, 1e-4);
}

TEST(Jellyfish, HasAWhiteLineAtIntensity14) {
    const int number = ScriptRand({ Exactly(16384) })[0];
    AllColourMaps().FindComputed(46)->Reset(0.0f);
    EXPECT_EQ(ColourOf(46, 14 / 255.0f), (Rgb{ 255, 255, 255 }));
    ExpectFormula(46, [&](double v) -> ExactHsv {
        const double line = v * 255 > 13.85 && v * 255 < 14.15 ? 1 : 0;
        return { number / 32767.0, std::pow(1 - v, 0.7) - line, std::pow(v, 0.7) + line };
    });
}

TEST(Jellyfish, TheLinesEdgesBelongToIt) {
    EXPECT_EQ(ColourOf(46, 139.2f / 2550), (Rgb{ 255, 255, 255 }));
    EXPECT_EQ(ColourOf(46, 140.8f / 2550), (Rgb{ 255, 255, 255 }));
    EXPECT_NE(ColourOf(46, 138.8f / 2550), (Rgb{ 255, 255, 255 }));
    EXPECT_NE(ColourOf(46, 141.2f / 2550), (Rgb{ 255, 255, 255 }));
}

} // namespace
} // namespace orvane::zephor
