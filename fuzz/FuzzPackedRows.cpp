// Packed text rows made of any bytes: nothing is read or written outside the strings and the picture.
#include "render/PackedRows.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <vector>

namespace {

using namespace orvane::render;

// The first byte says how the rest is taken. Bit 0: as it is, cut into strings at line feeds, or else as
// packed bytes, which are spelled out in hexadecimal so that most inputs are well formed.
std::vector<std::unique_ptr<char[]>> Strings(const std::uint8_t* data, std::size_t size, bool spell) {
    std::vector<std::unique_ptr<char[]>> strings;
    const std::uint8_t* const end = data + size;
    while (data < end) {
        const auto* cut = static_cast<const std::uint8_t*>(std::memchr(data, '\n', std::size_t(end - data)));
        if (!cut) cut = end;
        // A heap block of exactly the string's size: a read past its end is seen.
        const auto length = std::size_t(cut - data);
        auto text = std::make_unique<char[]>(spell ? 2 * length + 1 : length + 1);
        for (std::size_t i = 0; i < length; ++i) {
            if (spell) {
                text[2 * i] = "0123456789ABCDEF"[data[i] >> 4];
                text[2 * i + 1] = "0123456789ABCDEF"[data[i] & 15];
            } else {
                text[i] = char(data[i]);
            }
        }
        strings.push_back(std::move(text));
        data = cut + (cut < end ? 1 : 0);
    }
    return strings;
}

void Check(bool holds) {
    if (!holds) std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const auto strings = Strings(data + 1, size - 1, (data[0] & 1) != 0);
    // A block of exactly the count's size, too.
    const auto rows = std::make_unique<const char*[]>(strings.size());
    for (std::size_t i = 0; i < strings.size(); ++i) rows[i] = strings[i].get();
    const auto picture = DecodePackedRows(rows.get(), strings.size());
    if (picture) {
        Check(picture->width == UnpackedLength(ParsePackedRow(rows[0])) && picture->width > 0);
        Check(picture->height == strings.size() / 4 && picture->height > 0);
    } else {
        Check(strings.size() < 4 || UnpackedLength(ParsePackedRow(rows[0])) == 0);
    }
    return 0;
}
