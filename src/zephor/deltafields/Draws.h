// What members draw from the process generator.
#pragma once

#include "platform/Random.h"

#include <bit>
#include <cstdint>

namespace orvane::zephor {

// A parameter from `low` to below `high`: one draw.
[[nodiscard]] inline float Draw(float low, float high) {
    constexpr float kDraws = float(platform::kRandMax + 1);
    return float(platform::Rand()) * ((high - low) / kDraws) + low;
}

// A parameter from `low` to `high`, both among them: one draw.
[[nodiscard]] inline float DrawThrough(float low, float high) {
    return float(platform::Rand()) * ((high - low) / float(platform::kRandMax)) + low;
}

// The whole part of a Draw, for limits that are not negative.
[[nodiscard]] inline float DrawWhole(float low, float high) {
    return float(int(Draw(low, high)));
}

// +1 or -1: one draw.
[[nodiscard]] inline float DrawSign() {
    return platform::Rand() > platform::kRandMax / 2 ? 1.0f : -1.0f;
}

// A Draw in size, with a sign: two draws, in this order.
[[nodiscard]] inline float DrawSigned(float low, float high) {
    const float size = Draw(low, high);
    return size * DrawSign();
}

// The seed that members make of a point's y: its bits without the sign, turned left by the bits' lowest five.
[[nodiscard]] inline std::uint32_t SeedOf(float y) {
    constexpr std::uint32_t kSize = 0x7FFFFFFF, kTurn = 31;
    const auto bits = std::bit_cast<std::uint32_t>(y);
    return std::rotl(bits & kSize, int(bits & kTurn));
}

} // namespace orvane::zephor
