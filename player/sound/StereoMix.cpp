#include "player/sound/StereoMix.h"

#include <algorithm>

namespace orvane::player {

namespace {

constexpr float kThreeDecibelsDown = 0.70710678f; // square root of a half

// How loud each channel is on either side.
struct ChannelRow {
    float left;
    float right;
};

constexpr ChannelRow kChannels[] = {
    { 1, 0 },                                   // front left
    { 0, 1 },                                   // front right
    { kThreeDecibelsDown, kThreeDecibelsDown }, // centre
    { 0, 0 },                                   // low frequencies
    { kThreeDecibelsDown, 0 },                  // rear left
    { 0, kThreeDecibelsDown },                  // rear right
    { kThreeDecibelsDown, 0 },                  // side left
    { 0, kThreeDecibelsDown },                  // side right
};

constexpr std::size_t kMono = 1;
constexpr std::size_t kStereo = 2;

StereoFrame Mixed(std::span<const float> sample) {
    if (sample.size() == kMono) return { sample[0], sample[0] };
    const std::size_t taken = sample.size() <= std::size(kChannels) ? sample.size() : kStereo;
    StereoFrame frame;
    for (std::size_t channel = 0; channel < taken; ++channel) {
        frame.left += kChannels[channel].left * sample[channel];
        frame.right += kChannels[channel].right * sample[channel];
    }
    return frame;
}

} // namespace

void MixToStereo(std::span<const float> samples, std::size_t channels, std::span<StereoFrame> frames) {
    if (channels == 0) return;
    const std::size_t count = std::min(samples.size() / channels, frames.size());
    for (std::size_t i = 0; i < count; ++i) frames[i] = Mixed(samples.subspan(i * channels, channels));
}

} // namespace orvane::player
