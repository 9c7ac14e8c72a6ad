#include "player/analysis/Analyzer.h"

#include "TestSounds.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

namespace orvane::player {
namespace {

using records::AudioRenderData;

TEST(Analyzer, SilenceIsWhatTheHostTakesForSilence) {
    for (const std::size_t channels : { 1u, 2u }) {
        Analyzer analyzer(44100, channels);
        const auto data = analyzer.Analyze(Samples(analyzer.WindowFrames() * channels), 1);
        EXPECT_EQ(data.waveformChannels, 2);
        EXPECT_EQ(data.spectrumChannels, 2);
        EXPECT_TRUE(std::ranges::all_of(AllOf(data.waveform), [](auto byte) { return byte == 127; }));
        EXPECT_TRUE(std::ranges::all_of(AllOf(data.spectrum), [](auto byte) { return byte == 0; }));
        EXPECT_TRUE(Same(data, SilentRenderData()));
    }
}

TEST(Analyzer, TheWaveformIsTheMiddleHalfOfTheWindow) {
    auto analyzer = WithGainOfOne(44100, 2);
    ASSERT_EQ(analyzer.WindowFrames(), 1024u);
    Samples window(1024 * 2);
    for (std::size_t i = 0; i < 512; ++i) {
        window[(256 + i) * 2] = (float(i) - 256) / 256;     // left rises from -1
        window[(256 + i) * 2 + 1] = (256 - float(i)) / 512; // right falls from 0.5
    }
    window[255 * 2] = window[768 * 2] = 1; // just outside
    const auto data = analyzer.Analyze(window, 0);
    for (int i = 0; i < 512; ++i) {
        EXPECT_EQ(data.waveform[0][i], std::lround(127 + 127 * (i - 256) / 256.0)) << i;
        EXPECT_EQ(data.waveform[1][i], std::lround(127 + 127 * (256 - i) / 512.0)) << i;
    }
}

TEST(Analyzer, FullScaleIs0And254) {
    auto analyzer = WithGainOfOne(44100, 1);
    Samples window(1024, 1.0f);
    std::fill(window.begin() + 512, window.end(), -1.0f);
    const auto data = analyzer.Analyze(window, 0);
    EXPECT_EQ(data.waveform[0][0], 254);
    EXPECT_EQ(data.waveform[0][255], 254);
    EXPECT_EQ(data.waveform[0][256], 0);
}

TEST(Analyzer, SamplesBeyondFullScaleAreCutAndThoseThatAreNoNumberAreSilence) {
    auto analyzer = WithGainOfOne(44100, 1);
    Samples window(1024);
    window[256] = 100;
    window[257] = -100;
    window[258] = std::numeric_limits<float>::quiet_NaN();
    window[259] = std::numeric_limits<float>::infinity();
    const auto data = analyzer.Analyze(window, 0);
    EXPECT_EQ(data.waveform[0][0], 254);
    EXPECT_EQ(data.waveform[0][1], 0);
    EXPECT_EQ(data.waveform[0][2], 127);
    EXPECT_EQ(data.waveform[0][3], 127);
    EXPECT_EQ(analyzer.Gain(), 1.0f);
    // What was wrong leaves nothing behind.
    EXPECT_TRUE(Same(analyzer.Analyze(Samples(1024), 0), SilentRenderData()));
}

TEST(Analyzer, AWindowOfAnotherSizeIsSilence) {
    auto analyzer = WithGainOfOne(44100, 2);
    for (const std::size_t size : { 0u, 1u, 1024u, 2047u, 2049u, 4096u })
        EXPECT_TRUE(Same(analyzer.Analyze(Samples(size, 0.5f), 0), SilentRenderData())) << size;
}

TEST(Analyzer, NoChannelsAreTakenAsOne) {
    auto analyzer = WithGainOfOne(44100, 0);
    EXPECT_TRUE(Same(analyzer.Analyze({}, 0), SilentRenderData()));
    EXPECT_NE(analyzer.Analyze(Sine(1024, 44100, 1000, 0.5), 0).spectrum[0][23], 0);
}

TEST(Analyzer, MonoIsInBothChannels) {
    auto analyzer = WithGainOfOne(44100, 1);
    const auto data = analyzer.Analyze(Sine(1024, 44100, 1000, 0.5), 0);
    EXPECT_TRUE(std::ranges::equal(data.waveform[0], data.waveform[1]));
    EXPECT_TRUE(std::ranges::equal(data.spectrum[0], data.spectrum[1]));
    EXPECT_NE(data.spectrum[0][23], 0); // 1000 / 43.07 = 23.2
}

TEST(Analyzer, TheChannelsAreKeptApartAndOnlyTwoAreTaken) {
    for (const std::size_t channels : { 2u, 6u }) {
        auto analyzer = WithGainOfOne(44100, channels);
        Samples window(1024 * channels);
        const Samples tone = Sine(1024, 44100, 1000, 0.5);
        for (std::size_t i = 0; i < 1024; ++i) {
            window[i * channels + 1] = tone[i];
            if (channels > 2) window[i * channels + 2] = 0.25f; // centre
        }
        const auto data = analyzer.Analyze(window, 0);
        const auto silence = SilentRenderData();
        EXPECT_TRUE(std::ranges::equal(data.waveform[0], silence.waveform[0]));
        EXPECT_TRUE(std::ranges::equal(data.spectrum[0], silence.spectrum[0]));
        EXPECT_NE(data.spectrum[1][23], 0);
    }
}

TEST(Analyzer, TheSameSoundGivesTheSameBytes) {
    Analyzer first(48000, 2), second(48000, 2);
    for (unsigned seed = 0; seed < 20; ++seed) {
        const Samples window = Noise(first.WindowFrames() * 2, seed, 0.1f);
        EXPECT_TRUE(Same(first.Analyze(window, 0.1), second.Analyze(window, 0.1))) << seed;
    }
}

TEST(Analyzer, TheGainIsInFrontOfBothWaveformAndSpectrum) {
    Analyzer analyzer(44100, 1);
    auto plain = WithGainOfOne(44100, 1);
    const double bin10 = 10 * 44100.0 / 1024;
    for (int i = 0; i < 60; ++i) static_cast<void>(analyzer.Analyze(Sine(1024, 44100, bin10, 0.0875), 1));
    EXPECT_NEAR(analyzer.Gain(), 8.0f, 0.01f); // 0.7 / 0.0875
    const auto raised = analyzer.Analyze(Sine(1024, 44100, bin10, 0.0875), 0);
    const auto loud = plain.Analyze(Sine(1024, 44100, bin10, 0.7), 0);
    for (int i = 0; i < 512; ++i) {
        EXPECT_NEAR(raised.waveform[0][i], loud.waveform[0][i], 1) << i;
        EXPECT_NEAR(raised.spectrum[0][i], loud.spectrum[0][i], 1) << i;
    }
}

} // namespace
} // namespace orvane::player
