// Hue, saturation and value to channels in double precision, by the piecewise-linear form that knows no
// sextants: an oracle for the maps.
#pragma once

#include <algorithm>
#include <array>
#include <cmath>

namespace orvane::tests {

struct ExactHsv {
    double hue, saturation, value;
};

// Red, green, blue as 0 to 255: the 16-bit level divided by 256, as maps do it.
inline std::array<int, 3> ExactColour(const ExactHsv& colour) {
    const double s = std::clamp(colour.saturation, 0.0, 1.0), v = std::clamp(colour.value, 0.0, 1.0);
    const double turn = colour.hue - std::floor(colour.hue);
    const auto channel = [&](double offset) {
        const double k = std::fmod(offset + turn * 6, 6);
        const double level = v - v * s * std::clamp(std::min(k, 4 - k), 0.0, 1.0);
        return int(level * 65535 / 256);
    };
    return { channel(5), channel(3), channel(1) };
}

} // namespace orvane::tests
