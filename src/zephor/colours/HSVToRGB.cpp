#include "zephor/colours/HSVToRGB.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace orvane::zephor {

namespace {

constexpr float kSextants = 6.0f;
constexpr float kFullScale = 65535.0f;

// Not a number gives 0: the comparison fails.
float Unit(float x) {
    return x > 0.0f ? std::min(x, 1.0f) : 0.0f;
}

// Below 1 even where the subtraction rounds up to it.
float Fraction(float x) {
    const float fraction = x - std::floor(x);
    return fraction < 1.0f ? fraction : 0.0f;
}

std::uint8_t Byte(float level) {
    const int whole = level > 0.0f ? int(level) : 0;
    return std::uint8_t(std::min(whole >> 8, 255));
}

} // namespace

void HSVToRGB(float hue, float saturation, float value, std::uint8_t rgb[3]) {
    const float turn = Fraction(hue) * kSextants;
    const int sextant = int(turn); // 0 to 5
    float f = turn - float(sextant);
    if (sextant % 2 == 0) f = 1.0f - f;
    const float s = Unit(saturation);
    const float v = Unit(value) * kFullScale;
    f *= s;

    enum Level { kV, kP, kQ };

    const std::uint8_t levels[] = { Byte(v), Byte((1.0f - s) * v), Byte((1.0f - f) * v) };
    static constexpr Level kTriples[6][3] = {
        { kV, kQ, kP }, { kQ, kV, kP }, { kP, kV, kQ }, { kP, kQ, kV }, { kQ, kP, kV }, { kV, kP, kQ },
    };
    for (int channel = 0; channel < 3; ++channel) rgb[channel] = levels[kTriples[sextant][channel]];
}

} // namespace orvane::zephor
