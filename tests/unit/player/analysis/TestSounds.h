// Sounds of known content for the analysis, and ways to look at what comes of them.
#pragma once

#include "player/analysis/Analyzer.h"

#include <cmath>
#include <cstring>
#include <numbers>
#include <random>
#include <span>
#include <vector>

namespace orvane::player {

using Samples = std::vector<float>;

[[nodiscard]] inline Samples Sine(std::size_t frames, double rate, double hertz, double amplitude) {
    Samples samples(frames);
    for (std::size_t i = 0; i < frames; ++i)
        samples[i] = float(amplitude * std::sin(2 * std::numbers::pi * hertz * double(i) / rate));
    return samples;
}

[[nodiscard]] inline Samples Noise(std::size_t count, unsigned seed, float amplitude) {
    std::mt19937 engine(seed); // the same numbers on every platform; its distributions would not be
    Samples samples(count);
    for (float& sample : samples) sample = (float(engine() >> 8) / float(1 << 23) - 1) * amplitude;
    return samples;
}

// An analyzer that has heard something loud: its automatic gain is 1 and stays so while no time passes.
[[nodiscard]] inline Analyzer WithGainOfOne(double rate, std::size_t channels) {
    Analyzer analyzer(rate, channels);
    static_cast<void>(analyzer.Analyze(Samples(analyzer.WindowFrames() * channels, 1.0f), 0));
    return analyzer;
}

[[nodiscard]] inline bool Same(const records::AudioRenderData& a, const records::AudioRenderData& b) {
    return std::memcmp(&a, &b, sizeof(a)) == 0;
}

[[nodiscard]] inline std::span<const std::uint8_t>
AllOf(const std::uint8_t (&channels)[records::kAudioChannels][records::kSamplesPerChannel]) {
    return { channels[0], sizeof(channels) };
}

} // namespace orvane::player
