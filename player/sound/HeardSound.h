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

    // Fills `window` with the frames that were heard last, the newest at its end. Silence stands for what there
    // was no sound for.
    virtual void CopyHeard(std::span<StereoFrame> window) const = 0;
};

} // namespace orvane::player
