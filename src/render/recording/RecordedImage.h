// Texels as a recorded draw saw them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace orvane::render {

struct RecordedImage {
    std::uint32_t width = 0, height = 0;
    std::uint32_t pixelFormat = 0;
    std::uint32_t rowPitch = 0; // bytes from row to row, at least a row's own
    std::vector<std::byte> bytes;

    // The texels of one row, without what pads it.
    [[nodiscard]] std::span<const std::byte> Row(std::uint32_t y) const;

    // The first four bytes of a texel, or its only one, in memory order.
    [[nodiscard]] std::uint32_t Texel(std::uint32_t x, std::uint32_t y) const;

    // Equal for equal sizes, formats and texels: a 64-bit FNV-1a, padding left out.
    [[nodiscard]] std::uint64_t Digest() const;
};

using RecordedImagePtr = std::shared_ptr<const RecordedImage>;

// A texture or array as the device knows it. It outlives its ITexture while a unit or a record refers to it.
struct RecordedResource {
    std::string name;
    std::uint32_t textureUnit = 0;
    bool dynamic = true;
    bool alive = true;       // its ITexture or IBufferTexture still exists
    std::uint32_t fills = 0; // times that it was written after its creation
    std::shared_ptr<RecordedImage> image;

    // The image to be written anew, its old bytes spoiled if asked for. What records hold stays as it was.
    RecordedImage& Discard(bool spoil);
};

using RecordedResourcePtr = std::shared_ptr<RecordedResource>;

// What memory holds after its contents were discarded: as floats no numbers, as texels a bright white.
constexpr std::byte kSpoiled{ 0xFF };

} // namespace orvane::render
