// Clients that go away, for real. Each is followed by another at once, so that the host meets them in every
// state: waiting for a client, reading, writing, and on the way from one pipe to the next.
#include "system/HostProcess.h"
#include "system/service/Expected.h"
#include "system/service/Roles.h"

#include <gtest/gtest.h>

namespace orvane::tests {
namespace {

using player::PipeClient;

constexpr int kTimes = 100;

class BrokenPipe : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(mHost.Serve()); }

    // The next client is served, and the service never said that it was at its end.
    void ExpectStillServing() {
        PipeClient client = ConnectToHost();
        ASSERT_TRUE(client.IsConnected());
        const auto reply = client.Exchange(WireBuilder().Raw("DRAW").Get(), kPatience);
        EXPECT_EQ(AsText(reply.bytes), ExpectedReply("DRAW"));
        EXPECT_EQ(Count(mHost.Text(), "Could not resuscitate pipe. Bailing.\n"), 0);
    }

    HostProcess mHost;
};

TEST_F(BrokenPipe, AClientThatLeavesWithoutReadingItsReplyAHundredTimes) {
    const Bytes request = WireBuilder().Raw("DRAW").Get();
    for (int i = 0; i < kTimes; ++i) {
        PipeClient client = ConnectToHost();
        ASSERT_TRUE(client.IsConnected()) << i;
        ASSERT_TRUE(client.Send(request, kPatience)) << i;
    }
    ExpectStillServing();
}

TEST_F(BrokenPipe, AClientThatConnectsAndLeavesAtOnceAHundredTimes) {
    for (int i = 0; i < kTimes; ++i) ASSERT_TRUE(ConnectToHost().IsConnected()) << i;
    ExpectStillServing();
}

TEST_F(BrokenPipe, AClientThatLeavesAfterItsReplyAHundredTimes) {
    for (int i = 0; i < kTimes; ++i) {
        PipeClient client = ConnectToHost();
        ASSERT_TRUE(client.Exchange(WireBuilder().Raw("IDLE").Get(), kPatience).outcome) << i;
    }
    ExpectStillServing();
    // Each of them was noticed, and so was the one that looked.
    EXPECT_TRUE(
        mHost.WaitForText("ServeConnection:Pipe is broken. Will atempt to create a new one.\n", kTimes + 1));
}

TEST_F(BrokenPipe, AClientProcessKilledAmidItsRequestsAHundredTimes) {
    for (int i = 0; i < kTimes; ++i) {
        ChildProcess client;
        ASSERT_TRUE(client.Start(OwnProgram(), kEndlessClientRole)) << i << ": " << client.Text();
        ASSERT_TRUE(client.WaitForText(kTalking)) << i << ": " << client.Text();
        client.Kill();
    }
    ExpectStillServing();
}

TEST_F(BrokenPipe, AReplyThatCouldNotBeWrittenIsNotTriedAgain) {
    constexpr int kClients = 20;
    for (int i = 0; i < kClients; ++i) {
        PipeClient client = ConnectToHost();
        ASSERT_TRUE(client.Send(WireBuilder().Raw("MOVW").Get(), kPatience)) << i;
    }
    ExpectStillServing();
    // At most once each; not at all for a client that was gone before the host looked.
    EXPECT_LE(Count(mHost.Text(), "MoveVisualizer override me\n"), kClients);
}

} // namespace
} // namespace orvane::tests
