// Makes requests byte by byte, as a player would, for tests and fuzz seeds.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace orvane::tests {

using Bytes = std::vector<std::uint8_t>;

// Appends values little-endian; each call returns the builder, so that a request reads as one expression.
class WireBuilder {
public:
    WireBuilder& U8(std::uint8_t value);
    WireBuilder& U16(std::uint16_t value);
    WireBuilder& U32(std::uint32_t value);
    WireBuilder& U64(std::uint64_t value);
    WireBuilder& F32(float value);
    WireBuilder& Raw(std::string_view bytes);
    WireBuilder& Zeros(std::size_t count);

    // A string list: the bytes ' ', 'R', 'T', 'S', a 16-bit count, the units.
    WireBuilder& String(std::u16string_view text);

    [[nodiscard]] const Bytes& Get() const { return mBytes; }

private:
    Bytes mBytes;
};

// A track block with every field different from every other: word n holds 0x1000 + n, text n is "Text n" with
// the three that are shown named "Name", "Artist" and "Album".
[[nodiscard]] Bytes SampleTrackBlock();

// The same with other texts in place of the three that are shown.
[[nodiscard]] Bytes TrackBlock(std::u16string_view name, std::u16string_view artist,
                               std::u16string_view album);

[[nodiscard]] std::string AsText(std::span<const std::uint8_t> bytes);

} // namespace orvane::tests
