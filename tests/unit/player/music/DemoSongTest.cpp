#include "player/music/DemoSong.h"

#include "Listening.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace orvane::player {
namespace {

constexpr double kRate = 22050; // enough for everything below but the highest hiss

const Samples& Song() {
    static const Samples sSong = [] {
        DemoSong song(kRate);
        return ReadWhole(song);
    }();
    return sSong;
}

double LoudnessOf(double from, double to) {
    return Loudness(Between(Song(), kRate, from, to));
}

TEST(DemoSong, LastsAMinuteAndAHalfAndEndsThere) {
    for (const double rate : { 44100.0, 48000.0 }) {
        DemoSong song(rate);
        EXPECT_EQ(song.FramesPerSecond(), rate);
        EXPECT_EQ(song.Frames(), std::uint64_t(86 * rate));
    }
    DemoSong song(8000);
    EXPECT_EQ(ReadWhole(song).size(), 86u * 8000 * 2);
    Samples more(20);
    EXPECT_EQ(song.Read(more), 0u);
}

TEST(DemoSong, TooLowARateIsRaised) {
    DemoSong song(0);
    EXPECT_EQ(song.FramesPerSecond(), 8000);
}

TEST(DemoSong, IsTheSameTwiceAndInBlocksOfAnySize) {
    constexpr std::size_t frames = 20 * 8000; // dawn, pulse and the beginning of verse
    const auto read = [](std::size_t block) {
        DemoSong song(8000);
        Samples all(frames * 2);
        for (std::size_t at = 0; at < all.size();) {
            const auto part = std::span(all).subspan(at, std::min(block * 2, all.size() - at));
            at += song.Read(part) * 2;
        }
        return all;
    };
    const Samples whole = read(frames);
    for (const std::size_t block : { 1u, 7u, 441u, 4096u }) EXPECT_EQ(read(block), whole) << block;
}

TEST(DemoSong, AnOddSampleAtTheEndOfABlockIsLeftAlone) {
    DemoSong song(8000);
    Samples block(5, 7.0f);
    EXPECT_EQ(song.Read(block), 2u);
    EXPECT_EQ(block[4], 7.0f);
}

TEST(DemoSong, NothingIsCutOffAtFullScale) {
    DemoSong song(44100);
    float peak = 0;
    bool finite = true;
    Samples block(8192);
    while (const std::size_t count = song.Read(block))
        for (std::size_t i = 0; i < 2 * count; ++i) {
            peak = std::max(peak, std::abs(block[i]));
            finite = finite && std::isfinite(block[i]);
        }
    EXPECT_TRUE(finite);
    EXPECT_LT(peak, DemoSong::kCeiling);
    EXPECT_GT(peak, 0.7f); // and it is no whisper
}

TEST(DemoSong, BeginsAndEndsWithSilenceAndWithoutAClick) {
    const Samples& song = Song();
    EXPECT_EQ(song.front(), 0);
    EXPECT_EQ(song.back(), 0);
    EXPECT_LT(LoudnessOf(0, 0.005), -50);
    EXPECT_LT(LoudnessOf(85.9, 86), -60);
    for (const auto& edge : { Between(song, kRate, 0, 0.005), Between(song, kRate, 85.995, 86) })
        for (std::size_t i = 2; i < edge.size(); ++i) ASSERT_LT(std::abs(edge[i] - edge[i - 2]), 0.003f) << i;
}

TEST(DemoSong, TheSectionsDifferInLoudnessAsTheTableSays) {
    const double chorus = LoudnessOf(36, 52), still = LoudnessOf(52.5, 60);
    EXPECT_GT(LoudnessOf(6, 8), LoudnessOf(0.5, 2.5) + 3); // dawn grows
    EXPECT_GT(LoudnessOf(8, 16), LoudnessOf(6, 8) + 6);    // pulse comes in
    EXPECT_GT(LoudnessOf(16, 32), LoudnessOf(8, 16));      // verse is fuller
    EXPECT_LT(LoudnessOf(32, 34), LoudnessOf(16, 32) - 6); // lift draws back
    EXPECT_GT(LoudnessOf(35, 36), LoudnessOf(32, 33) + 3); // and swells
    EXPECT_GT(chorus, -16);
    EXPECT_LT(still, chorus - 12);
    EXPECT_GT(LoudnessOf(63, 64), LoudnessOf(60, 61) + 3); // rise
    EXPECT_GE(LoudnessOf(64, 80), chorus);                 // finale is the loudest
    EXPECT_LT(LoudnessOf(84, 86), LoudnessOf(80, 82) - 6); // end dies away
}

// The kick drum as energy below 120 Hz, just before a moment and just after it.
struct BassAround {
    double before, after;

