// How a selection of the next delta field, waveform or colour map is asked for.
#pragma once

#include <cstdint>

namespace orvane::zephor {

// The lower two bits decide; the others name the subject, for people, and aren't read: each selection is called
// for its own subject alone.
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

static_assert(kSelect_AllTimed == 28 && kSelect_AllForced == 29 && kSelect_AllImmediate == 31);

} // namespace orvane::zephor
