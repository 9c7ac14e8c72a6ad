// The logo's picture as rows of text.
#pragma once

#include <array>
#include <cstddef>

namespace orvane::zephor {

constexpr std::size_t kLogoSide = 200; // pixels

// One string for each row of pixels, top to bottom, in the form of render/PackedRows.h: it unpacks to kLogoSide
// bytes of grey, which is the opacity too. tools/draw-logo draws the picture, tools/pack-logo packs it.
extern const std::array<const char*, kLogoSide> kLogoRows;

} // namespace orvane::zephor
