// One pulse's waveform and spectrum: our own analysis, and the same definition in its plainest form around FFTW.
#include "player/analysis/Analyzer.h"

#include "SameAnswer.h"

#include <benchmark/benchmark.h>
#include <fftw3.h>

#include <algorithm>
#include <cmath>
#include <complex>
#include <cstdlib>
#include <numbers>
#include <random>
#include <vector>

namespace {

using orvane::benches::RequireSameAnswer;
using orvane::player::Analyzer;
using orvane::records::AudioRenderData;

constexpr std::size_t kChannels = 2;

std::vector<float> LoudNoise(std::size_t count) {
    std::mt19937 engine(1);
    std::vector<float> samples(count);
    for (float& sample : samples) sample = float(engine() >> 8) / float(1 << 23) - 1;
    return samples;
}

std::uint8_t ByteOf(float value) {
    return std::uint8_t(std::lround(std::clamp(value, 0.0f, 255.0f)));
}

// Without automatic gain, which is 1 for sound at full scale; for rates from 44.1 kHz up.
class PlainAnalyzer {
public:
    PlainAnalyzer(double rate, std::size_t frames)
        : mFrames(frames)
        , mIn(frames)
        , mOut(frames / 2 + 1)
        , mWindow(frames)
        , mTilt(frames / 2 + 1)
        , mPlan(fftwf_plan_dft_r2c_1d(int(frames), mIn.data(), reinterpret_cast<fftwf_complex*>(mOut.data()),
                                      FFTW_MEASURE)) {
        for (std::size_t i = 0; i < frames; ++i)
            mWindow[i] = float(0.5 - 0.5 * std::cos(2 * std::numbers::pi * double(i) / double(frames)));
        for (std::size_t i = 0; i < mTilt.size(); ++i)
            mTilt[i] = float(std::sqrt(std::max(double(i) * rate / double(frames) / 500, 1.0)));
    }

    PlainAnalyzer(const PlainAnalyzer&) = delete;
    PlainAnalyzer& operator=(const PlainAnalyzer&) = delete;

    ~PlainAnalyzer() { fftwf_destroy_plan(mPlan); }

    AudioRenderData Analyze(const std::vector<float>& samples) {
        AudioRenderData data = orvane::player::SilentRenderData();
        for (std::size_t channel = 0; channel < kChannels; ++channel) {
            for (std::size_t i = 0; i < mFrames; ++i) mIn[i] = samples[i * kChannels + channel] * mWindow[i];
            const std::size_t step = mFrames / 1024;
            for (std::size_t i = 0; i < 512; ++i) {
                float sum = 0;
                for (std::size_t k = 0; k < step; ++k)
                    sum += samples[(mFrames / 4 + i * step + k) * kChannels + channel];
                data.waveform[channel][i] = ByteOf(127 + 127 * sum / float(step));
            }
            fftwf_execute(mPlan);
            for (std::size_t i = 0; i < 512; ++i) {
                const float amplitude = std::abs(mOut[i]) * 4 / float(mFrames) * mTilt[i];
                data.spectrum[channel][i] = ByteOf(255 * (std::sqrt(amplitude / 0.25f) - 0.02f) / 0.98f);
            }
        }
        return data;
    }

private:
    const std::size_t mFrames;
    std::vector<float> mIn;
    std::vector<std::complex<float>> mOut;
    std::vector<float> mWindow, mTilt;
    const fftwf_plan mPlan;
};

bool AlmostEqual(const AudioRenderData& a, const AudioRenderData& b) {
    const auto close = [](std::uint8_t x, std::uint8_t y) { return std::abs(int(x) - int(y)) <= 1; };
    for (std::size_t channel = 0; channel < kChannels; ++channel)
        if (!std::ranges::equal(a.waveform[channel], b.waveform[channel], close) ||
            !std::ranges::equal(a.spectrum[channel], b.spectrum[channel], close))
            return false;
    return true;
}

void PulseAnalysis(benchmark::State& state, bool own) {
    const auto rate = double(state.range(0));
    Analyzer analyzer(rate, kChannels);
    PlainAnalyzer plain(rate, analyzer.WindowFrames());
    const auto samples = LoudNoise(analyzer.WindowFrames() * kChannels);
    RequireSameAnswer(AlmostEqual(analyzer.Analyze(samples, 0), plain.Analyze(samples)), "pulse analysis");
    for ([[maybe_unused]] auto _ : state) {
        if (own) benchmark::DoNotOptimize(analyzer.Analyze(samples, 0));
        if (!own) benchmark::DoNotOptimize(plain.Analyze(samples));
    }
}

BENCHMARK_CAPTURE(PulseAnalysis, own, true)->Arg(44100)->Arg(192000);
BENCHMARK_CAPTURE(PulseAnalysis, fftw, false)->Arg(44100)->Arg(192000);

} // namespace
