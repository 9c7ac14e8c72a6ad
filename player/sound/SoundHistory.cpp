#include "player/sound/SoundHistory.h"

#include <algorithm>

namespace orvane::player {

SoundHistory::SoundHistory(std::size_t capacity)
    : mFrames(std::max<std::size_t>(capacity, 1)) {}

void SoundHistory::Restart(std::int64_t place) {
    mBegin = mEnd = place;
}

std::size_t SoundHistory::SlotOf(std::int64_t place) const {
    const auto capacity = std::int64_t(mFrames.size());
    return std::size_t((place % capacity + capacity) % capacity);
}

void SoundHistory::Append(std::span<const StereoFrame> frames) {
    for (const StereoFrame& frame : frames) mFrames[SlotOf(mEnd++)] = frame;
    mBegin = std::max(mBegin, mEnd - std::int64_t(mFrames.size()));
}

void SoundHistory::CopyBefore(std::int64_t end, std::span<StereoFrame> window) const {
    std::int64_t place = end - std::int64_t(window.size());
    for (StereoFrame& frame : window) {
        const bool kept = place >= mBegin && place < mEnd;
        frame = kept ? mFrames[SlotOf(place)] : StereoFrame{};
        ++place;
    }
}

} // namespace orvane::player