    [[nodiscard]] double Ratio() const { return after / (before + 1e-9); }

    [[nodiscard]] double Rise() const { return after - before; }
};

class DemoSongBeats : public testing::Test {
protected:
    [[nodiscard]] BassAround Around(double moment) const {
        const auto energy = [this](double from, double to) {
            return MeanSquare(
                std::span(mBass).subspan(std::size_t(from * kRate), std::size_t((to - from) * kRate)));
        };
        return { energy(moment - 0.05, moment), energy(moment + 0.005, moment + 0.055) };
    }

    // A kick of the verse, on average.
    [[nodiscard]] double Kick() const {
        double sum = 0;
        for (int beat = 0; beat < 32; ++beat) sum += Around(16 + beat * 0.5).after;
        return sum / 32;
    }

    static constexpr double kClearRatio = 2.5; // 4 dB within a twentieth of a second

    const Samples mBass = BassOf(Song(), kRate, 120);
};

TEST_F(DemoSongBeats, EveryBeatOfTheKickIsOnTheGridAndStandsOut) {
    for (const auto& [from, to] : { std::pair(8.0, 32.0), std::pair(36.0, 52.0), std::pair(60.0, 80.0) })
        for (double beat = from; beat < to; beat += 0.5) {
            EXPECT_GT(Around(beat).Ratio(), kClearRatio) << "at " << beat << " s";
            EXPECT_GT(Around(beat).after, Kick() / 10) << "at " << beat << " s";
            // The bass plays between the beats, but it is the beat that stands out.
            EXPECT_LT(Around(beat + 0.25).Rise(), Around(beat).Rise() / 2) << "at " << beat + 0.25 << " s";
        }
}

TEST_F(DemoSongBeats, ThereIsNoBeatWhereTheTableHasNone) {
    for (const auto& [from, to] : { std::pair(1.0, 8.0), std::pair(32.5, 36.0), std::pair(53.0, 60.0) })
        for (double moment = from; moment < to; moment += 0.25)
            EXPECT_LT(Around(moment).after, Kick() / 10) << "at " << moment << " s";
}

TEST(DemoSong, FillsBothSidesEquallyButNotAlike) {
    double from = 0;
    for (const auto& section : SongSections()) {
        const double to = from + section.bars * 2;
        const auto sound = Between(Song(), kRate, from, to);
        double left = 0, right = 0, both = 0;
        for (std::size_t i = 0; i < sound.size(); i += 2) {
            left += double(sound[i]) * sound[i];
            right += double(sound[i + 1]) * sound[i + 1];
            both += double(sound[i]) * sound[i + 1];
        }
        EXPECT_NEAR(10 * std::log10(left / right), 0, 1.5) << section.name;
        const double likeness = both / std::sqrt(left * right);
        EXPECT_LT(likeness, 0.995) << section.name;
        EXPECT_GT(likeness, 0) << section.name; // nothing is lost where both are added
        from = to;
    }
}

TEST(DemoSong, ASectionBeginsWithoutAClickWhereNoDrumIsStruck) {
    const Samples& song = Song();
    const auto largestStep = [&song](double from, double to) {
        const auto sound = Between(song, kRate, from, to);
        float largest = 0;
        for (std::size_t i = 2; i < sound.size(); ++i)
            largest = std::max(largest, std::abs(sound[i] - sound[i - 2]));
        return largest;
    };
    EXPECT_LT(largestStep(51.999, 52.005), 1.5f * largestStep(51.9, 51.99)); // still
}

} // namespace
} // namespace orvane::player
