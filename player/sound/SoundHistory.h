// The last frames of a stream, found by their place in it. Bounded: the oldest make room for the newest.
#pragma once

#include "player/sound/StereoFrame.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace orvane::player {

class SoundHistory {
public:
    // Keeps so many frames, at least one.
    explicit SoundHistory(std::size_t capacity);

    // Forgets everything; the next frame appended has this place.
    void Restart(std::int64_t place);

    void Append(std::span<const StereoFrame> frames);

    // The place behind the newest frame.
    [[nodiscard]] std::int64_t End() const { return mEnd; }

    // Fills `window` with the frames in front of `end`, the newest at its end; silence for those that aren't
    // kept.
    void CopyBefore(std::int64_t end, std::span<StereoFrame> window) const;

private:
    // Where in mFrames a frame lies.
    [[nodiscard]] std::size_t SlotOf(std::int64_t place) const;

    std::vector<StereoFrame> mFrames; // a ring
    std::int64_t mBegin = 0;          // place of the oldest frame kept
    std::int64_t mEnd = 0;
};

} // namespace orvane::player
