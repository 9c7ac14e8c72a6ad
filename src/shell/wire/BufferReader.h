// Typed values out of a received request.
//
// Requests are little-endian, and so is every value read here, straight from the buffer; replies built with
// a Flattener are big-endian. The two orders are part of the protocol.
//
// A read that doesn't fit writes its line to the console, leaves the caller's variable and the position as
// they were and returns false. An underflow by itself stops nothing: the caller goes on with its next field.
#pragma once

#include "records/StringBlock.h"

#include <cstddef>
#include <cstdint>

namespace orvane::shell {

// A view; owns nothing. `mPosition` never exceeds `mSize`.
struct BufferReader {
    const std::uint8_t* mData = nullptr;
    std::uint64_t mSize = 0;
    std::uint64_t mPosition = 0;

    [[nodiscard]] std::uint64_t Remaining() const { return mSize - mPosition; }
};

// One for each type; the line on underflow names the type, and only the float's ends in a newline.
bool Read(BufferReader& reader, std::uint8_t& value);
bool Read(BufferReader& reader, std::int16_t& value);
bool Read(BufferReader& reader, std::uint32_t& value);
bool Read(BufferReader& reader, std::int32_t& value);
bool Read(BufferReader& reader, float& value);
bool Read(BufferReader& reader, std::uint64_t& value);

// Reads a string list: the key 'STR ', a 16-bit count of at most 255, that many UTF-16 units.
// A wrong key prints its line and the read goes on. False, with a line, if the key or the count is missing
// or the count is above 255 (`block` untouched then), or if the units run out: the count and the units that
// came stay in `block`.
bool ReadString(BufferReader& reader, records::StringBlock& block);

} // namespace orvane::shell
