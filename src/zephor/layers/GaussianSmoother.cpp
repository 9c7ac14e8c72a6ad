#include "zephor/layers/GaussianSmoother.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <span>

namespace orvane::zephor {

namespace {

constexpr float kSigmasPerHalf = 4.0f; // what lies farther out counts for nothing

// The centre tap takes what the others leave of 1.
SmoothingKernel MakeKernel(int halfWidth, int size, float sigma) {
    SmoothingKernel kernel{ 2 * halfWidth + 1, {}, halfWidth, size, sigma };
    // For kSpectrumSigma these are -0.045144346 and 0.11987448.
    const double exponent = -1.0 / (2.0 * double(sigma) * double(sigma));
    const double height = std::numbers::inv_sqrtpi / std::numbers::sqrt2 / double(sigma);
    double others = 0;
    for (int k = -halfWidth; k <= halfWidth; ++k) {
        float& tap = kernel.taps[k + halfWidth];
        tap = float(std::exp(k * k * exponent) * height);
        if (k != 0) others += double(tap);
    }
    kernel.taps[halfWidth] = float(1.0 - others);
    return kernel;
}

const SmoothingKernel* FindOrAdd(ZephorAudioState& audio, int size, float sigma) {
    const std::span kernels(audio.kernels, std::size_t(audio.kernelCount));
    for (const SmoothingKernel& kernel : kernels)
        if (kernel.size == size && kernel.sigma == sigma) return &kernel;
    if (audio.kernelCount == ZephorAudioState::kMostKernels) return nullptr;
    if (size < 1 || !(sigma > 0) || !(kSigmasPerHalf * sigma < float(SmoothingKernel::kMostTaps) / 2))
        return nullptr;
    SmoothingKernel& added = audio.kernels[audio.kernelCount++];
    added = MakeKernel(int(kSigmasPerHalf * sigma), size, sigma);
    return &added;
}

} // namespace

bool SmoothGaussian(ZephorAudioState& audio, const float* in, float* out, int size, float sigma) {
    const SmoothingKernel* const kernel = FindOrAdd(audio, size, sigma);
    if (!kernel) return false;
    for (int i = 0; i < size; ++i) {
        double sum = 0, dropped = 0;
        for (int k = 0; k < kernel->tapCount; ++k) {
            const int at = i + k - kernel->halfWidth;
            const double tap = double(kernel->taps[k]);
            if (at < 0 || at >= size)
                dropped += tap;
            else
                sum += tap * double(in[at]);
        }
        out[i] = float(sum / (1.0 - dropped));
    }
    return true;
}

} // namespace orvane::zephor
