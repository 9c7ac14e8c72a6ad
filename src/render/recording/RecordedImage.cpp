#include "render/recording/RecordedImage.h"

#include "render/Enumerations.h"

#include <algorithm>
#include <cstring>

namespace orvane::render {
namespace {

constexpr std::uint64_t kFnvStart = 0xCBF29CE484222325, kFnvPrime = 0x100000001B3;

std::uint64_t Mix(std::uint64_t hash, std::span<const std::byte> bytes) {
    for (const std::byte byte : bytes) hash = (hash ^ std::to_integer<std::uint64_t>(byte)) * kFnvPrime;
    return hash;
}

} // namespace

std::span<const std::byte> RecordedImage::Row(std::uint32_t y) const {
    const std::size_t rowBytes = std::size_t(width) * BytesPerTexel(pixelFormat);
    return std::span(bytes).subspan(std::size_t(y) * rowPitch, rowBytes);
}

std::uint32_t RecordedImage::Texel(std::uint32_t x, std::uint32_t y) const {
    const std::size_t texelBytes = BytesPerTexel(pixelFormat);
    const auto texel = Row(y).subspan(x * texelBytes, texelBytes);
    std::uint32_t value = 0;
    std::memcpy(&value, texel.data(), std::min(texel.size(), sizeof value));
    return value;
}

std::uint64_t RecordedImage::Digest() const {
    const std::uint32_t shape[] = { width, height, pixelFormat };
    std::uint64_t hash = Mix(kFnvStart, std::as_bytes(std::span(shape)));
    for (std::uint32_t y = 0; y < height; ++y) hash = Mix(hash, Row(y));
    return hash;
}

RecordedImage& RecordedResource::Discard(bool spoil) {
    const bool seenByRecords = image.use_count() > 1;
    if (seenByRecords) {
        auto fresh = std::make_shared<RecordedImage>();
        *fresh = { image->width, image->height, image->pixelFormat, image->rowPitch, {} };
        fresh->bytes.resize(image->bytes.size());
        image = std::move(fresh);
    }
    if (spoil) std::ranges::fill(image->bytes, kSpoiled);
    ++fills;
    return *image;
}

} // namespace orvane::render
