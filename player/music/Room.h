// The space around the instruments: an echo that goes from side to side, and a room.
#pragma once

#include "player/music/Sound.h"

#include <array>
#include <cstddef>
#include <vector>

namespace orvane::player {

// A ring of samples that come out a fixed time later.
class Delay {
public:
    explicit Delay(std::size_t frames)
        : mRing(std::max<std::size_t>(frames, 1)) {}

    [[nodiscard]] float Oldest() const { return mRing[mAt]; }

    void Put(float sample) {
        mRing[mAt] = sample;
        mAt = mAt + 1 == mRing.size() ? 0 : mAt + 1;
    }

private:
    std::vector<float> mRing;
    std::size_t mAt = 0;
};

// What goes in on the left comes back on the right and so on, duller and quieter each time.
class Echo {
public:
    Echo(double framesPerSecond, double seconds);
    [[nodiscard]] Frame Next(const Frame& in);

private:
    const float mDull;
    Delay mLeft, mRight;
    Glide mLeftDamp, mRightDamp;
};

// Four delays of unequal length that feed one another: the sound thickens and dies away in some two seconds.
class Room {
public:
    explicit Room(double framesPerSecond);
    [[nodiscard]] Frame Next(const Frame& in);

private:
    const float mDull;
    std::array<Delay, 4> mDelays;
    std::array<Glide, 4> mDamps;
};

} // namespace orvane::player
