// What the waveforms of a frame are drawn from, and where to.
#pragma once

#include "zephor/layers/ZephorAudioState.h"
#include "zephor/layers/ZephorLayer.h"

#include <cstdint>
#include <span>

namespace orvane::zephor {

// 256 colours, 0x00RRGGBB.
using ColourTable = std::span<const std::uint32_t, 256>;

struct WaveformFrame {
    ZephorLayer& target;
    const ZephorAudioState& audio;
    double time;          // seconds
    double width, height; // of the image, in pixels
    ColourTable table;
};

// Factors for x and y that keep a square a square, by the shorter side.
struct Aspect {
    float x, y;
};

[[nodiscard]] inline Aspect AspectOf(double width, double height) {
    if (width <= height) return { 1, float(width / height) };
    return { float(height / width), 1 };
}

} // namespace orvane::zephor
