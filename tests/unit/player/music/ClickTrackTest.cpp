#include "player/music/ClickTrack.h"

#include "Listening.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace orvane::player {
namespace {

TEST(ClickTrack, ClicksEachHalfSecondOnTheFrameAndIsSilentBetween) {
    for (const double rate : { 44100.0, 48000.0, 22050.0 }) {
        ClickTrack track(rate, 3.25);
        EXPECT_EQ(track.FramesPerSecond(), rate);
        const Samples sound = ReadWhole(track);
        ASSERT_EQ(sound.size(), std::size_t(3.25 * rate) * 2);
        EXPECT_EQ(track.Frames() * 2, sound.size());
        const auto period = std::size_t(rate / 2), click = std::size_t(0.03 * rate);
        for (std::size_t frame = 0; frame < sound.size() / 2; ++frame) {
            const std::size_t since = frame % period;
            const float left = sound[2 * frame];
            ASSERT_EQ(left, sound[2 * frame + 1]) << frame;
            ASSERT_LE(std::abs(left), since > click ? 0.0f : 0.9f) << frame;
            ASSERT_TRUE(since != 0 || left == 0.9f) << frame;
        }
    }
}

TEST(ClickTrack, IsTheSameInBlocksOfAnySize) {
    const auto read = [](std::size_t block) {
        ClickTrack track(8000, 1.1);
        return ReadWhole(track, block);
    };
    const Samples whole = read(100000);
    for (const std::size_t block : { 1u, 3u, 500u }) EXPECT_EQ(read(block), whole) << block;
}

TEST(ClickTrack, AnEmptyOneEndsAtOnce) {
    ClickTrack track(44100, 0);
    EXPECT_EQ(ReadWhole(track), Samples());
}

} // namespace
} // namespace orvane::player
