// What a waveform effect is handed: the frame, and the point that it is to place.
#pragma once

#include <cstdint>

namespace orvane::zephor {

// The frame as a functor sees it. A functor writes `pointSize`, `sampleStep` and `colorIndex` when it prepares a
// frame, and only reads the rest.
struct WaveFormContext {
    const float* waveform = nullptr; // channel 0, kAudioPoints values (ZephorAudioState.h)
    const float* spectrum = nullptr; // channel 0 likewise
    float sampleWave = 0;            // of the moment, from the channel of the line
    float sampleSpectrum = 0;
    double time = 0;             // seconds
    float endTime = 0;           // of an overlay, a sixtieth of the seconds left to it; otherwise 0
    float pointSize = 1;         // pixels: the width of a line or the size of a dot
    std::int32_t sampleStep = 1; // every sampleStep-th sample is taken
    std::uint8_t colorIndex = 255;
    std::int32_t pass = 0; // of an overlay
};

// A point on its way to the screen.
struct WaveFormPoint {
    float t = 0; // position along the line, 0 to 0.9945
    std::int32_t line = 0;
    float size = 1;     // pixels
    float x = 0, y = 0; // -1 to 1 on the screen, y downwards
    std::uint8_t colorIndex = 255;
};

} // namespace orvane::zephor
