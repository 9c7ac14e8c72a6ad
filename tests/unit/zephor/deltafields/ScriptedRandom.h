// The process generator as tests see it: the recurrence written down once more, and seeds for wanted draws.
#pragma once

#include "platform/Random.h"

#include <cstdint>

namespace orvane::tests {

// Draws what the process generator draws after the same seed.
class OracleRandom {
public:
    explicit OracleRandom(std::uint32_t seed)
        : mState(seed) {}

    int Next() {
        mState = mState * 214013u + 2531011u;
        return int((mState >> 16) & 0x7FFFu);
    }

    void Seed(std::uint32_t seed) { mState = seed; }

private:
    std::uint32_t mState;
};

// Seeds the process generator so that `draw` (0 to 32767) comes next.
inline void SeedNextDraw(int draw) {
    std::uint32_t seed = 0;
    while (OracleRandom(seed).Next() != draw) ++seed;
    platform::SeedRand(seed);
}

} // namespace orvane::tests
