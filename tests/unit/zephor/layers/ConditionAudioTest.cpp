// The conditioned sound beside the formulas in double precision.
#include "zephor/layers/ConditionAudio.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <random>

namespace orvane::zephor {
namespace {

constexpr double kTolerance = 1e-6; // a few steps of a float near 1

// Silence: a waveform of 127 and no spectrum.
struct Sound {
    records::AudioRenderData raw{};
    std::unique_ptr<ZephorAudioState> audio = std::make_unique<ZephorAudioState>();

    Sound() {
        for (auto& channel : raw.waveform)
            std::fill(std::begin(channel), std::end(channel), records::kWaveformSilence);
    }

    ZephorAudioState& Conditioned() {
        ConditionAudio(*audio, raw);
        return *audio;
    }
};

// The magnitude of a bin that got through the gate as `gated`, before its ends are damped.
double Magnitude(int i, int gated) {
    return std::log(i * gated * 1.953125e-5 + gated * 0.011499999 + 1.0) * 0.44;
}

TEST(ConditionAudio, SilenceIsZeroEverywhere) {
    Sound sound;
    const ZephorAudioState& audio = sound.Conditioned();
    for (int c = 0; c < kAudioChannels; ++c) {
        EXPECT_EQ(audio.spectrumSum[c], 0u);
        for (int i = 0; i < kAudioPoints; ++i) {
            EXPECT_EQ(audio.gatedSpectrum[c][i], 0);
            EXPECT_EQ(audio.spectrum[c][i], 0);
            EXPECT_EQ(audio.waveform[c][i], 0);
        }
    }
}

TEST(ConditionAudio, TheSumTakesTheFirst256BinsAsTheyCome) {
    Sound sound;
    std::fill(std::begin(sound.raw.spectrum[0]), std::end(sound.raw.spectrum[0]), std::uint8_t(255));
    sound.raw.spectrum[1][0] = 3; // below the gate, and counted
    sound.raw.spectrum[1][255] = 20;
    sound.raw.spectrum[1][256] = 100;
    EXPECT_EQ(sound.Conditioned().spectrumSum[0], 255u * 256u);
    EXPECT_EQ(sound.audio->spectrumSum[1], 23u);
    EXPECT_EQ(sound.Conditioned().spectrumSum[1], 23u); // made anew each time
}

TEST(ConditionAudio, TheGateLooksAtBinIAndTheValueComesFromBinIHalved) {
    Sound sound;
    sound.raw.spectrum[0][10] = 100;
    sound.raw.spectrum[0][11] = 61;
    sound.raw.spectrum[0][20] = 5;
    sound.raw.spectrum[0][21] = 4;
    sound.raw.spectrum[0][22] = 9;
    const ZephorAudioState& audio = sound.Conditioned();
    EXPECT_EQ(audio.gatedSpectrum[0][20], 80); // open at 5: (100 + 61) / 2, rounded down
    EXPECT_EQ(audio.gatedSpectrum[0][21], 0);  // shut at 4
    EXPECT_EQ(audio.gatedSpectrum[0][22], 30); // (61 + 0) / 2
    EXPECT_EQ(audio.gatedSpectrum[0][10], 0);  // open, but bins 5 and 6 are silent
    EXPECT_EQ(audio.gatedSpectrum[1][20], 0);
}

TEST(ConditionAudio, TheLastPointReadsBins127And128) {
    Sound sound;
    sound.raw.spectrum[1][255] = 255;
    sound.raw.spectrum[1][127] = 40;
    sound.raw.spectrum[1][128] = 60;
    EXPECT_EQ(sound.Conditioned().gatedSpectrum[1][255], 50);
}

TEST(ConditionAudio, AFullSpectrumFitsAByte) {
    Sound sound;
    std::fill(std::begin(sound.raw.spectrum[0]), std::end(sound.raw.spectrum[0]), std::uint8_t(255));
    EXPECT_EQ(sound.Conditioned().gatedSpectrum[0][100], 255);
}

TEST(ConditionAudio, TheSpectrumIsLogarithmicAndHighBinsAreLifted) {
    Sound sound;
    for (int i = 0; i < 512; ++i) sound.raw.spectrum[0][i] = std::uint8_t(5 + i % 251);
    const ZephorAudioState& audio = sound.Conditioned();
    for (int i = 2; i < 254; ++i) {
        const int gated = (sound.raw.spectrum[0][i / 2] + sound.raw.spectrum[0][i / 2 + 1]) / 2;
        EXPECT_NEAR(double(audio.spectrum[0][i]), Magnitude(i, gated), kTolerance) << i;
    }
    // By hand: i = 100, bins 50 and 51 of 55 and 56, 55 gated; log(1.7399218) * 0.44.
    EXPECT_NEAR(double(audio.spectrum[0][100]), 0.2436897, 1e-6);
}

TEST(ConditionAudio, TheEndsOfTheFirstChannelAreDampedTwiceAndOfTheSecondOnce) {
    Sound sound;
    for (auto& channel : sound.raw.spectrum)
        std::fill(std::begin(channel), std::end(channel), std::uint8_t(200));
    for (int round = 0; round < 3; ++round) { // and what was there before doesn't matter
        const ZephorAudioState& audio = sound.Conditioned();
        const double twice[] = { 0.4225, 0.7225, 1 }, once[] = { 0.65, 0.85, 1 };
        for (int i = 0; i < 3; ++i) {
            EXPECT_NEAR(double(audio.spectrum[0][i]), Magnitude(i, 200) * twice[i], kTolerance);
            EXPECT_NEAR(double(audio.spectrum[0][255 - i]), Magnitude(255 - i, 200) * twice[i], kTolerance);
            EXPECT_NEAR(double(audio.spectrum[1][i]), Magnitude(i, 200) * once[i], kTolerance);
            EXPECT_NEAR(double(audio.spectrum[1][255 - i]), Magnitude(255 - i, 200) * once[i], kTolerance);
        }
    }
}

TEST(ConditionAudio, ASampleIsTheMeanOfTwoAround127) {
    Sound sound;
    sound.raw.waveform[0][200] = 255;
    sound.raw.waveform[0][201] = 255; // (255 + 255) / 2 - 127 = 128
    sound.raw.waveform[0][202] = 0;
    sound.raw.waveform[0][203] = 0; // -127
    sound.raw.waveform[0][204] = 127;
    sound.raw.waveform[0][205] = 130; // 257 / 2 = 128, rounded down: 1
    sound.raw.waveform[1][204] = 126;
    sound.raw.waveform[1][205] = 127; // 253 / 2 = 126: -1
    const ZephorAudioState& audio = sound.Conditioned();
    EXPECT_NEAR(double(audio.waveform[0][100]), 0.9856, kTolerance);
    EXPECT_NEAR(double(audio.waveform[0][101]), -0.9779, kTolerance);
    EXPECT_NEAR(double(audio.waveform[0][102]), 0.0077, 1e-9);
    EXPECT_NEAR(double(audio.waveform[1][102]), -0.0077, 1e-9);
    EXPECT_EQ(audio.waveform[0][103], 0);
}

TEST(ConditionAudio, BothEndsOfTheTraceRiseFrom0OverTwentyPoints) {
    Sound sound;
    for (auto& channel : sound.raw.waveform)
        std::fill(std::begin(channel), std::end(channel), std::uint8_t(227));
    const ZephorAudioState& audio = sound.Conditioned();
    for (int c = 0; c < kAudioChannels; ++c) {
        EXPECT_EQ(audio.waveform[c][0], 0);
        EXPECT_EQ(audio.waveform[c][255], 0);
        for (int i = 0; i < kAudioPoints; ++i) {
            const double rise = i < 20     ? std::sin(i * 0.07853981)
                                : i >= 235 ? std::sin((255 - i) * 0.07853981)
                                           : 1.0;
            // 235 is the twentieth from the end: 255 - 235 = 20, a whole quarter turn.
            EXPECT_NEAR(double(audio.waveform[c][i]), 0.77 * rise, kTolerance) << i;
        }
        EXPECT_NEAR(double(audio.waveform[c][10]), 0.77 * std::sqrt(0.5), kTolerance); // an eighth turn
    }
}

TEST(ConditionAudio, RandomSoundsAreWhatTheFormulasSay) {
    std::mt19937 random(3);
    Sound sound;
    for (int round = 0; round < 20; ++round) {
        for (int c = 0; c < kAudioChannels; ++c)
            for (int i = 0; i < 512; ++i) {
                sound.raw.spectrum[c][i] = std::uint8_t(random() % 3 == 0 ? random() % 8 : random());
                sound.raw.waveform[c][i] = std::uint8_t(random());
            }
        const ZephorAudioState& audio = sound.Conditioned();
        for (int c = 0; c < kAudioChannels; ++c)
            for (int i = 2; i < 254; ++i) {
                const std::uint8_t* const bins = sound.raw.spectrum[c];
                const int gated = bins[i] > 4 ? (bins[i / 2] + bins[i / 2 + 1]) / 2 : 0;
                EXPECT_EQ(audio.gatedSpectrum[c][i], gated);
                EXPECT_NEAR(double(audio.spectrum[c][i]), Magnitude(i, gated), kTolerance);
            }
    }
}

} // namespace
} // namespace orvane::zephor
