// Bitmap files written by hand, field after field.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

namespace orvane::render {

// A file around `pixels`, which are the rows as they stand in the file. A negative height is top-down.
inline std::vector<std::byte> BitmapFileBytes(std::int32_t width, std::int32_t height, std::uint16_t bits,
                                              const std::vector<std::uint8_t>& pixels,
                                              std::uint32_t compression = 0) {
    std::vector<std::byte> file;
    const auto put = [&file](auto field) {
        const std::size_t at = file.size();
        file.resize(at + sizeof field);
        std::memcpy(file.data() + at, &field, sizeof field);
    };
    put('B');
    put('M');
    put(std::uint32_t(54 + pixels.size()));
    put(std::uint32_t(0));
    put(std::uint32_t(54)); // where the pixels are
    put(std::uint32_t(40)); // size of the second heading
    put(width);
    put(height);
    put(std::uint16_t(1));
    put(bits);
    put(compression);
    for (int word = 0; word < 5; ++word) put(std::uint32_t(0));
    for (const std::uint8_t pixel : pixels) put(pixel);
    return file;
}

} // namespace orvane::render
