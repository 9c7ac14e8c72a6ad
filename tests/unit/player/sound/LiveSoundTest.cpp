#include "player/sound/LiveSound.h"

#include "unit/player/sound/Fakes.h"

#include <gtest/gtest.h>

#include <deque>
#include <vector>

namespace orvane::player {
namespace {

using tests::RampFrame;

class ScriptedCapture final : public ISoundCapture {
public:
    [[nodiscard]] std::uint32_t Rate() const override { return 1000; }

    [[nodiscard]] std::size_t Read(std::span<StereoFrame> frames) override {
        std::size_t count = 0;
        while (count < frames.size() && !mWaiting.empty()) {
            frames[count++] = mWaiting.front();
            mWaiting.pop_front();
        }
        return count;
    }

    [[nodiscard]] bool IsLost() const override { return mLost; }

    void Bring(std::int64_t begin, std::int64_t end) {
        for (std::int64_t place = begin; place < end; ++place) mWaiting.push_back(RampFrame(place));
    }

    std::deque<StereoFrame> mWaiting;
    bool mLost = false;
};

class LiveSoundTest : public testing::Test {
protected:
    [[nodiscard]] std::vector<StereoFrame> Heard(std::size_t count) const {
        std::vector<StereoFrame> window(count, StereoFrame{ 9, 9 });
        mLive.CopyHeard(window);
        return window;
    }

    double mNow = 10.0; // seconds
    ScriptedCapture mCapture;
    LiveSound mLive{ mCapture, [this] { return mNow; } };
};

TEST_F(LiveSoundTest, GivesTheNewestThatCameIn) {
    EXPECT_EQ(mLive.Rate(), 1000u);
    mCapture.Bring(1, 2001); // more than is taken in at once
    mLive.Feed();
    EXPECT_EQ(Heard(2), (std::vector{ RampFrame(1999), RampFrame(2000) }));
}

TEST_F(LiveSoundTest, IsSilentBeforeAnythingCame) {
    EXPECT_EQ(Heard(2), (std::vector<StereoFrame>{ {}, {} }));
}

// A system that plays nothing brings no packets at all: the picture mustn't freeze on the last sound.
TEST_F(LiveSoundTest, FallsSilentWhenNothingComesForAFifthOfASecond) {
    mCapture.Bring(1, 11);
    mLive.Feed();
    mNow += 0.1875;
    mLive.Feed();
    EXPECT_EQ(Heard(1).front(), RampFrame(10));
    mNow += 0.03125;
    mLive.Feed();
    EXPECT_EQ(Heard(2), (std::vector<StereoFrame>{ {}, {} }));
    mCapture.Bring(50, 60);
    mLive.Feed();
    EXPECT_EQ(Heard(1).front(), RampFrame(59));
}

TEST_F(LiveSoundTest, TellsThatTheDeviceWentAway) {
    mLive.Feed();
    EXPECT_FALSE(mLive.IsLost());
    mCapture.mLost = true;
    mLive.Feed();
    EXPECT_TRUE(mLive.IsLost());
}

} // namespace
} // namespace orvane::player
