#include "player/session/Session.h"

#include "player/session/Messages.h"
#include "player/sound/SilentDevice.h"
#include "shell/protocol/Requests.h"
#include "unit/player/session/Fakes.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace orvane::player {
namespace {

using tests::FakeAnalysis;
using tests::FakeClock;
using tests::FakeConsole;
using tests::FakeHost;
using tests::FakeOpener;
using Lines = std::vector<std::string>;

constexpr double kBegin = 100.0; // of the fake clock

const std::string kCloseRequest = std::string(4, '\0') + "WSLC";
const std::string kTrackDisplay = std::string(4, '\0') + "WTRA";

std::string WindowKey(char key) {
    return std::string(4, '\0') + "CYEK" + key + std::string(7, '\0');
}

class SessionTest : public testing::Test {
protected:
    SessionTest() {
        mOpener.mSongs = { { "a", 2000 }, { "b", 3000 }, { "c", 20000 } }; // 2, 3 and 20 seconds
        mOptions.songs = { "a" };
        mClock.mOnPass = [this] { mDeck.Feed(); };
    }

    ExitCode Run() {
        return Session(mOptions, { mHost, mConsole, mClock, mOpener, mAnalysis, &mDeck, nullptr }).Run();
    }

    void Press(double second, ConsoleKey key) { mConsole.mKeys.emplace_back(kBegin + second, key); }

    // Replies to the pulses from that one on, counted from 0.
    void TellWithPulse(std::size_t pulse, const std::string& reply) {
        if (mHost.mPulseReplies.size() < pulse) mHost.mPulseReplies.resize(pulse, std::string(4, '\0'));
        mHost.mPulseReplies.push_back(reply);
    }

    [[nodiscard]] std::uint32_t PositionOfPulse(std::size_t index) const {
        return shell::UInt32At(mHost.mPulses.at(index).data(), shell::pulse_request::kPosition);
    }

    // The frames that the summary tells of, "Played 3.0 s: 180 frames, 60.0 a second."
    [[nodiscard]] std::size_t FramesTold() const {
        const std::string& summary = mConsole.mSaid.back();
        return std::stoul(summary.substr(summary.find(": ") + 2));
    }

