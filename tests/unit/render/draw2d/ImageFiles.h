// Image files made in the test: PNG by hand, so that it may claim anything; other kinds by the component.
#pragma once

#include "render/draw2d/Direct2D.h"

#include <cstdint>
#include <vector>

namespace orvane::render::tests {

using Bytes = std::vector<std::uint8_t>;

// A PNG file of 8-bit red, green, blue, alpha (not premultiplied), its data stored without compression.
// `rgba` holds width x height pixels.
[[nodiscard]] Bytes MakePng(std::uint32_t width, std::uint32_t height, const Bytes& rgba);

// A PNG file whose header claims that size, and whose data are those of a single pixel.
[[nodiscard]] Bytes MakeLyingPng(std::uint32_t width, std::uint32_t height);

// With a note of that many dots per metre.
[[nodiscard]] Bytes MakePngOfResolution(std::uint32_t width, std::uint32_t height, const Bytes& rgba,
                                        std::uint32_t dotsPerMetre);

// One colour, encoded by the component in one of its container formats; empty on failure.
[[nodiscard]] Bytes Encode(REFGUID container, std::uint32_t width, std::uint32_t height, std::uint8_t red,
                           std::uint8_t green, std::uint8_t blue);

} // namespace orvane::render::tests
