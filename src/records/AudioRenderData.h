// The sound of one pulse: waveform and spectrum of two channels.
#pragma once

#include <cstddef>
#include <cstdint>

namespace orvane::records {

constexpr std::size_t kAudioChannels = 2;
constexpr std::size_t kSamplesPerChannel = 512;
constexpr std::uint8_t kWaveformSilence = 127; // the waveform's centre

// 2050 bytes, as they travel. Samples are 8-bit: the waveform unsigned around 127, spectrum magnitudes 0 to
// 255, bin 0 lowest.
struct AudioRenderData {
    std::uint8_t waveformChannels;
    std::uint8_t waveform[kAudioChannels][kSamplesPerChannel];
    std::uint8_t spectrumChannels;
    std::uint8_t spectrum[kAudioChannels][kSamplesPerChannel];
};

static_assert(sizeof(AudioRenderData) == 2050 && offsetof(AudioRenderData, waveform) == 1 &&
              offsetof(AudioRenderData, spectrumChannels) == 1025 &&
              offsetof(AudioRenderData, spectrum) == 1026);

} // namespace orvane::records
