// A stretch of a source, read from its front and never beyond its end, whatever the values in it claim.
#pragma once

#include "player/tags/ByteSource.h"

#include <array>
#include <cstdint>
#include <vector>

namespace orvane::player {

using FourBytes = std::array<char, 4>; // a name of four characters, as it stands in the file

class Cursor {
public:
    // The whole of a source.
    explicit Cursor(IByteSource& source)
        : mSource(&source)
        , mEnd(source.Size()) {}

    [[nodiscard]] std::uint64_t Left() const { return mEnd - mAt; }

    // Something was cut off or couldn't be read; every later value is then 0 and nothing is left.
    [[nodiscard]] bool Failed() const { return mFailed; }

    // An unsigned value of 1 to 8 bytes.
    [[nodiscard]] std::uint64_t Big(std::size_t bytes);
    [[nodiscard]] std::uint64_t Little(std::size_t bytes);

    [[nodiscard]] FourBytes Four();

    // The next `count` bytes, or what there is if that is less. No more memory is taken than there are bytes.
    [[nodiscard]] std::vector<std::uint8_t> Bytes(std::uint64_t count);

    // Passes over `count` bytes, or to the end.
    void Skip(std::uint64_t count);

    // The next `length` bytes, or what there is, as a stretch of their own; this one goes on behind them.
    [[nodiscard]] Cursor Part(std::uint64_t length);

private:
    bool Take(std::span<std::uint8_t> out);

    IByteSource* mSource;
    std::uint64_t mAt = 0;
    std::uint64_t mEnd;
    bool mFailed = false;
};

} // namespace orvane::player
