#include "player/sound/StereoMix.h"

#include <gtest/gtest.h>

#include <vector>

namespace orvane::player {
namespace {

std::vector<StereoFrame> Mix(const std::vector<float>& samples, std::size_t channels, std::size_t room) {
    std::vector<StereoFrame> frames(room, StereoFrame{ 9, 9 });
    MixToStereo(samples, channels, frames);
    return frames;
}

TEST(StereoMix, TakesOneChannelTwice) {
    EXPECT_EQ(Mix({ 0.5f, -0.25f }, 1, 2), (std::vector<StereoFrame>{ { 0.5f, 0.5f }, { -0.25f, -0.25f } }));
}

TEST(StereoMix, LeavesTwoChannelsAsTheyAre) {
    EXPECT_EQ(Mix({ 1, 2, 3, 4 }, 2, 2), (std::vector<StereoFrame>{ { 1, 2 }, { 3, 4 } }));
}

// Six channels, one of them loud at a time: front left and right, centre, low frequencies, rear left and right.
TEST(StereoMix, MixesSurroundSound) {
    constexpr float kRootOfHalf = 0.70710678f;
    const StereoFrame expected[] = { { 1, 0 }, { 0, 1 },           { kRootOfHalf, kRootOfHalf },
                                     { 0, 0 }, { kRootOfHalf, 0 }, { 0, kRootOfHalf } };
    for (std::size_t channel = 0; channel < 6; ++channel) {
        std::vector<float> sample(6);
        sample[channel] = 1;
        EXPECT_EQ(Mix(sample, 6, 1).front(), expected[channel]) << channel;
    }
    EXPECT_EQ(Mix({ 0, 0, 0, 0, 0, 0, 1, 0 }, 8, 1).front(), (StereoFrame{ kRootOfHalf, 0 }));
    EXPECT_EQ(Mix({ 0, 0, 0, 0, 0, 0, 0, 1 }, 8, 1).front(), (StereoFrame{ 0, kRootOfHalf }));
}

TEST(StereoMix, TakesTheFrontOfMoreThanEightChannels) {
    EXPECT_EQ(Mix({ 1, 2, 3, 4, 5, 6, 7, 8, 9 }, 9, 1).front(), (StereoFrame{ 1, 2 }));
}

TEST(StereoMix, MakesAsManyFramesAsBothHaveRoomFor) {
    EXPECT_EQ(Mix({ 1, 2, 3 }, 2, 2),
              (std::vector<StereoFrame>{ { 1, 2 }, { 9, 9 } })); // half a frame is none
    EXPECT_EQ(Mix({ 1, 2, 3, 4 }, 2, 1), (std::vector<StereoFrame>{ { 1, 2 } }));
    EXPECT_EQ(Mix({ 1, 2 }, 0, 1), (std::vector<StereoFrame>{ { 9, 9 } }));
}

} // namespace
} // namespace orvane::player
