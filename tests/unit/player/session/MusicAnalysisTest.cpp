#include "player/session/MusicAnalysis.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <vector>

namespace orvane::player {
namespace {

// Left is a loud tone, right is silent: so they come out.
TEST(MusicAnalysis, KeepsTheSidesApart) {
    constexpr std::uint32_t kRate = 48000;
    constexpr double kTone = 1000; // hertz
    MusicAnalysis analysis;
    analysis.Begin(kRate);
    std::vector<StereoFrame> window(analysis.WindowFrames());
    for (std::size_t i = 0; i < window.size(); ++i)
        window[i].left = float(0.7 * std::sin(2 * std::numbers::pi * kTone * double(i) / kRate));
    const records::AudioRenderData sound = analysis.Analyze(window, 0);
    EXPECT_EQ(sound.waveformChannels, 2);
    EXPECT_EQ(sound.spectrumChannels, 2);
    int highest = 0;
    int total = 0;
    for (std::size_t i = 0; i < records::kSamplesPerChannel; ++i) {
        highest = std::max<int>(highest, sound.waveform[0][i]);
        total += sound.spectrum[0][i];
        EXPECT_EQ(sound.waveform[1][i], records::kWaveformSilence);
        EXPECT_EQ(sound.spectrum[1][i], 0);
    }
    EXPECT_GT(highest, 200);
    EXPECT_GT(total, 200);
}

TEST(MusicAnalysis, IsReadyBeforeItBegins) {
    MusicAnalysis analysis;
    const std::vector<StereoFrame> silence(analysis.WindowFrames());
    EXPECT_GT(silence.size(), 0u);
    EXPECT_EQ(analysis.Analyze(silence, 1.0 / 60).waveform[0][0], records::kWaveformSilence);
}

} // namespace
} // namespace orvane::player
