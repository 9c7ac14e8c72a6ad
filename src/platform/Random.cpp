#include "platform/Random.h"

#include <atomic>

namespace orvane::platform {

namespace {

constexpr std::uint32_t kMultiplier = 214013;
constexpr std::uint32_t kIncrement = 2531011;

std::atomic<std::uint32_t> sState = 1;

} // namespace

int Rand() {
    std::uint32_t state = sState.load(std::memory_order_relaxed);
    std::uint32_t next = 0;
    do {
        next = state * kMultiplier + kIncrement;
    } while (!sState.compare_exchange_weak(state, next, std::memory_order_relaxed));
    return int(next >> 16 & kRandMax);
}

void SeedRand(std::uint32_t seed) {
    sState.store(seed, std::memory_order_relaxed);
}

} // namespace orvane::platform
