// A colour for each of the 256 intensities of the feedback image.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace orvane::zephor {

constexpr std::size_t kColourEntries = 256;

// Red, green, blue.
using ColourBytes = std::array<std::uint8_t, 3>;
using ColourTable = std::array<ColourBytes, kColourEntries>;

} // namespace orvane::zephor
