// Uncompressed bitmap files, the one image format that the recording canvas reads: any platform's decoder
// reads it too, so a test has the same artwork everywhere.
#pragma once

#include "render/PackedRows.h"

#include <cstddef>
#include <optional>
#include <span>

namespace orvane::render {

// The opaque picture of a file with 24 or 32 bits for each pixel, rows in either order. Nothing for any other
// file, for one whose pixels aren't all there, and for sides above 16384.
[[nodiscard]] std::optional<PackedPicture> DecodeBitmapFile(std::span<const std::byte> file);

} // namespace orvane::render
