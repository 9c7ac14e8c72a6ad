// The process's random numbers as a test chooses them.
//
// The generator is one linear congruence, so a seed whose next numbers lie in given ranges can be searched for
// backwards. One exact number and some ranges, or two numbers of which one has a little room, are always found.
#pragma once

#include "platform/Random.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <span>
#include <vector>

namespace orvane::tests {

// Both ends included.
struct RandRange {
    int low = 0, high = platform::kRandMax;

    [[nodiscard]] bool Holds(int number) const { return low <= number && number <= high; }
};

constexpr RandRange Exactly(int number) {
    return { number, number };
}

constexpr RandRange kAnyRand = {};

namespace scripted {

constexpr std::uint32_t kMultiplier = 214013, kIncrement = 2531011;

constexpr std::uint32_t InverseOf(std::uint32_t odd) {
    std::uint32_t inverse = odd; // right in its last three bits; each round doubles them
    for (int round = 0; round < 4; ++round) inverse *= 2 - odd * inverse;
    return inverse;
}

static_assert(kMultiplier * InverseOf(kMultiplier) == 1);

inline bool Follows(std::uint32_t state, std::span<const RandRange> rest) {
    for (const RandRange& range : rest) {
        state = state * kMultiplier + kIncrement;
        if (!range.Holds(int(state >> 16 & 0x7FFF))) return false;
    }
    return true;
}

} // namespace scripted

// Makes Rand() return next what the ranges say, one after the other. Returns those very numbers.
inline std::vector<int> ScriptRand(const std::vector<RandRange>& numbers) {
    const std::span<const RandRange> rest = std::span(numbers).subspan(1);
    for (int first = numbers[0].low; first <= numbers[0].high; ++first)
        for (std::uint32_t low = 0; low <= 0xFFFF; ++low) {
            const std::uint32_t state = std::uint32_t(first) << 16 | low;
            if (!scripted::Follows(state, rest)) continue;
            const std::uint32_t seed =
                (state - scripted::kIncrement) * scripted::InverseOf(scripted::kMultiplier);
            platform::SeedRand(seed);
            std::vector<int> drawn;
            for (std::size_t i = 0; i < numbers.size(); ++i) drawn.push_back(platform::Rand());
            platform::SeedRand(seed);
            return drawn;
        }
    ADD_FAILURE() << "no seed gives such numbers";
    return {};
}

} // namespace orvane::tests
