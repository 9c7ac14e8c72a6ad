#include "player/session/HostLink.h"

#include "player/session/HelpTexts.h"
#include "unit/player/session/Fakes.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace orvane::player {
namespace {

using tests::FakeClock;
using tests::FakeConsole;
using tests::FakeHost;
using Lines = std::vector<std::string>;

class HostLinkTest : public testing::Test {
protected:
    FakeClock mClock;
    FakeHost mHost{ mClock };
    HostLink mLink{ mHost };
};

// Groups of nine entries each; the title is the last of each, in angle brackets.
TEST_F(HostLinkTest, HandsOverTitlesAndHelpAndTakesTheList) {
    EXPECT_EQ(mLink.Open(), HostOpening{});
    ASSERT_EQ(mHost.mRequests["UPVM"].size(), 1u);
    const std::string request = mHost.mRequests["UPVM"].front();
    EXPECT_TRUE(request.starts_with("UPVMQ\x09<Show or hide this help><?>")) << request;
    EXPECT_NE(request.find("<Orvane Visualizer><>Z\x09<Next page of help, or none><H>"), std::string::npos)
        << request;
    EXPECT_TRUE(request.ends_with("<Orvane Classic Visualizer><>")) << request;
    EXPECT_EQ(mLink.Visualizers(), (std::vector<Visualizer>{ { u"One", u"" }, { u"Two", u"" } }));
}

TEST_F(HostLinkTest, AsksNothingOfAHostThatCannotBeHad) {
    mHost.mOpenings = { { HostStart::kPipeBusy, 231 } };
    EXPECT_EQ(mLink.Open(), (HostOpening{ HostStart::kPipeBusy, 231 }));
    EXPECT_EQ(mHost.mTags, Lines{ "(open)" });
}

TEST_F(HostLinkTest, LetsTheWindowComeForwardBeforeItSelects) {
    EXPECT_TRUE(mLink.Select(u"Two", nullptr));
    EXPECT_EQ(mHost.mTags, (Lines{ "(forward)", "SWSV" }));
}

TEST_F(HostLinkTest, AwaitsAPulseInSteps) {
    mHost.mFrameSeconds = 0.025;
    EXPECT_TRUE(mLink.SendPulse(7, 8, {}));
    EXPECT_TRUE(mLink.PulseIsUnderWay());
    for (int step = 0; step < 2; ++step)
        EXPECT_EQ(mLink.TakePulseReply(HostLink::Milliseconds(10)).failure, Failure::kNoReplyInTime);
    EXPECT_TRUE(mLink.PulseIsUnderWay());
    EXPECT_TRUE(mLink.TakePulseReply(HostLink::Milliseconds(10)));
    EXPECT_FALSE(mLink.PulseIsUnderWay());
    EXPECT_EQ(mLink.NextEvent(), std::nullopt);
}

// One request in flight: the pulse's reply is taken first, and what it told isn't lost.
TEST_F(HostLinkTest, FinishesThePulseBeforeAnotherRequest) {
    mHost.mFrameSeconds = 2;
    mHost.mPulseReplies = { std::string(4, '\0') + "WSLC" };
    EXPECT_TRUE(mLink.SendPulse(1, 0, {}));
    EXPECT_TRUE(mLink.FillScreen(true));
    EXPECT_FALSE(mLink.PulseIsUnderWay());
    EXPECT_EQ(mLink.NextEvent(), PulseEvent(CloseRequest{}));
    EXPECT_EQ(mLink.NextEvent(), std::nullopt);
}

TEST_F(HostLinkTest, TellsOfALostConnection) {
    EXPECT_TRUE(mLink.SendPulse(1, 0, {}));
    mHost.mGone = true;
    EXPECT_EQ(mLink.TakePulseReply(HostLink::Milliseconds(10)).failure, Failure::kConnectionLost);
    EXPECT_FALSE(mLink.PulseIsUnderWay());
    EXPECT_EQ(mLink.Stop().failure, Failure::kConnectionLost);
    EXPECT_EQ(mLink.SendPulse(2, 0, {}).failure, Failure::kConnectionLost);
    EXPECT_FALSE(mLink.PulseIsUnderWay());
}

TEST_F(HostLinkTest, GivesUpOnAReplyAfterHalfAMinute) {
    mHost.mFrameSeconds = 1e6;
    EXPECT_TRUE(mLink.SendPulse(1, 0, {}));
    const double before = mClock.mNow;
    EXPECT_EQ(mLink.Hide().failure, Failure::kNoReplyInTime);
    EXPECT_NEAR(mClock.mNow - before, 30, 0.001);
}

TEST(ListVisualizers, PrintsTheListAndLetsTheHostGo) {
    FakeClock clock;
    FakeConsole console(clock);
    FakeHost host(clock);
    EXPECT_EQ(ListVisualizers(host, console), kExitOk);
    EXPECT_EQ(console.mSaid, (Lines{ "One  built-in", "Two  built-in" }));
    EXPECT_EQ(host.mTags, (Lines{ "(open)", "UPVM", "(close)" }));
}

TEST(ListVisualizers, TellsWhyThereIsNoList) {
    FakeClock clock;
    FakeConsole console(clock);
    FakeHost host(clock);
    host.mOpenings = { { HostStart::kNoPipe, 0 } };
    EXPECT_EQ(ListVisualizers(host, console), kExitNoReply);
    EXPECT_EQ(console.mSaid, Lines());
    EXPECT_EQ(console.mComplaints.size(), 1u);
}

} // namespace
} // namespace orvane::player
