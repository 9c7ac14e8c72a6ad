// One moment of sound in two channels.
#pragma once

namespace orvane::player {

// Full scale is -1 to 1; what goes beyond is clipped by whoever plays it.
struct StereoFrame {
    float left = 0;
    float right = 0;

    bool operator==(const StereoFrame&) const = default;
};

} // namespace orvane::player
