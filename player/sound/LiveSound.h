// Sound that comes in from outside: what the machine plays, or what it records.
#pragma once

#include "player/sound/HeardSound.h"
#include "player/sound/SoundCapture.h"
#include "player/sound/SoundHistory.h"

#include <functional>
#include <mutex>

namespace orvane::player {

class LiveSound final : public IHeardSound {
public:
    // A clock that never runs backwards, in seconds.
    using Clock = std::function<double()>;

    LiveSound(ISoundCapture& capture, Clock clock);

    // Takes in what has come. Called again and again by a thread of its own; the rest by any other.
    void Feed();

    // Whether the device went away.
    [[nodiscard]] bool IsLost() const;

    [[nodiscard]] std::uint32_t Rate() const override { return mRate; }

    // The newest frames. Silence when nothing came in for a while: a system that plays nothing delivers nothing.
    void CopyHeard(std::span<StereoFrame> window) const override;

private:
    ISoundCapture& mCapture;
    const Clock mClock;
    const std::uint32_t mRate;
    mutable std::mutex mMutex; // guards everything below
    SoundHistory mHistory;
    double mLastCame; // seconds
    bool mLost = false;
};

} // namespace orvane::player
