#include "player/analysis/Analyzer.h"

#include "player/analysis/AutomaticGain.h"

#include <eigen3/unsupported/Eigen/FFT>

#include <algorithm>
#include <array>
#include <cmath>
#include <complex>
#include <cstring>
#include <numbers>
#include <vector>

namespace orvane::player {

namespace {

using records::AudioRenderData;
using records::kAudioChannels;
using records::kSamplesPerChannel;
using records::kWaveformSilence;

constexpr double kUsualRate = 44100;       // at which a sample of the waveform is a frame
constexpr std::size_t kUsualWindow = 1024; // frames at that rate: 512 bins up to half of it
constexpr int kSmallestWindow = 6;         // as powers of two: 64 frames, for 2.8 kHz and less
constexpr int kLargestWindow = 16;         // and more than any device plays
constexpr float kWaveformScale = 127;      // bytes for full scale, either way from silence
constexpr float kLargestByte = 255;
constexpr float kHalf = 0.5f;         // rounds what isn't negative when it is cut off to a whole
constexpr float kLoudest = 0.25f;     // amplitude that gives the largest byte: 12 dB below full scale
constexpr float kLowestLevel = 0.02f; // square root of 80 dB below full scale, as a part of that of kLoudest
constexpr double kTiltStart = 500;    // Hz

std::size_t WindowFor(double framesPerSecond) {
    const double powerOfTwo = std::log2(double(kUsualWindow) * framesPerSecond / kUsualRate);
    return std::size_t(1) << std::clamp(int(std::lround(powerOfTwo)), kSmallestWindow, kLargestWindow);
}

// Rises from 0 and falls back to it; the one of `size` that repeats with that period.
std::vector<float> HannWindow(std::size_t size) {
    std::vector<float> window(size);
    for (std::size_t i = 0; i < size; ++i)
        window[i] = float(0.5 - 0.5 * std::cos(2 * std::numbers::pi * double(i) / double(size)));
    return window;
}

// What each bin counts more than its amplitude, so that the treble, which is weak in all music, shows too.
std::vector<float> TiltOf(double framesPerSecond, std::size_t size) {
    std::vector<float> tilt(size / 2 + 1);
    for (std::size_t i = 0; i < tilt.size(); ++i) {
        const double hertz = double(i) * framesPerSecond / double(size);
        tilt[i] = float(std::sqrt(std::max(hertz / kTiltStart, 1.0)));
    }
    return tilt;
}

float Sane(float sample) {
    return std::isfinite(sample) ? std::clamp(sample, -1.0f, 1.0f) : 0.0f;
}

std::uint8_t ByteOf(float value) {
    const float whole = std::clamp(value, 0.0f, kLargestByte) + kHalf;
    return std::uint8_t(whole);
}

std::uint8_t WaveformByte(float sample) {
    return ByteOf(float(kWaveformSilence) + kWaveformScale * std::clamp(sample, -1.0f, 1.0f));
}

std::uint8_t SpectrumByte(float amplitude) {
    return ByteOf(kLargestByte * (std::sqrt(amplitude / kLoudest) - kLowestLevel) / (1 - kLowestLevel));
}

} // namespace

struct Analyzer::State {
    State(double framesPerSecond, std::size_t channelCount)
        : channels(std::max<std::size_t>(channelCount, 1))
        , window(HannWindow(WindowFor(framesPerSecond)))
        , samples{ window, window }
        , weighted(window.size())
        , bins(window.size() / 2 + 1)
        , tilt(TiltOf(framesPerSecond, window.size())) {
        transform.SetFlag(Eigen::FFT<float>::HalfSpectrum);
    }

    [[nodiscard]] std::size_t Frames() const { return window.size(); }

    // Takes the two channels that count, and returns the loudest sample of them.
    float Take(std::span<const float> interleaved) {
        float peak = 0;
        for (std::size_t channel = 0; channel < kAudioChannels; ++channel) {
            const float* from = interleaved.data() + std::min(channel, channels - 1);
            for (float& sample : samples[channel]) {
                sample = Sane(*from);
                peak = std::max(peak, std::abs(sample));
                from += channels;
            }
        }
        return peak;
    }

    // The waveform's sample: the mean of its frames, or a point on the line between two where it has less than one.
    [[nodiscard]] float WaveformSample(const std::vector<float>& frames, std::size_t index) const {
        const std::size_t start = Frames() / 4; // it is the middle half of the window
        if (Frames() >= kUsualWindow) {
            const std::size_t count = Frames() / kUsualWindow, first = start + index * count;
            float sum = 0;
            for (std::size_t i = 0; i < count; ++i) sum += frames[first + i];
            return sum / float(count);
        }
        const std::size_t perFrame = kUsualWindow / Frames(), first = start + index / perFrame;
        const float part = float(index % perFrame) / float(perFrame);
        return frames[first] + (frames[first + 1] - frames[first]) * part;
    }

    void WriteWaveform(const std::vector<float>& frames,
                       std::span<std::uint8_t, kSamplesPerChannel> out) const {
        const float factor = gain.Factor();
        for (std::size_t i = 0; i < out.size(); ++i)
            out[i] = WaveformByte(WaveformSample(frames, i) * factor);
    }

    void WriteSpectrum(const std::vector<float>& frames, std::span<std::uint8_t, kSamplesPerChannel> out) {
        for (std::size_t i = 0; i < Frames(); ++i) weighted[i] = frames[i] * window[i];
        transform.fwd(bins.data(), weighted.data(), Eigen::Index(Frames()));
        // A full-scale sine has an amplitude of half the window's sum, which is half its size.
        const float scale = 4.0f / float(Frames()) * gain.Factor();
        const std::size_t count = std::min(out.size(), bins.size() - 1);
        for (std::size_t i = 0; i < count; ++i)
            out[i] = SpectrumByte(std::sqrt(std::norm(bins[i])) * scale * tilt[i]);
    }

    const std::size_t channels;
    const std::vector<float> window;
    std::array<std::vector<float>, kAudioChannels> samples; // one vector a channel
    std::vector<float> weighted;
    std::vector<std::complex<float>> bins;
    const std::vector<float> tilt;
    Eigen::FFT<float> transform;
    AutomaticGain gain;
};

Analyzer::Analyzer(double framesPerSecond, std::size_t channels)
    : mState(std::make_unique<State>(framesPerSecond, channels)) {}

Analyzer::Analyzer(Analyzer&&) noexcept = default;
Analyzer::~Analyzer() = default;

std::size_t Analyzer::WindowFrames() const {
    return mState->Frames();
}

float Analyzer::Gain() const {
    return mState->gain.Factor();
}

AudioRenderData Analyzer::Analyze(std::span<const float> window, double seconds) {
    AudioRenderData data = SilentRenderData();
    State& state = *mState;
    if (window.size() != state.Frames() * state.channels) return data;
    state.gain.Follow(state.Take(window), seconds);
    for (std::size_t channel = 0; channel < kAudioChannels; ++channel) {
        state.WriteWaveform(state.samples[channel], data.waveform[channel]);
        state.WriteSpectrum(state.samples[channel], data.spectrum[channel]);
    }
    return data;
}

AudioRenderData SilentRenderData() {
    AudioRenderData data = {
        .waveformChannels = kAudioChannels, .waveform = {}, .spectrumChannels = kAudioChannels, .spectrum = {}
    };
    std::memset(data.waveform, kWaveformSilence, sizeof(data.waveform));
    return data;
}

} // namespace orvane::player
