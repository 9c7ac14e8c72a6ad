// The C runtime's rand() with one state for the whole process.
//
// The runtime keeps one state for each thread, and another platform's runtime makes other numbers. Effects
// draw their parameters from rand() on two threads and one of them seeds it for another, so the sequence has
// to be one and the same everywhere. This is the Windows runtime's generator: 15 bits of the linear
// congruential sequence state = state * 214013 + 2531011 (mod 2^32), bits 16 to 30. srand(1234) so gives
// 4068, 213, 12761.
#pragma once

#include <cstdint>

namespace orvane::platform {

constexpr int kRandMax = 32767;

// The next number, 0 to kRandMax. Threads share the state and take turns; no number is handed out twice.
int Rand();

// Seeds the sequence; a process starts as if seeded with 1.
void SeedRand(std::uint32_t seed);

} // namespace orvane::platform
