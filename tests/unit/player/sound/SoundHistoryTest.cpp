#include "player/sound/SoundHistory.h"

#include "unit/player/sound/Fakes.h"

#include <gtest/gtest.h>

#include <vector>

namespace orvane::player {
namespace {

using tests::RampFrame;
using Frames = std::vector<StereoFrame>;

Frames Ramp(std::int64_t begin, std::int64_t end) {
    Frames frames;
    for (std::int64_t place = begin; place < end; ++place) frames.push_back(RampFrame(place));
    return frames;
}

Frames Before(const SoundHistory& history, std::int64_t end, std::size_t count) {
    Frames window(count, StereoFrame{ 9, 9 });
    history.CopyBefore(end, window);
    return window;
}

TEST(SoundHistory, GivesTheFramesInFrontOfAPlace) {
    SoundHistory history(8);
    history.Append(Ramp(0, 6));
    EXPECT_EQ(history.End(), 6);
    EXPECT_EQ(Before(history, 5, 3), Ramp(2, 5));
    EXPECT_EQ(Before(history, 6, 6), Ramp(0, 6));
    EXPECT_EQ(Before(history, 6, 0), Frames());
}

TEST(SoundHistory, GivesSilenceForWhatItNeverHad) {
    SoundHistory history(8);
    history.Append(Ramp(1, 4)); // at the places 0 to 2
    EXPECT_EQ(Before(history, 2, 4), (Frames{ {}, {}, RampFrame(1), RampFrame(2) }));
    EXPECT_EQ(Before(history, 5, 4), (Frames{ RampFrame(2), RampFrame(3), {}, {} }));
    EXPECT_EQ(Before(history, -3, 2), (Frames{ {}, {} }));
    EXPECT_EQ(Before(history, 50, 2), (Frames{ {}, {} }));
}

TEST(SoundHistory, KeepsTheNewestWhenItIsFull) {
    for (const std::int64_t piece : { 1, 3, 7, 8, 9, 20 }) {
        SoundHistory history(8);
        for (std::int64_t place = 0; place < 40; place += piece) history.Append(Ramp(place, place + piece));
        const std::int64_t end = history.End();
        EXPECT_EQ(Before(history, end, 8), Ramp(end - 8, end)) << piece;
        EXPECT_EQ(Before(history, end, 9).front(), StereoFrame{}) << piece;
    }
}

TEST(SoundHistory, BeginsAnewAtAnyPlace) {
    SoundHistory history(8);
    history.Append(Ramp(0, 8));
    history.Restart(1000);
    EXPECT_EQ(history.End(), 1000);
    EXPECT_EQ(Before(history, 8, 2), (Frames{ {}, {} }));
    history.Append(Ramp(1000, 1003));
    EXPECT_EQ(Before(history, 1003, 4), (Frames{ {}, RampFrame(1000), RampFrame(1001), RampFrame(1002) }));
    history.Restart(-2);
    history.Append(Ramp(-2, 1));
    EXPECT_EQ(Before(history, 1, 3), Ramp(-2, 1));
}

TEST(SoundHistory, KeepsOneFrameAtLeast) {
    SoundHistory history(0);
    history.Append(Ramp(0, 3));
    EXPECT_EQ(Before(history, 3, 2), (Frames{ {}, RampFrame(2) }));
}

} // namespace
} // namespace orvane::player
