// What sound is played on: the system's device, or a clock where there is none.
#pragma once

#include "player/sound/StereoFrame.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace orvane::player {

class ISoundDevice {
public:
    virtual ~ISoundDevice() = default;

    // Gets ready for sound of that many frames a second; stopped and empty then. What was open before is closed.
    // False if there is no device, or it doesn't take such sound.
    [[nodiscard]] virtual bool Open(std::uint32_t rate) = 0;

    // How many frames it takes now.
    [[nodiscard]] virtual std::size_t Room() = 0;

    // Takes frames, Room() of them at most.
    virtual void Write(std::span<const StereoFrame> frames) = 0;

    // Plays, or stands still; what is unheard stays.
    virtual void Run(bool running) = 0;

    // Forgets what is unheard and stands still.
    virtual void Drop() = 0;

    // How many frames have been heard since Open or Drop: what leaves the loudspeaker now is the next one.
    [[nodiscard]] virtual std::int64_t Heard() = 0;

    // Whether everything that was written has been played.
    [[nodiscard]] virtual bool IsEmpty() = 0;

    // Whether the device went away after Open.
    [[nodiscard]] virtual bool IsLost() const = 0;
};

} // namespace orvane::player
