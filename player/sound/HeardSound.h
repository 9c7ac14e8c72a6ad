// The sound around the moment that is heard now, whatever makes it.
#pragma once

#include "player/sound/StereoFrame.h"

#include <cstdint>
#include <span>

namespace orvane::player {

class IHeardSound {
public:
    virtual ~IHeardSound() = default;

    // Frames a second of the sound that is heard; never 0.
    [[nodiscard]] virtual std::uint32_t Rate() const = 0;

    // Fills `window` with the frames around the moment that is heard, which is before the one in the middle
    // (window.size() / 2). Sound that has no future yet ends with its newest frame. Silence stands for what there is
    // no sound for.
    virtual void CopyHeard(std::span<StereoFrame> window) const = 0;
};

} // namespace orvane::player
