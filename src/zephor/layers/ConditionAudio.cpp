#include "zephor/layers/ConditionAudio.h"

#include <array>
#include <cmath>

namespace orvane::zephor {

namespace {

constexpr int kGate = 4; // raw bins up to this are noise

constexpr double kWaveformScale = 0.0077;
constexpr int kRisePoints = 20;          // at either end of the trace
constexpr double kRiseStep = 0.07853981; // a quarter turn over the rise

constexpr double kLiftPerBin = 1.953125e-5;
constexpr double kLift = 0.011499999;
constexpr double kLogScale = 0.44;

// The factors of the outermost points, on either side.
constexpr float kEndFactors[] = { 0.65f, 0.85f };

// KEEP: the gate looks at bin i, and the value that passes comes from bin i / 2: the spectrum is stretched by
// two and gated by the bins before that. The effects are tuned to what comes of it.
// Pinned by ConditionAudio.TheGateLooksAtBinIAndTheValueComesFromBinIHalved.
void GateSpectrum(ZephorAudioState& audio, const records::AudioRenderData& raw, int channel) {
    const std::uint8_t* const bins = raw.spectrum[channel];
    audio.spectrumSum[channel] = 0;
    for (int i = 0; i < kAudioPoints; ++i) {
        audio.spectrumSum[channel] += bins[i];
        const int stretched = (bins[i / 2] + bins[i / 2 + 1]) / 2;
        audio.gatedSpectrum[channel][i] = bins[i] > kGate ? std::uint8_t(stretched) : std::uint8_t(0);
    }
}

std::array<double, kRisePoints> MakeRise() {
    std::array<double, kRisePoints> rise{};
    for (int i = 0; i < kRisePoints; ++i) rise[std::size_t(i)] = std::sin(i * kRiseStep);
    return rise;
}

void MakeWaveform(ZephorAudioState& audio, const records::AudioRenderData& raw, int channel) {
    static const std::array<double, kRisePoints> sRise = MakeRise();
    const std::uint8_t* const samples = raw.waveform[channel];
    float* const out = audio.waveform[channel];
    for (int i = 0; i < kAudioPoints; ++i) {
        const int mean = (samples[2 * i] + samples[2 * i + 1]) / 2;
        out[i] = float((mean - int(records::kWaveformSilence)) * kWaveformScale);
    }
    for (int i = 0; i < kRisePoints; ++i) {
        const int mirrored = kAudioPoints - 1 - i;
        out[i] = float(out[i] * sRise[std::size_t(i)]);
        out[mirrored] = float(out[mirrored] * sRise[std::size_t(i)]);
    }
}

void MakeSpectrum(ZephorAudioState& audio, int channel) {
    for (int i = 0; i < kAudioPoints; ++i) {
        const double gated = audio.gatedSpectrum[channel][i];
        const double lifted = i * gated * kLiftPerBin + gated * kLift + 1.0; // high bins the most
        audio.spectrum[channel][i] = float(std::log(lifted) * kLogScale);
    }
}

void DampEnds(float spectrum[kAudioPoints]) {
    int i = 0;
    for (const float factor : kEndFactors) {
        spectrum[i] *= factor;
        spectrum[kAudioPoints - 1 - i] *= factor;
        ++i;
    }
}

} // namespace

void ConditionAudio(ZephorAudioState& audio, const records::AudioRenderData& raw) {
    for (int channel = 0; channel < kAudioChannels; ++channel) {
        GateSpectrum(audio, raw, channel);
        MakeWaveform(audio, raw, channel);
        MakeSpectrum(audio, channel);
        // KEEP: both channels in both rounds, so the first channel's ends are damped twice and the second's, which
        // are written after the first round, once. The two channels have always looked that much apart.
        // Pinned by ConditionAudio.TheEndsOfTheFirstChannelAreDampedTwiceAndOfTheSecondOnce.
        for (float* const spectrum : { audio.spectrum[0], audio.spectrum[1] }) DampEnds(spectrum);
    }
    // The effects read the spectrum as it is now, not smoothed; so SmoothGaussian isn't called here.
}

} // namespace orvane::zephor
