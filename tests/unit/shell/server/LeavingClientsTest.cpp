// Clients of the real pipe that come early, don't read, or leave; and a service thread that leaves.
#include "unit/shell/server/RealPipe.h"

namespace orvane::shell {
namespace {

using namespace tests;

TEST_F(RealPipe, AClientThatConnectsBeforeConnectNamedPipeIsServedAtOnce) {
    Start(Early::kStays);
    ASSERT_TRUE(EarlyClient() && EarlyClient()->IsOpen());
    EXPECT_EQ(EarlyClient()->Ask("STRT"), "Start");
    EXPECT_EQ(mLog.Text(), "ConnectNamedPipe [ERROR_PIPE_CONNECTED]\n"
                           "ConnectNamedPipe SetEvent returned true\n"
                           "StartVisualizerPlaybackWithTrackInfo: override me\n");
}

TEST_F(RealPipe, AClientThatComesAndGoesBeforeConnectNamedPipeDoesNotKeepTheNextOneOut) {
    Start(Early::kLeaves);
    PipeClient client;
    EXPECT_EQ(client.Ask("DRAW"), "OK");
    EXPECT_EQ(mServer->mInitializations, 1);
    EXPECT_EQ(mLog.Text(), kPendingLine);
}

TEST_F(RealPipe, AClientThatComesAndGoesWhileThePipeIsMadeAnewDoesNotEndTheService) {
    Start();
    SetEarly(Early::kLeaves);
    { const PipeClient first; }
    ASSERT_TRUE(WaitForNewPipe());
    PipeClient client;
    EXPECT_EQ(client.Ask("DRAW"), "OK");
    EXPECT_EQ(mServer->mInitializations, 2);
}

TEST_F(RealPipe, ClientsThatConnectAndLeaveAreEachFollowedByAnInitializeOnTheServiceThread) {
    Start();
    EXPECT_EQ(mServer->mInitializeThread, GetCurrentThreadId());
    for (int times = 1; times <= 10; ++times) {
        { const PipeClient client; }
        ASSERT_TRUE(WaitForNewPipe(times));
        EXPECT_EQ(mServer->mInitializeThread, ServiceThread());
    }
    PipeClient client;
    EXPECT_EQ(client.Ask("DRAW"), "OK");
    EXPECT_EQ(mServer->mInitializations, 11);
}

TEST_F(RealPipe, AClientThatLeavesBetweenRequestsIsFollowedByTheNext) {
    Start();
    for (int times = 1; times <= 3; ++times) {
        PipeClient client;
        EXPECT_EQ(client.Ask("DRAW"), "OK");
        client.Close();
        ASSERT_TRUE(WaitForNewPipe(times));
    }
    EXPECT_TRUE(mLog.Text().ends_with(std::string(kBrokenLine) + kPendingLine));
}

TEST_F(RealPipe, AClientThatLeavesWithoutItsReplyHasItsRequestHandledOnce) {
    Start();
    {
        PipeClient client;
        EXPECT_TRUE(client.Send("IDLE"));
        ASSERT_TRUE(Eventually([&] { return mServer->mIdles == 1; }));
    }
    SetEvent(mServer->mGate); // by now the client is gone, and the write fails
    ASSERT_TRUE(WaitForNewPipe());
    EXPECT_EQ(mServer->mIdles, 1);
    EXPECT_EQ(mLog.Text(), std::string(kPendingLine) + kBrokenLine + kPendingLine);
    PipeClient next;
    EXPECT_EQ(next.Ask("DRAW"), "OK");
}

TEST_F(RealPipe, AReplyThatGoesPendingIsFinishedWhenTheClientReads) {
    Start();
    PipeClient client;
    const std::string reply(1024 * 1024, 'x');
    for (int i = 0; i < 3; ++i) EXPECT_TRUE(client.Send("STOP")); // together more than the pipe holds
    ASSERT_TRUE(Eventually([&] { return PendingWrites() == 1; }));
    for (int i = 0; i < 3; ++i) EXPECT_TRUE(client.Receive() == reply) << i;
    EXPECT_EQ(client.Ask("DRAW"), "OK");
    EXPECT_EQ(mServer->mStops, 3);
    EXPECT_EQ(mLog.Text(), kPendingLine);
}

TEST_F(RealPipe, AClientThatLeavesUnderAPendingReplyHasItsRequestHandledOnce) {
    Start();
    int handled = 0;
    {
        PipeClient client;
        EXPECT_TRUE(client.Send("STOP") && client.Send("STOP")); // the first reply fills the pipe
        ASSERT_TRUE(Eventually([&] { return PendingWrites() == 1; }));
        handled = mServer->mStops;
    }
    ASSERT_TRUE(WaitForNewPipe());
    EXPECT_EQ(mServer->mStops, handled);
    EXPECT_EQ(mLog.Text(),
              std::string(kPendingLine) +
                  "[kWriting] Either GetOverlappedResult returned false or bytesTransferred is 0\n" +
                  kBrokenLine + kPendingLine);
    PipeClient next;
    EXPECT_EQ(next.Ask("DRAW"), "OK");
}

TEST_F(RealPipe, AskServiceThreadToLeaveEndsAThreadThatWaitsForAClient) {
    Start();
    mServer->AskServiceThreadToLeave();
    ASSERT_EQ(WaitForSingleObject(mThread, kPatienceMilliseconds), WAIT_OBJECT_0);
    DWORD exitCode = 1;
    EXPECT_TRUE(GetExitCodeThread(mThread, &exitCode));
    EXPECT_EQ(exitCode, 0u);
    EXPECT_EQ(mLog.Text(), kPendingLine);
}

TEST_F(RealPipe, AskServiceThreadToLeaveEndsAThreadThatWaitsForARequest) {
    Start();
    PipeClient client;
    EXPECT_EQ(client.Ask("DRAW"), "OK");
    mServer->AskServiceThreadToLeave();
    EXPECT_EQ(WaitForSingleObject(mThread, kPatienceMilliseconds), WAIT_OBJECT_0);
    EXPECT_EQ(mLog.Text(), kPendingLine);
}

} // namespace
} // namespace orvane::shell
