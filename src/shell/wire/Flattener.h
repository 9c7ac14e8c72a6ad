// Typed values into a reply, big-endian, one byte at a time.
//
// A value that doesn't fit writes nothing, prints "Insufficient space in the flattener." and the caller goes
// on with its next one; the reply is then simply shorter.
#pragma once

#include "records/StringBlock.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace orvane::shell {

// A view of the reply's buffer; owns nothing.
struct Flattener {
    std::uint8_t* mCursor = nullptr; // where the next byte goes
    std::uint8_t* mEnd = nullptr;    // one past the last writable byte
    std::uint8_t* mStart = nullptr;
    std::uint64_t mCapacity = 0;

    Flattener(std::uint8_t* start, std::uint64_t capacity)
        : mCursor(start)
        , mEnd(start + capacity)
        , mStart(start)
        , mCapacity(capacity) {}

    // The reply's length so far, in bytes.
    [[nodiscard]] std::size_t Length() const { return std::size_t(mCursor - mStart); }
};

void PutUInt8(Flattener& flattener, std::uint8_t value);
void PutUInt16(Flattener& flattener, std::uint16_t value);
void PutUInt32(Flattener& flattener, std::uint32_t value);

// Puts the smaller of `limit` and the block's count, then that many units, each checked by itself. No key
// word stands in front: that exists in requests alone. Never reads beyond the block, whatever it claims.
template <std::size_t Capacity>
void PutString(Flattener& flattener, const records::UnitBlock<Capacity>& block, std::uint16_t limit) {
    const auto count = std::min<std::size_t>({ limit, block.count, Capacity });
    PutUInt16(flattener, std::uint16_t(count));
    for (std::size_t i = 0; i < count; ++i) PutUInt16(flattener, block.units[i]);
}

} // namespace orvane::shell
