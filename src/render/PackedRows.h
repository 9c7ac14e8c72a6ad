// Images that stand in the program's own data as rows of text.
//
// A string is hexadecimal text, two upper-case digits to a byte. Its bytes are packed by runs: a control byte
// c, read as signed, is followed by c + 1 bytes as they are (c >= 0), or by one byte that counts 1 - c times
// (c < 0). A picture has four strings for each row of pixels: the first, second, third and fourth byte of
// each pixel in memory order (blue, green, red, premultiplied alpha).
//
// Nothing here reads or writes outside what it was given, whatever a string claims.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>

namespace orvane::render {

// The packed bytes of one string.
struct PackedRow {
    static constexpr std::size_t kMostBytes = 1024;

    std::array<std::uint8_t, kMostBytes> bytes;
    std::size_t size = 0;
};

// The bytes of a zero-terminated string. The text ends at the first character that is no upper-case digit; an
// odd last digit and all bytes beyond 1024 are dropped. Null counts as empty.
[[nodiscard]] PackedRow ParsePackedRow(const char* text);

// How many bytes the row unpacks to, by its control bytes: a last run counts in full though its bytes may be
// missing.
[[nodiscard]] std::size_t UnpackedLength(const PackedRow& row);

// Writes the unpacked bytes to out[0], out[stride], out[2 * stride] and so on, as long as they lie within
// `room` bytes from `out`. A place whose byte is missing keeps its value. `stride` is at least 1.
void UnpackRow(const PackedRow& row, std::uint8_t* out, std::size_t stride, std::size_t room);

struct PackedPicture {
    std::uint32_t width = 0, height = 0; // pixels, at least 1 each
    std::unique_ptr<std::uint8_t[]> bytes;

    // The distance between rows, in bytes: rows follow one another without a gap.
    [[nodiscard]] std::size_t RowBytes() const { return std::size_t(width) * 4; }
};

// The picture of rowCount / 4 rows; the first string alone gives its width. Nothing without rows, for fewer
// than four strings, for a width of 0, and when memory doesn't suffice.
[[nodiscard]] std::optional<PackedPicture> DecodePackedRows(const char* const rows[], std::uint64_t rowCount);

} // namespace orvane::render
