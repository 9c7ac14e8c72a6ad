#include "zephor/visualizer/Logo.h"

#include "render/Enumerations.h"
#include "render/PackedRows.h"
#include "zephor/visualizer/LogoData.h"

#include <algorithm>
#include <cstddef>

namespace orvane::zephor {

namespace {

constexpr std::size_t kBytesPerPixel = 4;

} // namespace

GreyImage UnpackGrey(std::span<const char* const> rows) {
    GreyImage image;
    if (rows.empty()) return image;
    image.width = std::uint32_t(render::UnpackedLength(render::ParsePackedRow(rows[0])));
    image.height = std::uint32_t(rows.size());
    const std::size_t rowBytes = image.RowBytes();
    image.bytes.resize(rowBytes * rows.size());
    if (image.width == 0) return image;
    std::uint8_t* row = image.bytes.data();
    for (const char* text : rows) {
        render::UnpackRow(render::ParsePackedRow(text), row, kBytesPerPixel, rowBytes);
        for (std::size_t x = 0; x < rowBytes; x += kBytesPerPixel)
            std::fill_n(row + x + 1, kBytesPerPixel - 1, row[x]);
        row += rowBytes;
    }
    return image;
}

render::TexturePtr MakeLogoTexture(render::IRenderer& renderer) {
    constexpr std::uint32_t kReserved = 0, kTextureUnit = 0;
    constexpr bool kDynamic = false;
    const GreyImage image = UnpackGrey(kLogoRows);
    if (image.width == 0) return nullptr;
    return render::TexturePtr(renderer.CreateTexture(image.bytes.data(), image.width, image.height,
                                                     image.RowBytes(), kReserved, render::kPixelFormat_RGBA8,
                                                     "Kelbo Logo", kTextureUnit, kDynamic));
}

} // namespace orvane::zephor
