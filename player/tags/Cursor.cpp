#include "player/tags/Cursor.h"

#include <algorithm>

namespace orvane::player {

bool Cursor::Take(std::span<std::uint8_t> out) {
    if (out.size() <= Left() && mSource->Read(mAt, out)) {
        mAt += out.size();
        return true;
    }
    mFailed = true;
    mAt = mEnd;
    return false;
}

std::uint64_t Cursor::Big(std::size_t bytes) {
    std::array<std::uint8_t, 8> taken = {};
    const auto used = std::span(taken).first(bytes);
    std::uint64_t value = 0;
    if (Take(used))
        for (const std::uint8_t byte : used) value = value << 8 | byte;
    return value;
}

std::uint64_t Cursor::Little(std::size_t bytes) {
    std::array<std::uint8_t, 8> taken = {};
    std::uint64_t value = 0;
    if (Take(std::span(taken).first(bytes)))
        for (std::size_t i = bytes; i-- > 0;) value = value << 8 | taken[i];
    return value;
}

FourBytes Cursor::Four() {
    std::array<std::uint8_t, 4> taken = {};
    if (!Take(taken)) return {};
    return { char(taken[0]), char(taken[1]), char(taken[2]), char(taken[3]) };
}

std::vector<std::uint8_t> Cursor::Bytes(std::uint64_t count) {
    std::vector<std::uint8_t> bytes(std::size_t(std::min(count, Left())));
    if (!Take(bytes)) bytes.clear();
    return bytes;
}

void Cursor::Skip(std::uint64_t count) {
    mAt += std::min(count, Left());
}

Cursor Cursor::Part(std::uint64_t length) {
    Cursor part = *this;
    part.mEnd = mAt + std::min(length, Left());
    Skip(length);
    return part;
}

} // namespace orvane::player
