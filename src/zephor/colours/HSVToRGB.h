// Hue, saturation and value to bytes, in single precision.
#pragma once

#include <cstdint>

namespace orvane::zephor {

// `hue` counts turns, from red over green and blue: only its fraction counts. `saturation` and `value` are
// held within 0 to 1. What is no number counts as 0. Writes red, green, blue.
void HSVToRGB(float hue, float saturation, float value, std::uint8_t rgb[3]);

} // namespace orvane::zephor
