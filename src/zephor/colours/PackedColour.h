// Colours as 0x00RRGGBB.
#pragma once

#include "zephor/colours/ColourTable.h"

#include <cstdint>

namespace orvane::zephor {

[[nodiscard]] constexpr std::uint32_t PackColour(const ColourBytes& c) {
    return std::uint32_t(c[0]) << 16 | std::uint32_t(c[1]) << 8 | c[2];
}

[[nodiscard]] constexpr ColourBytes UnpackColour(std::uint32_t packed) {
    return { std::uint8_t(packed >> 16), std::uint8_t(packed >> 8), std::uint8_t(packed) };
}

} // namespace orvane::zephor
