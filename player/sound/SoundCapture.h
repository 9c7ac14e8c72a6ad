// Sound that comes in while it is heard.
#pragma once

#include "player/sound/StereoFrame.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace orvane::player {

class ISoundCapture {
public:
    virtual ~ISoundCapture() = default;

    // Frames a second; never 0.
    [[nodiscard]] virtual std::uint32_t Rate() const = 0;

    // Takes what came in since the last call, oldest first; how many frames that were. Never waits.
    [[nodiscard]] virtual std::size_t Read(std::span<StereoFrame> frames) = 0;

    // Whether it was opened, but no sound will ever come of it.
    [[nodiscard]] virtual bool IsDeaf() const { return false; }

    // Whether the device went away.
    [[nodiscard]] virtual bool IsLost() const = 0;
};

} // namespace orvane::player
