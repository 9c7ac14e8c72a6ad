// Typed values into a request, little-endian, in the order in which they are written.
#pragma once

#include "player/protocol/Outcome.h"

#include <cstdint>
#include <span>
#include <string_view>
#include <utility>

namespace orvane::player {

class RequestWriter {
public:
    // Begins with the tag's four characters, the most significant byte of its value first.
    explicit RequestWriter(std::uint32_t tag);

    RequestWriter& U8(std::uint8_t value);
    RequestWriter& U16(std::uint16_t value);
    RequestWriter& U32(std::uint32_t value);
    RequestWriter& U64(std::uint64_t value);
    RequestWriter& F32(float value);
    RequestWriter& Raw(std::span<const std::uint8_t> bytes);
    RequestWriter& Raw(std::string_view text);
    RequestWriter& Units(std::u16string_view text); // without a count

    // A string list: its key, a count, the units. What is longer than 255 units is cut there.
    RequestWriter& String(std::u16string_view text);

    // The request as it is to be sent; the writer is empty after that.
    [[nodiscard]] Bytes Take() { return std::move(mBytes); }

private:
    Bytes mBytes;
};

} // namespace orvane::player
