// Smooths a row of points with a Gaussian.
#pragma once

#include "zephor/layers/ZephorAudioState.h"

namespace orvane::zephor {

constexpr float kSpectrumSigma = 3.328f; // points; the width meant for a spectrum of kAudioPoints

// out = in * Gaussian, for `size` points that don't overlap. Where taps fall off an end, the others are scaled up
// to make up for them, so an even row stays as it is.
// The kernel for such a size and sigma is kept in `audio`. False, with nothing written, if there is no room for it
// there, if it has more than SmoothingKernel::kMostTaps taps, and for a size below 1 or a sigma not above 0.
[[nodiscard]] bool SmoothGaussian(ZephorAudioState& audio, const float* in, float* out, int size,
                                  float sigma);

} // namespace orvane::zephor
