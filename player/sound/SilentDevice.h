// Stands in where there is no sound device: swallows sound as fast as a device would play it, in silence.
#pragma once

#include "player/sound/SoundDevice.h"

#include <functional>

namespace orvane::player {

class SilentDevice final : public ISoundDevice {
public:
    // A clock that never runs backwards, in seconds.
    using Clock = std::function<double()>;

    explicit SilentDevice(Clock clock)
        : mClock(std::move(clock)) {}

    [[nodiscard]] bool Open(std::uint32_t rate) override;
    [[nodiscard]] std::size_t Room() override;
    void Write(std::span<const StereoFrame> frames) override;
    void Run(bool running) override;
    void Drop() override;
    [[nodiscard]] std::int64_t Heard() override;

    [[nodiscard]] bool IsEmpty() override { return Heard() == mWritten; }

    [[nodiscard]] bool IsLost() const override { return false; }

private:
    void Advance();

    const Clock mClock;
    double mRate = 0;          // frames a second
    std::int64_t mWritten = 0; // since Open or Drop, as the next one
    double mHeard = 0;         // frames; at mSince while running
    double mSince = 0;         // seconds
    bool mRunning = false;
};

} // namespace orvane::player
