// What effects draw from the process's rand(), and the angles that they make of time.
#pragma once

#include "platform/Random.h"

#include <cmath>

namespace orvane::zephor {

constexpr float kTurn = 6.2831853f; // a whole turn in radians

// A number from 0 up to, and without, 1.
inline float DrawFraction() {
    constexpr float kStep = 1.0f / (platform::kRandMax + 1);
    return float(platform::Rand()) * kStep;
}

// A number from `low` up to, and without, `high`.
inline float DrawBetween(float low, float high) {
    return low + DrawFraction() * (high - low);
}

// The same angle within 0 to a turn. Times are seconds since the machine started, so an angle that grows with time
// has to be shortened before it becomes a float, or it would move in jerks. 0 for what is no finite number.
inline float Wrapped(double radians) {
    constexpr double kWholeTurn = 6.283185307179586;
    if (!std::isfinite(radians)) return 0;
    return float(radians - std::floor(radians / kWholeTurn) * kWholeTurn);
}

} // namespace orvane::zephor
