// Two channels out of however many there are.
#pragma once

#include "player/sound/StereoFrame.h"

#include <cstddef>
#include <span>

namespace orvane::player {

// `samples` holds frames of `channels` values, in the system's order: front left, front right, centre, low
// frequencies, two rear ones, two side ones. One channel goes to both sides. The centre goes to both sides and
// each rear and side channel to its own at -3 dB (a factor of the square root of a half); the low frequencies are
// left out. What that may add beyond full scale is left as it is. Of what is neither a mono, a stereo nor such a
// sound (3 to 8 channels) the first two are taken. As many frames are made as both spans have room for.
void MixToStereo(std::span<const float> samples, std::size_t channels, std::span<StereoFrame> frames);

} // namespace orvane::player
