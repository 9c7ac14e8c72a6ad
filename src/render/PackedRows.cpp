#include "render/PackedRows.h"

#include <algorithm>
#include <limits>
#include <new>

namespace orvane::render {

namespace {

constexpr std::size_t kPlanes = 4; // bytes of a pixel, and strings of a row

constexpr int kNoDigit = -1;

int DigitValue(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return kNoDigit;
}

// One control byte and what follows it.
struct Run {
    std::size_t count = 0; // bytes that it stands for
    bool repeats = false;  // one byte `count` times, rather than `count` bytes

    explicit Run(std::uint8_t control) {
        const int c = control < 0x80 ? control : control - 0x100;
        repeats = c < 0;
        // KEEP: 0x80 is a run of 129, although the packing scheme elsewhere lets that byte mean nothing.
        // Pictures are made for this reader, so it stays. Pinned by PackedRows.ControlByte80IsARunOf129.
        count = std::size_t(repeats ? 1 - c : c + 1);
    }

    [[nodiscard]] std::size_t PackedBytes() const { return repeats ? 1 : count; }
};

bool Fits(std::uint64_t height, std::size_t rowBytes) {
    return height <= std::numeric_limits<std::uint32_t>::max() &&
           height <= std::numeric_limits<std::ptrdiff_t>::max() / rowBytes;
}

} // namespace

PackedRow ParsePackedRow(const char* text) {
    PackedRow row;
    while (text && row.size < PackedRow::kMostBytes) {
        const int high = DigitValue(text[0]);
        const int low = high == kNoDigit ? kNoDigit : DigitValue(text[1]);
        if (low == kNoDigit) break;
        row.bytes[row.size++] = std::uint8_t(high << 4 | low);
        text += 2;
    }
    return row;
}

std::size_t UnpackedLength(const PackedRow& row) {
    std::size_t length = 0;
    for (std::size_t at = 0; at < row.size;) {
        const Run run(row.bytes[at]);
        length += run.count;
        at += 1 + run.PackedBytes();
    }
    return length;
}

void UnpackRow(const PackedRow& row, std::uint8_t* out, std::size_t stride, std::size_t room) {
    std::size_t place = 0; // always a multiple of the stride
    for (std::size_t at = 0; at < row.size && place < room;) {
        const Run run(row.bytes[at]);
        for (std::size_t i = 0; i < run.count && place < room; ++i, place += stride) {
            const std::size_t from = at + 1 + (run.repeats ? 0 : i);
            if (from < row.size) out[place] = row.bytes[from];
        }
        at += 1 + run.PackedBytes();
    }
}

std::optional<PackedPicture> DecodePackedRows(const char* const rows[], std::uint64_t rowCount) {
    if (!rows || rowCount < kPlanes) return std::nullopt;
    PackedPicture picture;
    picture.width = std::uint32_t(UnpackedLength(ParsePackedRow(rows[0])));
    const std::uint64_t height = rowCount / kPlanes;
    if (picture.width < 1 || !Fits(height, picture.RowBytes())) return std::nullopt;
    picture.height = std::uint32_t(height);
    const std::size_t size = picture.RowBytes() * picture.height;
    picture.bytes.reset(new (std::nothrow) std::uint8_t[size]());
    if (!picture.bytes) return std::nullopt;
    // KEEP: a string that unpacks to more than the width goes on into the rows below, whose own strings then
    // write over it. It stays because rows need not say their width; only the end of the picture stops it.
    // Pinned by PackedRows.AStringLongerThanTheWidthRunsOnIntoTheNextRow.
    for (std::size_t y = 0; y < picture.height; ++y)
        for (std::size_t plane = 0; plane < kPlanes; ++plane) {
            const std::size_t place = y * picture.RowBytes() + plane;
            UnpackRow(ParsePackedRow(rows[y * kPlanes + plane]), &picture.bytes[place], kPlanes,
                      size - place);
        }
    return picture;
}

} // namespace orvane::render
