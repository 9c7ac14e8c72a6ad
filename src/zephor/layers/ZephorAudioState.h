// The sound of a frame as the effects read it.
//
// Two channels of 256 points each. `waveform` lies around 0, within about -1 and 1, and reaches 0 at both ends;
// `spectrum` is logarithmic, 0 for silence, lowest bin first.
#pragma once

#include <cstdint>

namespace orvane::zephor {

constexpr int kAudioChannels = 2;
constexpr int kAudioPoints = 256; // of a channel

// A Gaussian of `tapCount` = 2 * halfWidth + 1 taps, made for rows of `size` points.
struct SmoothingKernel {
    static constexpr int kMostTaps = 40;

    std::int32_t tapCount;
    float taps[kMostTaps];
    std::int32_t halfWidth;
    std::int32_t size;
    float sigma; // in points
};

struct ZephorAudioState {
    static constexpr int kMostKernels = 2;

    SmoothingKernel kernels[kMostKernels];
    std::int32_t kernelCount;                                 // of those, in use
    std::uint8_t gatedSpectrum[kAudioChannels][kAudioPoints]; // 0 to 255
    std::uint32_t spectrumSum[kAudioChannels];                // of the raw bins
    float spectrum[kAudioChannels][kAudioPoints];
    float waveform[kAudioChannels][kAudioPoints];
};

} // namespace orvane::zephor
