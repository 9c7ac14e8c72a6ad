// A session that shows sound from outside.
#include "player/session/Session.h"

#include "unit/player/session/Fakes.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace orvane::player {
namespace {

using Lines = std::vector<std::string>;

// Brings as many frames as time has gone by, while something plays.
class TimedCapture final : public ISoundCapture {
public:
    explicit TimedCapture(tests::FakeClock& clock)
        : mClock(clock) {}

    [[nodiscard]] std::uint32_t Rate() const override { return tests::kRampRate; }

    [[nodiscard]] std::size_t Read(std::span<StereoFrame> frames) override {
        const auto due = std::int64_t((mClock.mNow - mBegin) * tests::kRampRate);
        std::size_t count = 0;
        for (; count < frames.size() && mNext < due; ++mNext)
            if (mNext < mEnd) frames[count++] = tests::RampFrame(mNext + 1);
        return count;
    }

    [[nodiscard]] bool IsLost() const override { return mClock.mNow >= mLostAt; }

    std::int64_t mEnd = 1'000'000'000; // the frame from which nothing is played
    double mLostAt = 1e9;              // second

private:
    tests::FakeClock& mClock;
    const double mBegin = mClock.mNow;
    std::int64_t mNext = 0;
};

class LiveSessionTest : public testing::Test {
protected:
    LiveSessionTest() {
        mOptions.live = "output";
        mOptions.seconds = 2;
        mClock.mOnPass = [this] { mLive.Feed(); };
    }

    ExitCode Run() {
        return Session(mOptions, { mHost, mConsole, mClock, mOpener, mAnalysis, nullptr, &mLive }).Run();
    }

    tests::FakeClock mClock;
    tests::FakeConsole mConsole{ mClock };
    tests::FakeHost mHost{ mClock };
    tests::FakeOpener mOpener;
    tests::FakeAnalysis mAnalysis;
    TimedCapture mCapture{ mClock };
    LiveSound mLive{ mCapture, [this] { return mClock.mNow; } };
    PlayOptions mOptions;
};

TEST_F(LiveSessionTest, ShowsWhatComesIn) {
    EXPECT_EQ(Run(), kExitOk);
    EXPECT_EQ(mConsole.mSaid[0], "Playing: What this machine plays");
    EXPECT_EQ(mOpener.mOpened, Lines());
    EXPECT_NEAR(double(mHost.mPulses.size()), 120, 1);
    for (std::size_t i = 10; i < mAnalysis.mMiddles.size(); ++i)
        EXPECT_NEAR(mAnalysis.mMiddles[i], double(i) * 1000 / 60, 15) << i; // some milliseconds ago
}

// Nothing is played and no packet comes: silent pulses keep the picture moving.
TEST_F(LiveSessionTest, GoesOnInSilenceWhenNothingComes) {
    mCapture.mEnd = 500; // half a second
    EXPECT_EQ(Run(), kExitOk);
    EXPECT_NEAR(double(mHost.mPulses.size()), 120, 1);
    for (std::size_t i = 50; i < mAnalysis.mMiddles.size(); ++i) EXPECT_EQ(mAnalysis.mMiddles[i], 0) << i;
}

TEST_F(LiveSessionTest, NamesTheRecordingDevice) {
    mOptions.live = "input";
    mOptions.title = "Radio";
    EXPECT_EQ(Run(), kExitOk);
    EXPECT_EQ(mConsole.mSaid[0], "Playing: Radio");
    mOptions.title.clear();
    EXPECT_EQ(Run(), kExitOk);
    EXPECT_EQ(mConsole.mSaid[3], "Playing: What this machine records");
}

TEST_F(LiveSessionTest, KnowsNoPauseAndNoOtherTracks) {
    for (const ConsoleKey key : { ConsoleKey(' '), ConsoleKey('n'), ConsoleKey('p'), kLeftKey, kRightKey })
        mConsole.mKeys.emplace_back(mClock.mNow + 0.5, key);
    EXPECT_EQ(Run(), kExitOk);
    EXPECT_NEAR(double(mHost.mPulses.size()), 120, 1);
}

TEST_F(LiveSessionTest, EndsWhenTheDeviceIsGone) {
    mCapture.mLostAt = mClock.mNow + 1;
    EXPECT_EQ(Run(), kExitSystem);
    EXPECT_EQ(mConsole.mComplaints, Lines{ "The sound device is gone: there is nothing left to show." });
    EXPECT_EQ(mHost.mTags.back(), "(close)");
}

} // namespace
} // namespace orvane::player
