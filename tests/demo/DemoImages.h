// The pictures of the demonstration, made by formula.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

namespace orvane::demo {

constexpr std::uint32_t kImageSide = 128; // texels
constexpr std::uint32_t kTableEntries = 256;

using Rgba = std::array<float, 4>;

// A colour of full brightness; a turn of 1 goes once round the wheel.
[[nodiscard]] Rgba ColourOfTurn(double turn, float alpha);

// Four unsigned bytes a texel, red first.
[[nodiscard]] std::vector<std::uint32_t> RingsImage(); // white rings on colour, clear outside a disc
[[nodiscard]] std::vector<std::uint32_t> GlowImage();  // a white spot that fades out, on black
[[nodiscard]] std::vector<std::uint32_t> TilesImage(); // four quarters of four colours with a frame

// The rings as a bitmap file of 24 bits a pixel, for an image decoder.
[[nodiscard]] std::vector<std::uint8_t> RingsFile();

// One index a texel: waves that wander with the time.
[[nodiscard]] std::vector<std::uint8_t> WavesImage(double seconds);

// A table of colours for it, turning with the time.
[[nodiscard]] std::vector<Rgba> WheelTable(double seconds);

} // namespace orvane::demo
