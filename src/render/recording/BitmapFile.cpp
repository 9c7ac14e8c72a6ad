#include "render/recording/BitmapFile.h"

#include "render/Enumerations.h"

#include <cstdlib>
#include <cstring>
#include <new>

namespace orvane::render {
namespace {

// Where the fields of the two headings stand, in bytes from the start of the file.
constexpr std::size_t kPixelsOffset = 10, kWidth = 18, kHeight = 22, kBits = 28, kCompression = 30;
constexpr std::size_t kHeadingsSize = 54;

template <typename Field>
Field FieldAt(std::span<const std::byte> file, std::size_t offset) {
    Field field;
    std::memcpy(&field, file.data() + offset, sizeof field);
    return field;
}

struct Layout {
    std::size_t width, height, pixelBytes, rowBytes, start;
    bool topDown;
};

std::optional<Layout> LayoutOf(std::span<const std::byte> file) {
    if (file.size() < kHeadingsSize || std::memcmp(file.data(), "BM", 2) != 0) return std::nullopt;
    const auto width = FieldAt<std::int32_t>(file, kWidth);
    const auto signedHeight = FieldAt<std::int32_t>(file, kHeight);
    const auto bits = FieldAt<std::uint16_t>(file, kBits);
    const bool plain = (bits == 24 || bits == 32) && FieldAt<std::uint32_t>(file, kCompression) == 0;
    const std::int64_t height = std::llabs(signedHeight);
    if (!plain || width < 1 || width > int(kLargestTextureSide) || height < 1 || height > kLargestTextureSide)
        return std::nullopt;
    const std::size_t pixelBytes = bits / 8u, rowBytes = (std::size_t(width) * pixelBytes + 3) / 4 * 4;
    const std::size_t start = FieldAt<std::uint32_t>(file, kPixelsOffset);
    if (start > file.size() || rowBytes * std::size_t(height) > file.size() - start) return std::nullopt;
    return Layout{ std::size_t(width), std::size_t(height), pixelBytes, rowBytes, start, signedHeight < 0 };
}

} // namespace

std::optional<PackedPicture> DecodeBitmapFile(std::span<const std::byte> file) {
    constexpr std::size_t kColours = 3, kPixelBytes = 4;
    const std::optional<Layout> layout = LayoutOf(file);
    if (!layout) return std::nullopt;
    PackedPicture picture;
    picture.width = static_cast<std::uint32_t>(layout->width);
    picture.height = static_cast<std::uint32_t>(layout->height);
    picture.bytes.reset(new (std::nothrow) std::uint8_t[picture.RowBytes() * layout->height]);
    if (!picture.bytes) return std::nullopt;
    for (std::size_t y = 0; y < layout->height; ++y) {
        const std::size_t row = layout->topDown ? y : layout->height - 1 - y;
        const std::byte* from = file.data() + layout->start + row * layout->rowBytes;
        std::uint8_t* to = picture.bytes.get() + y * picture.RowBytes();
        for (std::size_t x = 0; x < layout->width; ++x, from += layout->pixelBytes, to += kPixelBytes) {
            std::memcpy(to, from, kColours);
            to[kColours] = 255;
        }
    }
    return picture;
}

} // namespace orvane::render