    FakeClock mClock;
    FakeConsole mConsole{ mClock };
    FakeHost mHost{ mClock };
    FakeOpener mOpener;
    FakeAnalysis mAnalysis;
    SilentDevice mDevice{ [this] { return mClock.mNow; } };
    SilentDevice mSpare{ [this] { return mClock.mNow; } };
    Deck mDeck{ mDevice, mSpare, [this] { return mClock.mNow; } };
    PlayOptions mOptions;
};

TEST_F(SessionTest, PlaysASongToItsEnd) {
    EXPECT_EQ(Run(), kExitOk);
    EXPECT_EQ(mHost.mTags,
              (Lines{ "(open)", "UPVM", "(forward)", "SWSV", "NOAR", "STOP", "HWND", "(close)" }));
    EXPECT_EQ(mConsole.mSaid[0], "Playing: a - Artist (Album)");
    EXPECT_EQ(mConsole.mSaid[1], "Visualizer: One");
    EXPECT_EQ(mConsole.mComplaints, Lines());
    EXPECT_NEAR(mClock.mNow, kBegin + 2.0, 0.02);
    const std::size_t pulses = mHost.mPulses.size();
    EXPECT_NEAR(double(pulses), 120, 1); // the first at once
    EXPECT_TRUE(mConsole.mSaid[2].starts_with("Played 2.0 s: " + std::to_string(pulses) + " frames, 60."));
}

TEST_F(SessionTest, SendsSixtyPulsesASecondAtMost) {
    mOptions.songs = { "c" };
    mOptions.seconds = 10;
    EXPECT_EQ(Run(), kExitOk);
    EXPECT_NEAR(double(mHost.mPulses.size()), 600, 1);
}

// The song and the time it takes: with frames of 100 ms ten fit into a second, and none is sent while another is
// being drawn (the host complains about one that is).
TEST_F(SessionTest, SendsNoPulseBehindASlowFrame) {
    mOptions.songs = { "c" };
    mOptions.seconds = 10;
    mHost.mFrameSeconds = 0.1;
    EXPECT_EQ(Run(), kExitOk);
    EXPECT_NEAR(double(mHost.mPulses.size()), 100, 2);
}

// The reply to a pulse may be taken by a request that comes behind it: its frame was shown all the same.
TEST_F(SessionTest, CountsTheFramesWhoseRepliesARequestWaitedFor) {
    mOptions.songs = { "c" };
    mOptions.seconds = 10;
    mHost.mFrameSeconds = 0.1;
    for (const double second : { 1.05, 2.05, 3.05, 4.05, 5.05 }) Press(second, 'f');
    EXPECT_EQ(Run(), kExitOk);
    ASSERT_EQ(mHost.mRequests["NTFS"].size() + mHost.mRequests["XTFS"].size(), 5u);
    EXPECT_EQ(FramesTold(), mHost.mPulses.size());
}

TEST_F(SessionTest, CountsTheFrameThatWasUnderWayAtTheEnd) {
    mOptions.songs = { "c" };
    mOptions.seconds = 1.05;
    mHost.mFrameSeconds = 0.1; // at 0, 0.1, ... and 1.0, which is shown by 1.1
    EXPECT_EQ(Run(), kExitOk);
    EXPECT_EQ(mHost.mPulses.size(), 11u);
    EXPECT_EQ(FramesTold(), 11u);
}

TEST_F(SessionTest, SendsTheSoundThatIsHeardWithItsPlaceInTheTrack) {
    EXPECT_EQ(Run(), kExitOk);
    ASSERT_EQ(mAnalysis.mMiddles.size(), mHost.mPulses.size());
    ASSERT_GT(mHost.mPulses.size(), 100u);
    for (std::size_t i = 0; i < 110; ++i) {                // the last ones look beyond the end of the track
        const std::uint32_t position = PositionOfPulse(i); // milliseconds, and a ramp's frames count the same
        EXPECT_NEAR(double(position), double(i) * 1000 / 60, 10) << i;
        EXPECT_NEAR(mAnalysis.mMiddles[i], float(position), 1) << i;
        EXPECT_EQ(shell::UInt32At(mHost.mPulses[i].data(), shell::pulse_request::kStamp), i + 1);
        EXPECT_EQ(mHost.mPulses[i].size(), 2062u);
    }
    EXPECT_EQ(mAnalysis.mRates, std::vector<std::uint32_t>{ tests::kRampRate });
}

TEST_F(SessionTest, TellsTheAnalysisHowMuchTimeWentBy) {
    mHost.mFrameSeconds = 0.125;
    EXPECT_EQ(Run(), kExitOk);
    EXPECT_NEAR(mAnalysis.mSeconds[0], 0, 0.02); // since the music began
    for (std::size_t i = 1; i < mAnalysis.mSeconds.size(); ++i)
        EXPECT_NEAR(mAnalysis.mSeconds[i], 0.125, 0.02) << i;
}

TEST_F(SessionTest, PlaysOneSongAfterTheOther) {
    mOptions.songs = { "a", "b" };
    EXPECT_EQ(Run(), kExitOk);
    EXPECT_EQ(mHost.mTags, (Lines{ "(open)", "UPVM", "(forward)", "SWSV", "NOAR", "STRT", "NOAR", "STOP",
                                   "HWND", "(close)" }));
    EXPECT_NEAR(mClock.mNow, kBegin + 5.0, 0.05);
}

TEST_F(SessionTest, PassesOverSongsThatCannotBePlayed) {
    mOptions.songs = { "x", "a", "y", "b", "z" };
    EXPECT_EQ(Run(), kExitOk);
    EXPECT_EQ(mConsole.mComplaints, (Lines{ "no x", "no y", "no z" }));
    EXPECT_NEAR(mClock.mNow, kBegin + 5.0, 0.05);
}

TEST_F(SessionTest, OpensNoHostForSongsThatCannotBePlayed) {
    mOptions.songs = { "x", "y" };
    EXPECT_EQ(Run(), kExitUsage);
    EXPECT_EQ(mConsole.mComplaints, (Lines{ "no x", "no y" }));
    EXPECT_EQ(mHost.mTags, Lines{ "(close)" });
}

TEST_F(SessionTest, PlaysTheBuiltInPieceWithoutASong) {
    mOptions.songs.clear();
    EXPECT_EQ(Run(), kExitUsage); // this opener has none
    EXPECT_EQ(mOpener.mOpened, Lines{ "" });
}

TEST_F(SessionTest, EndsAfterTheSecondsItIsTold) {
    mOptions.songs = { "c" };
    mOptions.seconds = 1.5;
    EXPECT_EQ(Run(), kExitOk);
    EXPECT_NEAR(mClock.mNow, kBegin + 1.5, 0.02);
}

TEST_F(SessionTest, BeginsTheFirstSongAtTheSecondItIsTold) {
    mOptions.songs = { "c", "a" };
    mOptions.startSeconds = 19;
    EXPECT_EQ(Run(), kExitOk);
    EXPECT_EQ(PositionOfPulse(0), 19000u);
    EXPECT_NEAR(mClock.mNow, kBegin + 3.0, 0.05); // its last second, and all of the other
}

TEST_F(SessionTest, SendsTheTextsOfTheTrackAndTheOptionsFirst) {
    mOptions.title = "T\xC3\xBCtel";
    EXPECT_EQ(Run(), kExitOk);
    tests::WireBuilder title, artist;
    title.String(u"T\u00FCtel");
    artist.String(u"Artist");
    const std::string selection = mHost.mRequests["SWSV"].front();
    EXPECT_NE(selection.find(tests::AsText(title.Get())), std::string::npos);
    EXPECT_NE(selection.find(tests::AsText(artist.Get())), std::string::npos);
    EXPECT_EQ(mConsole.mSaid[0], "Playing: T\xC3\xBCtel - Artist (Album)");
}

TEST_F(SessionTest, SendsTheCoverByItsKind) {
    mOptions.songs = { "a", "a" };
    mOpener.mCover = { 0xFF, 0xD8, 0xFF, 0xE0 }; // JPEG
    EXPECT_EQ(Run(), kExitOk);
    EXPECT_EQ(mHost.mRequests["AR13"], (Lines(2, "AR13\xFF\xD8\xFF\xE0")));

    mOptions.songs = { "a" };
    mOpener.mCover = { 0x89, 'P', 'N', 'G' };
    EXPECT_EQ(Run(), kExitOk);
    EXPECT_EQ(mHost.mRequests["AR14"], Lines{ "AR14\x89PNG" });
}

// What becomes of each key, pressed after half a second of twenty.
TEST_F(SessionTest, PausesAndGoesOnByTheSpaceBar) {
    mOptions.songs = { "a" };
    Press(0.5, ' ');
    Press(3.5, ' ');
    EXPECT_EQ(Run(), kExitOk);
    EXPECT_NEAR(mClock.mNow, kBegin + 5.0, 0.05);
    EXPECT_NEAR(double(mHost.mPulses.size()), 300, 3); // the picture goes on
    for (std::size_t i = 40; i < 200; ++i) {
        EXPECT_NEAR(PositionOfPulse(i), 500, 20) << i;
        EXPECT_EQ(mAnalysis.mMiddles[i], 0) << i; // and nothing is heard
    }
    EXPECT_NE(
        std::find(mConsole.mProgress.begin(), mConsole.mProgress.end(), "0:00 / 0:02  paused  a  60 frames"),
        mConsole.mProgress.end());
}

TEST_F(SessionTest, SeeksByTheArrows) {
    mOptions.songs = { "c" };
    Press(0.5, kRightKey);
    Press(1.0, kRightKey);
    Press(1.5, kLeftKey);
    EXPECT_EQ(Run(), kExitOk);
    EXPECT_NEAR(mClock.mNow, kBegin + 15.0, 0.05); // twenty seconds less five
    EXPECT_NEAR(PositionOfPulse(40), 667 + 5000, 30);
    EXPECT_NEAR(PositionOfPulse(70), 1167 + 10000, 30);
    EXPECT_NEAR(PositionOfPulse(100), 1667 + 5000, 30);
}

TEST_F(SessionTest, EndsByQOrEscape) {
    for (const ConsoleKey key : { ConsoleKey('q'), ConsoleKey('Q'), kEscapeKey }) {
        mClock.mNow = kBegin;
        Press(0.5, key);
        EXPECT_EQ(Run(), kExitOk);
        EXPECT_NEAR(mClock.mNow, kBegin + 0.5, 0.02);
        EXPECT_EQ(mHost.mTags.back(), "(close)");
    }
}

TEST_F(SessionTest, GoesToTheNextTrackAndEndsBehindTheLast) {
    mOptions.songs = { "c", "b" };
    Press(0.5, 'n');
    Press(1.0, 'n');
    EXPECT_EQ(Run(), kExitOk);
    EXPECT_NEAR(mClock.mNow, kBegin + 1.0, 0.02);
    EXPECT_EQ(mOpener.mOpened, (Lines{ "c", "b" }));
}

TEST_F(SessionTest, GoesBackToTheBeginningAndThenToThePreviousTrack) {
    mOptions.songs = { "a", "c" };
    Press(0.5, 'n');
    Press(4.5, 'p'); // four seconds into the second: back to its beginning
    Press(5.0, 'p'); // back to the first
    Press(5.5, 'p'); // there is none before it
    Press(6.0, 'q');
    EXPECT_EQ(Run(), kExitOk);
    EXPECT_EQ(mOpener.mOpened, (Lines{ "a", "c", "a" }));
    EXPECT_NEAR(PositionOfPulse(4 * 60), 3500, 30);
    EXPECT_NEAR(PositionOfPulse(4 * 60 + 45), 250, 30); // at 4.75
    EXPECT_NEAR(PositionOfPulse(5 * 60 + 15), 250, 30); // at 5.25
    EXPECT_NEAR(PositionOfPulse(5 * 60 + 45), 250, 30); // at 5.75
}

TEST_F(SessionTest, ChangesTheVisualizerInTurns) {
    mOptions.songs = { "c" };
    mOptions.seconds = 2;
    Press(0.5, 'v');
    Press(1.0, 'v');
    EXPECT_EQ(Run(), kExitOk);
    const Lines& selections = mHost.mRequests["SWSV"];
    ASSERT_EQ(selections.size(), 3u);
    tests::WireBuilder one, two;
    one.Raw("SWSV").String(u"One");
    two.Raw("SWSV").String(u"Two");
    EXPECT_TRUE(selections[0].starts_with(tests::AsText(one.Get())));
    EXPECT_TRUE(selections[1].starts_with(tests::AsText(two.Get())));
    EXPECT_TRUE(selections[2].starts_with(tests::AsText(one.Get())));
    EXPECT_EQ(mHost.mRequests["NOAR"].size(), 3u); // each is told of the artwork
}

TEST_F(SessionTest, KeepsTheOnlyVisualizerThereIs) {
    mHost.mNames = { u"One" };
    Press(0.5, 'v');
    EXPECT_EQ(Run(), kExitOk);
    EXPECT_EQ(mHost.mRequests["SWSV"].size(), 1u);
}

TEST_F(SessionTest, FillsTheScreenOrLeavesIt) {
    Press(0.5, 'f');
    EXPECT_EQ(Run(), kExitOk);
    EXPECT_EQ(mHost.mRequests["NTFS"].size(), 1u);
    mHost.mFullScreen = true; // as its window stands; the user may have changed it there
    mClock.mNow = kBegin;
    Press(0.5, 'f');
    EXPECT_EQ(Run(), kExitOk);
    EXPECT_EQ(mHost.mRequests["XTFS"].size(), 1u);
}

TEST_F(SessionTest, ShowsItOnTheMonitorAndAsLargeAsItIsTold) {
    mOptions.fullScreen = true;
    mOptions.monitor = 1;
    EXPECT_EQ(Run(), kExitOk);
    EXPECT_EQ(mHost.mTags, (Lines{ "(open)", "UPVM", "(forward)", "SWSV", "NOAR", "(monitor 1)", "NTFS",
                                   "STOP", "HWND", "(close)" }));
    EXPECT_EQ(mConsole.mComplaints, Lines());
}

TEST_F(SessionTest, PlaysOnWithoutTheMonitor) {
    mOptions.monitor = 2;
    EXPECT_EQ(Run(), kExitOk);
    EXPECT_EQ(mConsole.mComplaints, Lines{ "There is no monitor 2: the window stays where it is." });
}

TEST_F(SessionTest, ShowsTheVisualizerItIsTold) {
    mOptions.visualizer = "tw";
    EXPECT_EQ(Run(), kExitOk);
    EXPECT_EQ(mConsole.mSaid[1], "Visualizer: Two");
}

TEST_F(SessionTest, TellsThatThereIsNoSuchVisualizer) {
    mOptions.visualizer = "three";
    EXPECT_EQ(Run(), kExitUsage);
    EXPECT_EQ(mConsole.mComplaints, Lines{ "There is no visualizer \"three\": see orvane-player --list." });
    EXPECT_EQ(mHost.mTags, (Lines{ "(open)", "UPVM", "(close)" }));
}

TEST_F(SessionTest, TellsThatThereAreNoVisualizers) {
    mHost.mNames = { u"" };
    EXPECT_EQ(Run(), kExitUsage);
    EXPECT_EQ(mConsole.mComplaints, Lines{ messages::kNoVisualizers });
}

TEST_F(SessionTest, TellsWhyThereIsNoHost) {
    mHost.mOpenings = { { HostStart::kNoProgram, 0 } };
    EXPECT_EQ(Run(), kExitHostNotFound);
    EXPECT_EQ(
        mConsole.mComplaints,
        Lines{
            "There is no visualizer host: put orvane-visualizer.exe into the folder of orvane-player.exe." });
    mHost.mOpenings = { { HostStart::kPipeBusy, 231 } };
    EXPECT_EQ(Run(), kExitPipeBusy);
    EXPECT_EQ(mConsole.mComplaints.back(),
              "The visualizer host serves another player: close that player, then try again.");
    EXPECT_EQ(mHost.mPulses.size(), 0u);
}

// What the host tells with the replies to pulses.
TEST_F(SessionTest, EndsWhenTheUserClosesTheWindow) {
    TellWithPulse(30, kCloseRequest);
    EXPECT_EQ(Run(), kExitOk);
    EXPECT_EQ(mHost.mPulses.size(), 31u);
    EXPECT_EQ(mHost.mTags.back(), "(close)");
    EXPECT_EQ(mHost.mTags[mHost.mTags.size() - 2], "HWND");
}

TEST_F(SessionTest, ObeysKeysOfTheWindow) {
    mOptions.songs = { "c" };
    TellWithPulse(60, WindowKey(']'));
    TellWithPulse(120, WindowKey('v'));
    TellWithPulse(180, WindowKey('\x1B'));
    EXPECT_EQ(Run(), kExitOk);
    EXPECT_EQ(mHost.mPulses.size(), 181u);
    EXPECT_EQ(mHost.mRequests["SWSV"].size(), 2u);
    EXPECT_NEAR(PositionOfPulse(90), 1500 + 5000, 30);
}

// An extended key carries no code of its own; what stands in its words is no key of now.
TEST_F(SessionTest, TakesAnExtendedKeyForNothing) {
    std::string extended = WindowKey('\x1B');
    extended.replace(4, 4, "XYEK");
    TellWithPulse(30, extended);
    EXPECT_EQ(Run(), kExitOk);
    EXPECT_NEAR(mClock.mNow, kBegin + 2.0, 0.02);
}

TEST_F(SessionTest, ShowsTheTrackAtOnceWhenTheWindowDoes) {
    mOptions.songs = { "c" };
    mOptions.seconds = 0.24; // the next regular progress line would come behind that
    TellWithPulse(6, kTrackDisplay);
    EXPECT_EQ(Run(), kExitOk);
    EXPECT_EQ(mConsole.mProgress, (Lines{ "0:00 / 0:20  c  0 frames", "0:00 / 0:20  c  7 frames" }));
}

TEST_F(SessionTest, PassesOverAReplyThatIsNone) {
    TellWithPulse(3, "??");
    EXPECT_EQ(Run(), kExitOk);
    EXPECT_NEAR(mClock.mNow, kBegin + 2.0, 0.02);
}

TEST_F(SessionTest, EndsCleanlyWhenTheSystemWantsIt) {
    mOptions.songs = { "c" };
    mConsole.mEndAt = kBegin + 0.5;
    EXPECT_EQ(Run(), kExitOk);
    EXPECT_NEAR(mClock.mNow, kBegin + 0.5, 0.02);
    EXPECT_EQ(mHost.mTags,
              (Lines{ "(open)", "UPVM", "(forward)", "SWSV", "NOAR", "STOP", "HWND", "(close)" }));
}

TEST_F(SessionTest, EndsSoonBesideAHostThatDoesNotAnswer) {
    mOptions.songs = { "c" };
    mHost.mFrameSeconds = 1e6;
    Press(0.5, 'q');
    EXPECT_EQ(Run(), kExitOk);
    EXPECT_NEAR(mClock.mNow, kBegin + 2.5, 0.05);
    EXPECT_EQ(mHost.mTags, (Lines{ "(open)", "UPVM", "(forward)", "SWSV", "NOAR", "(close)" }));
}

// A host that is gone.
TEST_F(SessionTest, StartsAHostThatIsGoneAgainOnce) {
    mOptions.songs = { "c" };
    mOptions.seconds = 3;
    mOptions.visualizer = "two";
    mHost.mGoneAt = kBegin + 1;
    EXPECT_EQ(Run(), kExitOk);
    EXPECT_EQ(mConsole.mComplaints, Lines{ "The visualizer host is gone: starting it again." });
    EXPECT_EQ(mHost.mTags, (Lines{ "(open)", "UPVM", "(forward)", "SWSV", "NOAR", "(discard)", "(open)",
                                   "UPVM", "(forward)", "SWSV", "NOAR", "STOP", "HWND", "(close)" }));
    EXPECT_EQ(mHost.mRequests["SWSV"][0], mHost.mRequests["SWSV"][1]); // the same visualizer
    EXPECT_NEAR(double(mHost.mPulses.size()), 180, 3);
}

TEST_F(SessionTest, BringsTheWindowUpAgainAsItWas) {
    mOptions.songs = { "c" };
    mOptions.seconds = 3;
    mOptions.monitor = 1;
    Press(0.5, 'f');
    mHost.mGoneAt = kBegin + 1;
    EXPECT_EQ(Run(), kExitOk);
    EXPECT_EQ(mHost.mTags, (Lines{ "(open)", "UPVM", "(forward)", "SWSV", "NOAR", "(monitor 1)", "NTFS",
                                   "(discard)", "(open)", "UPVM", "(forward)", "SWSV", "NOAR", "(monitor 1)",
                                   "NTFS", "STOP", "HWND", "(close)" }));
}

TEST_F(SessionTest, GivesUpWhenTheHostIsGoneASecondTime) {
    mOptions.songs = { "c" };
    mHost.mGoneAt = kBegin + 1;
    mHost.mGoneAgainAt = kBegin + 2;
    EXPECT_EQ(Run(), kExitConnectionLost);
    EXPECT_EQ(mConsole.mComplaints,
              (Lines{ "The visualizer host is gone: starting it again.",
                      "The visualizer host is gone again. Try another visualizer with --visualizer NAME." }));
    EXPECT_EQ(mHost.mTags.back(), "(close)");
}

TEST_F(SessionTest, NoticesABrokenConnection) {
    mOptions.songs = { "c" };
    mOptions.seconds = 2;
    Press(1.0, 'x'); // no key of ours
    mClock.mOnPass = [this, broken = false]() mutable {
        mDeck.Feed();
        if (!broken && mClock.mNow > kBegin + 1) mHost.mGone = broken = true;
    };
    EXPECT_EQ(Run(), kExitOk);
    EXPECT_EQ(mConsole.mComplaints, Lines{ messages::kRestartingHost });
}

TEST_F(SessionTest, TakesAHostForGoneThatDrawsOneFrameForAMinute) {
    mOpener.mSongs["long"] = 600'000;
    mOptions.songs = { "long" };
    mHost.mFrameSeconds = 1e6;
    EXPECT_EQ(Run(), kExitConnectionLost);
    EXPECT_EQ(mConsole.mComplaints.size(), 2u);
    EXPECT_NEAR(mClock.mNow, kBegin + 120, 2); // both times
}

TEST_F(SessionTest, TellsWhyTheHostCannotBeStartedAgain) {
    mOptions.songs = { "c" };
    mHost.mGoneAt = kBegin + 1;
    mHost.mOpenings = { { HostStart::kStarted, 0 }, { HostStart::kNotStarted, 5 } };
    EXPECT_EQ(Run(), kExitHostNotFound);
    EXPECT_EQ(mConsole.mComplaints.back(),
              "The visualizer host can't be started (system error 5): run orvane-visualizer.exe by hand.");
}

// Without a device.
TEST_F(SessionTest, TellsOnceThatThereIsNoDevice) {
    tests::ScriptedDevice missing;
    missing.mPresent = false;
    Deck deck(missing, mSpare, [this] { return mClock.mNow; });
    mClock.mOnPass = [&deck] { deck.Feed(); };
    mOptions.songs = { "a", "b" };
    EXPECT_EQ(Session(mOptions, { mHost, mConsole, mClock, mOpener, mAnalysis, &deck, nullptr }).Run(),
              kExitOk);
    EXPECT_EQ(mConsole.mComplaints, Lines{ "There is no sound device: the music plays in silence." });
    EXPECT_NEAR(mClock.mNow, kBegin + 5.0, 0.05); // it keeps time
}

TEST_F(SessionTest, TellsThatTheDeviceIsGone) {
    tests::ScriptedDevice device;
    Deck deck(device, mSpare, [this] { return mClock.mNow; });
    mClock.mOnPass = [&, last = kBegin]() mutable {
        device.Play(std::size_t((mClock.mNow - last) * tests::kRampRate + 0.5));
        last = mClock.mNow;
        device.mLost = mClock.mNow > kBegin + 1;
        deck.Feed();
    };
    EXPECT_EQ(Session(mOptions, { mHost, mConsole, mClock, mOpener, mAnalysis, &deck, nullptr }).Run(),
              kExitOk);
    EXPECT_EQ(mConsole.mComplaints, Lines{ "The sound device is gone: the music goes on in silence." });
}

TEST_F(SessionTest, SaysWhatWasPlayed) {
    mOptions.songs = { "c" };
    mOptions.seconds = 0;
    EXPECT_EQ(Run(), kExitOk);
    EXPECT_EQ(mConsole.mSaid.back(), "Played 0.0 s: 0 frames, 0.0 a second.");
}

} // namespace
} // namespace orvane::player
