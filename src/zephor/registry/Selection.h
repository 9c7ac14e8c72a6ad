// How the visualizer asks for another delta field, waveform or colour map.
//
// Each of the three has a request, a signed number that keys raise and lower until a selection takes it:
//   0         none: draw at random
//   2 or more the ingredient that row request - 2 of the presets names (PresetTable.h)
//   others    a step from the index in force, 1 or -1 as a rule
#pragma once

#include "platform/Random.h"

#include <cstdint>

namespace orvane::zephor {

// The flag word of a selection. The lower two bits decide; the others name the subject, for people: each selection
// is called for its own subject alone.
enum SelectionFlag : std::uint32_t {
    kSelect_Force = 1,     // act on the pending request, if there is one
    kSelect_Immediate = 2, // act whatever timers and requests say
    kSelect_Delta = 4,
    kSelect_Waveform = 8,
    kSelect_Colour = 16,
};

constexpr std::uint32_t kSelect_AllTimed = kSelect_Delta | kSelect_Waveform | kSelect_Colour;
constexpr std::uint32_t kSelect_AllForced = kSelect_AllTimed | kSelect_Force;
constexpr std::uint32_t kSelect_AllImmediate = kSelect_AllForced | kSelect_Immediate;

// The change mode: 0 holds what is shown until a key asks, the others change it by themselves.
constexpr std::int32_t kChangeMode_Held = 0;

// The least request that names a preset.
constexpr std::int32_t kFirstPreset = 2;

// Stands for the index in force once a step was made from it, so that every result differs from it.
constexpr std::int32_t kNoIndex = -10;

// The sum modulo 2^32. Steps add up for as long as keys are pressed, and the timed request of the delta field
// is a large negative number: both pass the ends of the range.
[[nodiscard]] constexpr std::int32_t WrappingSum(std::int32_t a, std::int32_t b) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) + static_cast<std::uint32_t>(b));
}

// What turns a number of Rand() into 0 to 1, both ends included.
constexpr float kRandUnit = 3.051851e-05f;

inline float DrawUnit() {
    return float(platform::Rand()) * kRandUnit;
}

// A choice is drawn from one of three bands, each about a third of the draws.
constexpr float kUpperBand = 0.66f; // and above
constexpr float kMiddleBand = 0.33f;

} // namespace orvane::zephor
