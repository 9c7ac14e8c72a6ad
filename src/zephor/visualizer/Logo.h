// The logo that greets whoever opens the classic visualizer.
#pragma once

#include "render/IRenderer.h"

#include <cstdint>
#include <span>
#include <vector>

namespace orvane::zephor {

// Each pixel holds a grey value four times: red, green, blue and alpha, premultiplied as it stands.
struct GreyImage {
    std::uint32_t width = 0, height = 0; // pixels
    std::vector<std::uint8_t> bytes;     // four a pixel, rows without a gap

    [[nodiscard]] std::uint32_t RowBytes() const { return width * 4; }
};

// Unpacks rows of hexadecimal run-length text (see render/PackedRows.h), one text a row, top to bottom. The
// first row alone gives the width: of another one, what lies beyond is cut and what is missing is 0. A width of 0
// for no rows or an empty first one.
[[nodiscard]] GreyImage UnpackGrey(std::span<const char* const> rows);

// The logo as a texture that can't be written later; null if the renderer refuses.
[[nodiscard]] render::TexturePtr MakeLogoTexture(render::IRenderer& renderer);

} // namespace orvane::zephor
