// What the spectrum's bins say of tones, levels, rates and music.
#include "player/analysis/Analyzer.h"

#include "TestSounds.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <complex>
#include <iterator>

namespace orvane::player {
namespace {

constexpr double kRate = 44100;
constexpr std::size_t kWindow = 1024;
constexpr double kBinWidth = kRate / kWindow;

// The scale from its definition: square root, 255 at 0.25, 0 at 0.0001, 3 dB for each octave above 500 Hz.
double ByteFor(double amplitude, double hertz) {
    const double weighted = amplitude * std::sqrt(std::max(hertz / 500, 1.0));
    const double lowest = std::sqrt(0.0001), loudest = std::sqrt(0.25);
    return std::clamp(255 * (std::sqrt(weighted) - lowest) / (loudest - lowest), 0.0, 255.0);
}

int StrongestBin(const records::AudioRenderData& data) {
    return int(std::max_element(std::begin(data.spectrum[0]), std::end(data.spectrum[0])) - data.spectrum[0]);
}

TEST(Spectrum, AToneInEachBinShowsThereAndInItsTwoNeighboursAlone) {
    auto analyzer = WithGainOfOne(kRate, 1);
    constexpr double amplitude = 0.02;
    for (int bin = 2; bin < 511; ++bin) {
        const auto data = analyzer.Analyze(Sine(kWindow, kRate, bin * kBinWidth, amplitude), 0);
        for (int i = 0; i < 512; ++i) {
            const int distance = std::abs(i - bin);
            // Under a Hann window a neighbour has half the amplitude, and no other bin has any.
            const double part = distance == 0 ? 1 : distance == 1 ? 0.5 : 0;
            ASSERT_NEAR(data.spectrum[0][i], ByteFor(amplitude * part, i * kBinWidth), 1)
                << bin << " at " << i;
        }
    }
}

TEST(Spectrum, ABassThatLiesBetweenTwoBinsDoesNotShowInTheTreble) {
    auto analyzer = WithGainOfOne(kRate, 1);
    const auto data = analyzer.Analyze(Sine(kWindow, kRate, 2.5 * kBinWidth, 0.25), 0);
    for (int i = 64; i < 512; ++i) EXPECT_EQ(data.spectrum[0][i], 0) << i;
}

// By hand, below 500 Hz: (sqrt(amplitude / 0.25) - 0.02) / 0.98 * 255.
TEST(Spectrum, LevelsAreOnASquareRootScale) {
    const struct {
        double amplitude;
        int byte;
    } steps[] = {
        { 1.0, 255 },  { 0.25, 255 }, { 0.0625, 125 }, { 0.01, 47 },
        { 0.001, 11 }, { 0.0001, 0 }, { 0.00001, 0 },
    };

    auto analyzer = WithGainOfOne(kRate, 1);
    for (const auto& [amplitude, byte] : steps)
        EXPECT_NEAR(analyzer.Analyze(Sine(kWindow, kRate, 8 * kBinWidth, amplitude), 0).spectrum[0][8], byte,
                    1)
            << amplitude;
}

TEST(Spectrum, EveryBinOfNoiseIsWhatAPlainTransformSays) {
    auto analyzer = WithGainOfOne(kRate, 1);
    const Samples noise = Noise(kWindow, 1, 0.5f);
    const auto data = analyzer.Analyze(noise, 0);
    for (std::size_t bin = 1; bin < 512; ++bin) {
        std::complex<double> sum = 0;
        for (std::size_t i = 0; i < kWindow; ++i) {
            const double turn = 2 * std::numbers::pi * double(i) / kWindow;
            sum += double(noise[i]) * (1 - std::cos(turn)) / 2 * std::polar(1.0, -turn * double(bin));
        }
        const double amplitude = std::abs(sum) / (kWindow / 4);
        EXPECT_NEAR(data.spectrum[0][bin], ByteFor(amplitude, double(bin) * kBinWidth), 1) << bin;
    }
}

TEST(Spectrum, AToneHasItsPlaceAndItsFormAtEveryRate) {
    const struct {
        double rate;
        std::size_t window;
    } rates[] = {
        { 8000, 256 },   { 11025, 256 },  { 22050, 512 },  { 32000, 1024 },  { 44100, 1024 },
        { 48000, 1024 }, { 88200, 2048 }, { 96000, 2048 }, { 192000, 4096 },
    };

    for (const auto& [rate, frames] : rates) {
        auto analyzer = WithGainOfOne(rate, 1);
        ASSERT_EQ(analyzer.WindowFrames(), frames) << rate;
        const auto data = analyzer.Analyze(Sine(frames, rate, 1000, 0.5), 0);
        EXPECT_NEAR(StrongestBin(data) * rate / double(frames), 1000, rate / double(frames)) << rate;
        // 1000 Hz cross zero upwards once in a thousandth of a second: 512 samples are a half of the window.
        int periods = 0;
        for (int i = 1; i < 512; ++i) periods += data.waveform[0][i - 1] < 127 && data.waveform[0][i] >= 127;
        EXPECT_NEAR(periods, 1000 * double(frames) / 2 / rate, 1.01) << rate;
        // And it is as tall.
        EXPECT_NEAR(*std::max_element(data.waveform[0], data.waveform[0] + 512), 127 + 63.5, 6) << rate;
    }
}

TEST(Spectrum, BinsAboveHalfTheRateAreEmpty) {
    auto analyzer = WithGainOfOne(22050, 1);
    const auto data = analyzer.Analyze(Noise(512, 2, 1.0f), 0);
    for (int i = 256; i < 512; ++i) EXPECT_EQ(data.spectrum[0][i], 0) << i;
    EXPECT_GT(std::ranges::count_if(data.spectrum[0], [](auto byte) { return byte > 0; }), 250);
}

TEST(Spectrum, RatesOutOfTheOrdinaryHaveAWindowAllTheSame) {
    for (const double rate : { 1.0, 100.0, 1e6, 1e12 }) {
        Analyzer analyzer(rate, 1);
        EXPECT_GE(analyzer.WindowFrames(), 64u) << rate;
        EXPECT_LE(analyzer.WindowFrames(), 65536u) << rate;
        EXPECT_TRUE(Same(analyzer.Analyze(Samples(analyzer.WindowFrames()), 1), SilentRenderData()));
    }
}

// Noise that falls by 3 dB an octave, as music does about.
Samples PinkNoise(std::size_t frames, float amplitude) {
    Samples samples(frames);
    std::mt19937 engine(3);
    float rows[12] = {}; // each is renewed half as often as the one before it
    for (std::size_t i = 0; i < frames; ++i) {
        float sum = 0;
        for (int row = 0; row < 12; ++row) {
            if (i % (std::size_t(1) << row) == 0) rows[row] = float(engine() >> 8) / float(1 << 23) - 1;
            sum += rows[row];
        }
        samples[i] = sum / 12 * amplitude;
    }
    return samples;
}

// The mean over the lower half of the bins above the lowest of them is what the particle visualizer brings to 20
// by a gain of 0.25 to 4: so it must lie within 5 to 80.
TEST(Spectrum, QuietAndLoudMusicAreBothWithinTheVisualizersReach) {
    for (const float amplitude : { 1.0f, 0.5f, 0.2f, 0.1f, 0.05f }) {
        const Samples song = PinkNoise(44100 * 20, amplitude);
        Analyzer analyzer(kRate, 1);
        double sum = 0;
        int pulses = 0;
        for (std::size_t at = 0; at + kWindow <= song.size(); at += 1470, ++pulses) {
            const auto data = analyzer.Analyze(std::span(song).subspan(at, kWindow), 1 / 30.0);
            const std::span bins(data.spectrum[0], 256);
            const int lowest = *std::ranges::min_element(bins);
            double mean = 0;
            for (const int byte : bins) mean += byte - lowest;
            if (pulses >= 300) sum += mean / 256; // after ten seconds
        }
        const double mean = sum / (pulses - 300);
        EXPECT_GT(mean, 5) << amplitude;
        EXPECT_LT(mean, 80) << amplitude;
    }
}

} // namespace
} // namespace orvane::player
