#include "shell/wire/Flattener.h"

#include "platform/LogLine.h"

namespace orvane::shell {

namespace {

template <typename T>
void PutBigEndian(Flattener& flattener, T value) {
    if (std::size_t(flattener.mEnd - flattener.mCursor) < sizeof(T)) {
        platform::LogLine("Insufficient space in the flattener.");
        return;
    }
    for (int shift = int(sizeof(T)) * 8 - 8; shift >= 0; shift -= 8)
        *flattener.mCursor++ = std::uint8_t(value >> shift);
}

} // namespace

void PutUInt8(Flattener& flattener, std::uint8_t value) {
    PutBigEndian(flattener, value);
}

void PutUInt16(Flattener& flattener, std::uint16_t value) {
    PutBigEndian(flattener, value);
}

void PutUInt32(Flattener& flattener, std::uint32_t value) {
    PutBigEndian(flattener, value);
}

} // namespace orvane::shell
