#include "player/sound/Deck.h"

#include "player/sound/SilentDevice.h"
#include "unit/player/sound/Fakes.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <thread>
#include <vector>

namespace orvane::player {
namespace {

using tests::RampFrame;
using tests::RampSource;
using tests::ScriptedDevice;

class DeckTest : public testing::Test {
protected:
    void Load(std::int64_t length, double seconds = 0) {
        mDeck.Load(std::make_unique<RampSource>(length), seconds);
    }

    [[nodiscard]] static std::vector<StereoFrame> Heard(const Deck& deck, std::size_t count) {
        std::vector<StereoFrame> window(count);
        deck.CopyHeard(window);
        return window;
    }

    ScriptedDevice mDevice;
    ScriptedDevice mSpare;
    double mNow = 20.0; // seconds
    Deck mDeck{ mDevice, mSpare, [this] { return mNow; } };
};

TEST_F(DeckTest, IsSilentWithoutATrack) {
    mDeck.Feed();
    mDeck.Seek(5);
    EXPECT_EQ(mDeck.Position(), 0);
    EXPECT_EQ(mDeck.Duration(), 0);
    EXPECT_FALSE(mDeck.IsOver());
    EXPECT_EQ(Heard(mDeck, 2), (std::vector<StereoFrame>{ {}, {} }));
}

TEST_F(DeckTest, OpensTheDeviceAtTheTracksRateAndPlays) {
    Load(2500);
    EXPECT_EQ(mDevice.mOpenedRates, std::vector<std::uint32_t>{ 1000 });
    EXPECT_EQ(mDevice.mWritten.size(), 100u); // as much as it takes
    EXPECT_TRUE(mDevice.mRunning);
    EXPECT_EQ(mDeck.Duration(), 2.5);
    mDeck.Load(std::make_unique<RampSource>(10, 500), 0);
    EXPECT_EQ(mDevice.mOpenedRates, (std::vector<std::uint32_t>{ 1000, 500 }));
    EXPECT_EQ(mDeck.Rate(), 500u);
}

TEST_F(DeckTest, KeepsTheDeviceSupplied) {
    Load(250);
    mDevice.Play(60);
    EXPECT_EQ(mDevice.mWritten.size(), 100u);
    mDeck.Feed();
    EXPECT_EQ(mDevice.mWritten.size(), 160u);
    for (std::size_t place = 0; place < 160; ++place)
        ASSERT_EQ(mDevice.mWritten[place], RampFrame(std::int64_t(place)));
}

TEST_F(DeckTest, GivesTheSoundThatIsHeardNotThatIsDecoded) {
    Load(1000);
    mDevice.Play(40);
    EXPECT_EQ(mDeck.Position(), 0.04);
    EXPECT_EQ(Heard(mDeck, 3), (std::vector{ RampFrame(39), RampFrame(40), RampFrame(41) }));
    EXPECT_EQ(Heard(mDeck, 4), (std::vector{ RampFrame(38), RampFrame(39), RampFrame(40), RampFrame(41) }));
    EXPECT_EQ(Heard(mDeck, 82).front(), StereoFrame{}); // before the beginning
}

TEST_F(DeckTest, GivesTheSoundThatWasHeardADelayAgo) {
    Deck late(
        mDevice, mSpare, [this] { return mNow; }, 0.01);
    late.Load(std::make_unique<RampSource>(1000), 0);
    mDevice.Play(40);
    EXPECT_EQ(Heard(late, 2), (std::vector{ RampFrame(29), RampFrame(30) }));
    EXPECT_EQ(late.Position(), 0.04); // the sound's own
}

TEST_F(DeckTest, LooksAheadWithADelayBelowZero) {
    Deck early(
        mDevice, mSpare, [this] { return mNow; }, -0.01);
    early.Load(std::make_unique<RampSource>(1000), 0);
    mDevice.Play(40);
    EXPECT_EQ(Heard(early, 2), (std::vector{ RampFrame(49), RampFrame(50) }));
}

// Between two reports of the device the moment runs on with the clock, but not while the music is paused.
TEST_F(DeckTest, RunsOnBetweenTheStepsOfTheDevice) {
    Load(1000);
    mDevice.Play(40);
    EXPECT_EQ(Heard(mDeck, 2), (std::vector{ RampFrame(39), RampFrame(40) }));
    mNow += 0.0078125;
    EXPECT_EQ(Heard(mDeck, 2), (std::vector{ RampFrame(47), RampFrame(48) }));
    mDeck.Pause(true);
    mNow += 0.0625;
    EXPECT_EQ(Heard(mDeck, 2), (std::vector{ RampFrame(47), RampFrame(48) }));
}

TEST_F(DeckTest, IsOverWhenTheLastFrameIsHeard) {
    Load(150);
    mDevice.Play(100);
    EXPECT_FALSE(mDeck.IsOver()); // all that was written is heard, but there is more
    mDeck.Feed();
    EXPECT_FALSE(mDeck.IsOver());
    mDevice.Play(49);
    EXPECT_FALSE(mDeck.IsOver());
    mDevice.Play(1);
    mDeck.Feed();
    EXPECT_TRUE(mDeck.IsOver());
    EXPECT_EQ(mDeck.Position(), 0.15);
}

TEST_F(DeckTest, StandsStillWhilePaused) {
    Load(1000);
    mDevice.Play(10);
    mDeck.Pause(true);
    EXPECT_TRUE(mDeck.IsPaused());
    EXPECT_FALSE(mDevice.mRunning);
    mDeck.Feed();
    EXPECT_FALSE(mDevice.mRunning);
    EXPECT_EQ(mDeck.Position(), 0.01);
    mDeck.Pause(false);
    EXPECT_TRUE(mDevice.mRunning);
}

TEST_F(DeckTest, EndsAPauseWithTheNextTrack) {
    Load(1000);
    mDeck.Pause(true);
    Load(1000);
    EXPECT_FALSE(mDeck.IsPaused());
    EXPECT_TRUE(mDevice.mRunning);
}

TEST_F(DeckTest, SeeksAndForgetsWhatWasUnheard) {
    Load(1000);
    mDevice.Play(10);
    mDeck.Seek(0.5);
    EXPECT_EQ(mDeck.Position(), 0.5);
    EXPECT_EQ(mDevice.mWritten.front(), RampFrame(500));
    EXPECT_TRUE(mDevice.mRunning);
    EXPECT_EQ(Heard(mDeck, 2), (std::vector{ StereoFrame{}, RampFrame(500) })); // nothing from where it was
    mDevice.Play(2);
    EXPECT_EQ(Heard(mDeck, 2), (std::vector{ RampFrame(501), RampFrame(502) }));
}

TEST_F(DeckTest, StaysPausedOverASeek) {
    Load(1000);
    mDeck.Pause(true);
    mDeck.Seek(0.5);
    EXPECT_FALSE(mDevice.mRunning);
    EXPECT_EQ(mDeck.Position(), 0.5);
}

TEST_F(DeckTest, SeeksNoFurtherThanTheTrackReaches) {
    Load(1000);
    mDeck.Seek(-3);
    EXPECT_EQ(mDeck.Position(), 0);
    mDeck.Seek(7);
    EXPECT_EQ(mDeck.Position(), 1);
    EXPECT_TRUE(mDeck.IsOver());
    mDeck.Seek(0.9); // back from the end
    EXPECT_FALSE(mDeck.IsOver());
}

TEST_F(DeckTest, PlaysOnWhereASourceCannotSeek) {
    auto source = std::make_unique<RampSource>(1000);
    source->mSeekable = false;
    mDeck.Load(std::move(source), 0);
    mDevice.Play(10);
    mDeck.Seek(0.5);
    EXPECT_EQ(mDeck.Position(), 0.01);
    EXPECT_TRUE(mDevice.mRunning);
}

TEST_F(DeckTest, BeginsAtTheSecondThatItIsTold) {
    Load(1000, 0.25);
    EXPECT_EQ(mDeck.Position(), 0.25);
    EXPECT_EQ(mDevice.mWritten.front(), RampFrame(250));
}

TEST_F(DeckTest, PlaysOnTheSpareWithoutADevice) {
    mDevice.mPresent = false;
    Load(1000);
    EXPECT_TRUE(mDeck.IsOnSpare());
    EXPECT_EQ(mSpare.mWritten.size(), 100u);
    EXPECT_TRUE(mSpare.mRunning);
}

TEST_F(DeckTest, GoesOnOnTheSpareWhereTheDeviceWasLost) {
    Load(1000);
    mDevice.Play(30);
    EXPECT_FALSE(mDeck.IsOnSpare());
    mDevice.mLost = true;
    mDeck.Feed();
    EXPECT_TRUE(mDeck.IsOnSpare());
    EXPECT_EQ(mDeck.Position(), 0.03);
    EXPECT_EQ(mSpare.mWritten.front(), RampFrame(30));
    EXPECT_TRUE(mSpare.mRunning);
}

TEST_F(DeckTest, StaysPausedWhenTheDeviceIsLost) {
    Load(1000);
    mDeck.Pause(true);
    mDevice.mLost = true;
    mDeck.Feed();
    EXPECT_FALSE(mSpare.mRunning);
}

// One thread feeds, another looks and seeks: what is heard is always a piece of the ramp, or silence.
TEST(DeckThreads, CanBeFedWhileItIsLookedAt) {
    std::atomic<double> now = 0;
    const auto clock = [&now] { return now.load(); };
    SilentDevice device(clock);
    SilentDevice spare(clock);
    Deck deck(device, spare, clock);
    deck.Load(std::make_unique<RampSource>(1'000'000), 0);
    std::atomic<bool> ends = false;
    std::thread feeder([&] {
        while (!ends) {
            deck.Feed();
            now = now + 0.001;
        }
    });
    for (int round = 0; round < 2000; ++round) {
        std::array<StereoFrame, 16> window;
        deck.CopyHeard(window);
        for (std::size_t i = 1; i < window.size(); ++i)
            ASSERT_TRUE(window[i - 1] == StereoFrame{} || window[i].left == window[i - 1].left + 1) << round;
        if (round % 100 == 0) deck.Seek(round / 10.0);
    }
    ends = true;
    feeder.join();
}

} // namespace
} // namespace orvane::player
