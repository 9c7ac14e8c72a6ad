// Lengths in pixels.
#pragma once

#include <cstdint>

namespace orvane::visualizer {

// `pixels` of a 96 DPI display on this one, rounded to whole pixels, halves up.
[[nodiscard]] int ScaleForDisplay(double pixels);

// The whole pixels of a length; 0 for what is below 0 or no number, and never more than fits.
[[nodiscard]] std::uint32_t WholePixels(double length);

} // namespace orvane::visualizer
