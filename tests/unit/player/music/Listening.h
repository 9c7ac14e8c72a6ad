// What a listener hears of a piece of sound: how loud it is, and where.
#pragma once

#include "player/music/StereoSource.h"

#include <cmath>
#include <numbers>
#include <span>
#include <vector>

namespace orvane::player {

using Samples = std::vector<float>; // left and right in turn

// The whole of a source, read in blocks of `block` frames.
[[nodiscard]] inline Samples ReadWhole(IStereoSource& source, std::size_t block = 1000) {
    Samples all, frames(block * 2);
    while (const std::size_t count = source.Read(frames))
        all.insert(all.end(), frames.begin(), frames.begin() + std::ptrdiff_t(count * 2));
    return all;
}

// The frames from one second to another, of sound at `rate`.
[[nodiscard]] inline std::span<const float> Between(const Samples& samples, double rate, double from,
                                                    double to) {
    const auto first = std::size_t(from * rate) * 2, last = std::size_t(to * rate) * 2;
    return std::span(samples).subspan(first, last - first);
}

[[nodiscard]] inline double MeanSquare(std::span<const float> samples) {
    double sum = 0;
    for (const float sample : samples) sum += double(sample) * sample;
    return sum / double(samples.size());
}

// In decibels below full scale.
[[nodiscard]] inline double Loudness(std::span<const float> samples) {
    return 10 * std::log10(MeanSquare(samples) + 1e-12);
}

// What is left below `hertz`, both channels added: two poles of the plainest kind.
[[nodiscard]] inline Samples BassOf(const Samples& samples, double rate, double hertz) {
    Samples bass(samples.size() / 2);
    const double follow = 1 - std::exp(-2 * std::numbers::pi * hertz / rate);
    double first = 0, second = 0;
    for (std::size_t i = 0; i < bass.size(); ++i) {
        first += follow * ((samples[2 * i] + samples[2 * i + 1]) / 2 - first);
        second += follow * (first - second);
        bass[i] = float(second);
    }
    return bass;
}

} // namespace orvane::player
