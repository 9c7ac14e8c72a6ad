// Presets: a delta field, a waveform and a colour map that look well together.
#pragma once

#include "zephor/registry/Selection.h"

#include <array>
#include <cstdint>

namespace orvane::zephor {

struct PresetRow {
    std::int32_t delta;      // index into the delta lists, one after the other
    std::int32_t waveform;   // index into the waveform lists, one after the other
    std::int32_t colourSlot; // place in the rotation of the colour manager
};

inline constexpr std::array<PresetRow, 10> kPresetTable = { {
    // delta, waveform, colour slot
    { 1, 6, 2 },
    { 2, 1, 6 },
    { 42, 13, 7 },
    { 11, 0, 8 },
    { 13, 12, 10 },
    { 16, 2, 6 },
    { 3, 4, 10 },
    { 0, 3, 6 },
    { 4, 5, 10 },
    { 8, 10, 6 },
} };

// The row that a request names; null for one that names none: below 2, or past the last row.
[[nodiscard]] constexpr const PresetRow* FindPreset(std::int32_t request) {
    if (request < kFirstPreset) return nullptr;
    const auto row = static_cast<std::size_t>(request - kFirstPreset);
    return row < kPresetTable.size() ? &kPresetTable[row] : nullptr;
}

} // namespace orvane::zephor
