#include "zephor/colours/HSVToRGB.h"

#include "support/ColourOracle.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace orvane::zephor {
namespace {

using Rgb = std::array<int, 3>;

Rgb Colour(float h, float s, float v) {
    std::uint8_t rgb[3] = { 1, 2, 3 };
    HSVToRGB(h, s, v, rgb);
    return { rgb[0], rgb[1], rgb[2] };
}

TEST(HSVToRGB, TheSixthsOfTheWheel) {
    EXPECT_EQ(Colour(0.0f, 1, 1), (Rgb{ 255, 0, 0 }));
    EXPECT_EQ(Colour(0.5f, 1, 1), (Rgb{ 0, 255, 255 }));
    // 0.25 turns are sextant 1, halfway: Q is half of 65535, 32767, in bytes 127.
    EXPECT_EQ(Colour(0.25f, 1, 1), (Rgb{ 127, 255, 0 }));
    EXPECT_EQ(Colour(0.75f, 1, 1), (Rgb{ 127, 0, 255 }));
    // An eighth is 0.75 of sextant 0, which is even: f = 0.25, Q = 0.75 of 65535.
    EXPECT_EQ(Colour(0.125f, 1, 1), (Rgb{ 255, 191, 0 }));
    EXPECT_EQ(Colour(0.375f, 1, 1), (Rgb{ 0, 255, 63 }));
    EXPECT_EQ(Colour(0.625f, 1, 1), (Rgb{ 0, 63, 255 }));
    EXPECT_EQ(Colour(0.875f, 1, 1), (Rgb{ 255, 0, 191 }));
}

TEST(HSVToRGB, AHueOfExactlyOneReducesToZero) {
    EXPECT_EQ(Colour(1.0f, 1, 1), Colour(0.0f, 1, 1));
    EXPECT_EQ(Colour(1.0f, 1, 1), (Rgb{ 255, 0, 0 }));
}

TEST(HSVToRGB, OnlyTheFractionOfAHueCounts) {
    EXPECT_EQ(Colour(7.25f, 1, 1), Colour(0.25f, 1, 1));
    EXPECT_EQ(Colour(-0.75f, 1, 1), Colour(0.25f, 1, 1));
    EXPECT_EQ(Colour(-3.0f, 1, 1), Colour(0.0f, 1, 1));
}

TEST(HSVToRGB, AHueAHairBelowZeroIsRed) {
    // The fraction rounds up to 1 there.
    EXPECT_EQ(Colour(-1e-9f, 1, 1), (Rgb{ 255, 0, 0 }));
}

TEST(HSVToRGB, SaturationAndValueAreHeldWithinZeroAndOne) {
    EXPECT_EQ(Colour(0.25f, 1.5f, 2), Colour(0.25f, 1, 1));
    EXPECT_EQ(Colour(0.25f, -0.5f, 1), (Rgb{ 255, 255, 255 }));
    EXPECT_EQ(Colour(0.25f, 1, -0.1f), (Rgb{ 0, 0, 0 }));
    EXPECT_EQ(Colour(0.25f, 0, 0.5f), (Rgb{ 127, 127, 127 }));
}

TEST(HSVToRGB, WhatIsNoNumberCountsAsZero) {
    constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
    constexpr float kInfinity = std::numeric_limits<float>::infinity();
    for (const float hue : { kNaN, kInfinity, -kInfinity }) EXPECT_EQ(Colour(hue, 1, 1), (Rgb{ 255, 0, 0 }));
    EXPECT_EQ(Colour(0, kNaN, 1), (Rgb{ 255, 255, 255 }));
    EXPECT_EQ(Colour(0, 1, kNaN), (Rgb{ 0, 0, 0 }));
    EXPECT_EQ(Colour(0, kInfinity, kInfinity), (Rgb{ 255, 0, 0 }));
}

TEST(HSVToRGB, AgreesWithDoublePrecisionAllOverTheWheel) {
    for (int h = -50; h <= 150; ++h)
        for (int s = 0; s <= 10; ++s)
            for (int v = 0; v <= 10; ++v) {
                const float hue = float(h) * 0.0107f, saturation = float(s) * 0.1f, value = float(v) * 0.1f;
                const Rgb exact = tests::ExactColour({ hue, saturation, value });
                const Rgb colour = Colour(hue, saturation, value);
                for (std::size_t c = 0; c < 3; ++c)
                    ASSERT_LE(std::abs(colour[c] - exact[c]), 1)
                        << hue << ' ' << saturation << ' ' << value << " channel " << c;
            }
}

} // namespace
} // namespace orvane::zephor
