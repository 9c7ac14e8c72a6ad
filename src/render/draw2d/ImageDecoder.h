// Image files in memory, decoded by the imaging component.
#pragma once

#include "render/draw2d/Direct2D.h"

#include <cstdint>

namespace orvane::render {

// What is refused undecoded. A few hundred bytes can claim a picture of any size, and artwork comes from
// other people's files.
constexpr std::uint32_t kLargestImageSide = 16384;           // pixels
constexpr std::uint64_t kMostImagePixels = 64 * 1024 * 1024; // 256 MiB once decoded

// The first picture of the file as 32 bits a pixel, premultiplied blue, green, red, alpha; it reads `data` as
// long as it lives. Null if any step fails or the picture is too large.
[[nodiscard]] Microsoft::WRL::ComPtr<IWICBitmapSource> DecodeImage(const void* data, std::uint32_t size);

} // namespace orvane::render
