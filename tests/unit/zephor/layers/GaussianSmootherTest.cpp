// The smoother beside the definition in double precision.
#include "zephor/layers/GaussianSmoother.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <random>
#include <vector>

namespace orvane::zephor {
namespace {

constexpr double kTolerance = 1e-6;

std::vector<double> Taps() {
    std::vector<double> taps;
    double others = 0;
    for (int k = -13; k <= 13; ++k) {
        taps.push_back(std::exp(k * k * -0.045144346) * 0.11987448);
        if (k != 0) others += taps.back();
    }
    taps[13] = 1.0 - others;
    return taps;
}

struct Smoother {
    std::unique_ptr<ZephorAudioState> audio = std::make_unique<ZephorAudioState>();

    std::vector<float> operator()(const std::vector<float>& in) {
        std::vector<float> out(in.size());
        EXPECT_TRUE(SmoothGaussian(*audio, in.data(), out.data(), int(in.size()), kSpectrumSigma));
        return out;
    }
};

TEST(GaussianSmoother, TheKernelOfTheSpectrumHas27TapsThatAddUpTo1) {
    Smoother smooth;
    static_cast<void>(smooth(std::vector<float>(256)));
    ASSERT_EQ(smooth.audio->kernelCount, 1);
    const SmoothingKernel& kernel = smooth.audio->kernels[0];
    EXPECT_EQ(kernel.tapCount, 27);
    EXPECT_EQ(kernel.halfWidth, 13);
    EXPECT_EQ(kernel.size, 256);
    EXPECT_EQ(kernel.sigma, 3.328f);
    double sum = 0;
    for (int k = 0; k < 27; ++k) {
        EXPECT_NEAR(double(kernel.taps[k]), Taps()[std::size_t(k)], 1e-7) << k;
        sum += double(kernel.taps[k]);
    }
    EXPECT_NEAR(sum, 1, 1e-7);
    EXPECT_GT(kernel.taps[13], 0.1198f);
}

TEST(GaussianSmoother, APeakSpreadsAsTheKernel) {
    Smoother smooth;
    std::vector<float> in(256);
    in[100] = 1;
    const std::vector<float> out = smooth(in);
    for (int i = 0; i < 256; ++i) {
        const int k = i - 100 + 13;
        EXPECT_NEAR(double(out[std::size_t(i)]), k >= 0 && k < 27 ? Taps()[std::size_t(k)] : 0, kTolerance)
            << i;
    }
}

TEST(GaussianSmoother, AnEvenRowStaysAsItIsUpToItsEnds) {
    Smoother smooth;
    for (const float value : smooth(std::vector<float>(256, 0.75f)))
        EXPECT_NEAR(double(value), 0.75, kTolerance);
}

TEST(GaussianSmoother, NearTheEndsTheMissingTapsAreMadeUpFor) {
    Smoother smooth;
    std::mt19937 random(8);
    std::vector<float> in(256);
    for (float& value : in) value = float(random() % 1000) / 1000;
    const std::vector<float> out = smooth(in);
    const std::vector<double> taps = Taps();
    for (int i = 0; i < 256; ++i) {
        double sum = 0, dropped = 0;
        for (int k = 0; k < 27; ++k) {
            const int at = i + k - 13;
            if (at >= 0 && at <= 255)
                sum += double(in[std::size_t(at)]) * taps[std::size_t(k)];
            else
                dropped += taps[std::size_t(k)];
        }
        EXPECT_NEAR(double(out[std::size_t(i)]), sum / (1.0 - dropped), kTolerance) << i;
    }
}

TEST(GaussianSmoother, KernelsAreKeptAndAThirdOneCannotBeAdded) {
    ZephorAudioState audio{};
    const std::vector<float> in(256, 1);
    std::vector<float> out(256, 5);
    EXPECT_TRUE(SmoothGaussian(audio, in.data(), out.data(), 256, kSpectrumSigma));
    EXPECT_TRUE(SmoothGaussian(audio, in.data(), out.data(), 256, kSpectrumSigma));
    EXPECT_EQ(audio.kernelCount, 1);
    EXPECT_TRUE(SmoothGaussian(audio, in.data(), out.data(), 128, kSpectrumSigma));
    EXPECT_EQ(audio.kernelCount, 2);
    out.assign(256, 5);
    EXPECT_FALSE(SmoothGaussian(audio, in.data(), out.data(), 256, 2.0f));
    EXPECT_EQ(out, std::vector<float>(256, 5));
    EXPECT_EQ(audio.kernelCount, 2);
    EXPECT_TRUE(SmoothGaussian(audio, in.data(), out.data(), 128, kSpectrumSigma)); // a known one still works
}

TEST(GaussianSmoother, AKernelThatDoesNotFitIsRefused) {
    ZephorAudioState audio{};
    const float in[1] = { 1 };
    float out[1] = { 5 };
    EXPECT_FALSE(SmoothGaussian(audio, in, out, 1, 5.0f)); // 41 taps
    EXPECT_FALSE(SmoothGaussian(audio, in, out, 1, 0.0f));
    EXPECT_FALSE(SmoothGaussian(audio, in, out, 1, -1.0f));
    EXPECT_FALSE(SmoothGaussian(audio, in, out, 1, std::nanf("")));
    EXPECT_FALSE(SmoothGaussian(audio, in, out, 0, 1.0f));
    EXPECT_EQ(out[0], 5);
    EXPECT_EQ(audio.kernelCount, 0);
    EXPECT_TRUE(SmoothGaussian(audio, in, out, 1, 4.9f)); // 39 taps, of which one falls on the row
    EXPECT_NEAR(double(out[0]), 1, kTolerance);
    EXPECT_EQ(audio.kernels[0].tapCount, 39);
}

} // namespace
} // namespace orvane::zephor
