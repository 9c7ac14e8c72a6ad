// Where a track's sound comes from: a file, or a piece that is made as it plays.
#pragma once

#include "player/sound/StereoFrame.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace orvane::player {

class ISoundSource {
public:
    virtual ~ISoundSource() = default;

    // Frames a second; never 0.
    [[nodiscard]] virtual std::uint32_t Rate() const = 0;

    // Of the whole track, in frames; 0 if nobody knows.
    [[nodiscard]] virtual std::int64_t Length() const = 0;

    // Goes on from that frame, counted from the track's beginning. A frame behind the end is the end. False if
    // the source can't go there; it then stays where it is.
    [[nodiscard]] virtual bool Seek(std::int64_t frame) = 0;

    // Takes the next frames; how many there were. 0 is the end, also when the rest can't be decoded.
    [[nodiscard]] virtual std::size_t Read(std::span<StereoFrame> frames) = 0;
};

} // namespace orvane::player
