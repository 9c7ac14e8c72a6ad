#include "player/music/ClickTrack.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace orvane::player {

namespace {

constexpr double kPitch = 1000;  // Hz
constexpr double kDecay = 0.006; // seconds to 1/e: all but gone at the end of the click

} // namespace

float ClickTrack::SampleAt(std::uint64_t frame) const {
    const double time = double(frame) / mFramesPerSecond;
    const double since = time - std::floor(time / kSecondsBetween) * kSecondsBetween;
    if (since >= kClickSeconds) return 0;
    return float(kPeak * std::exp(-since / kDecay) * std::cos(2 * std::numbers::pi * kPitch * since));
}

std::size_t ClickTrack::Read(std::span<float> interleaved) {
    const auto frames = std::size_t(std::min<std::uint64_t>(interleaved.size() / 2, mFrames - mAt));
    for (std::size_t i = 0; i < frames; ++i, ++mAt)
        interleaved[2 * i] = interleaved[2 * i + 1] = SampleAt(mAt);
    return frames;
}

} // namespace orvane::player
