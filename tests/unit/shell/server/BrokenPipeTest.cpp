// What the service loop does when its client is gone, and how it is asked to leave.
#include "shell/server/PipeServer.h"
#include "support/LogCapture.h"
#include "unit/shell/server/ScriptedPipe.h"

#include <gtest/gtest.h>

namespace orvane::shell {
namespace {

using namespace tests;

constexpr char kBrokenLine[] = "ServeConnection:Pipe is broken. Will atempt to create a new one.\n";

// A new client after the first has gone.
Script Anew() {
    return { Closes(kPipe), Creates(kSecondPipe), ConnectPends() };
}

// As End, for the second pipe.
Script EndOfSecond() {
    return { Waits(), ReadFails(ERROR_BROKEN_PIPE), Closes(kSecondPipe), CreateFails(ERROR_PIPE_BUSY),
             Closes(kEvent) };
}

std::string Play(ScriptedPipe& pipe, std::uint8_t messageMode = 1) {
    const LogCapture log;
    {
        PipeServer server(pipe.Calls());
        EXPECT_TRUE(server.Initialize(messageMode));
        server.ServeConnection();
    }
    return log.Text();
}

TEST(BrokenPipe, ANewPipeIsMadeAndServed) {
    ScriptedPipe pipe(Start() + Script{ Waits(), ReadFails(ERROR_BROKEN_PIPE) } + Anew() +
                      Script{ Waits(), Reads("DRAW"), Waits(), Writes(2) } + EndOfSecond());
    EXPECT_EQ(Play(pipe), std::string(kStartLine) + kBrokenLine + kStartLine + kEndLines);
    EXPECT_EQ(pipe.mConnects.at(1).pipe, kSecondPipe);
    EXPECT_EQ(pipe.mReads.at(1).pipe, kSecondPipe);
    EXPECT_EQ(pipe.mWrites.at(0).pipe, kSecondPipe);
}

TEST(BrokenPipe, APendingReadWhoseClientLeavesPrintsItsLineFirst) {
    ScriptedPipe pipe(Start() +
                      Script{ Waits(), ReadPends(), Waits(), OperationFailed(ERROR_BROKEN_PIPE),
                              ReadFails(ERROR_BROKEN_PIPE) } +
                      Anew() + EndOfSecond());
    EXPECT_EQ(Play(pipe),
              std::string(kStartLine) +
                  "[kReading] Either GetOverlappedResult returned false or bytesTransferred is 0\n" +
                  kBrokenLine + kStartLine + kEndLines);
}

TEST(BrokenPipe, TheNewPipeIsAlwaysAMessagePipe) {
    ScriptedPipe pipe(Start() + Script{ Waits(), ReadFails(ERROR_BROKEN_PIPE) } + Anew() + EndOfSecond());
    Play(pipe, 0);
    ASSERT_EQ(pipe.mCreations.size(), 3u);
    EXPECT_EQ(pipe.mCreations[0].pipeMode, 0u);
    EXPECT_EQ(pipe.mCreations[1].pipeMode, 6u);
    EXPECT_EQ(pipe.mCreations[2].pipeMode, 6u);
}

TEST(BrokenPipe, AConnectThatFailsOnTheNewPipeEndsTheLoop) {
    ScriptedPipe pipe(Start() + Script{ Waits(), ReadFails(ERROR_BROKEN_PIPE), Closes(kPipe),
                                        Creates(kSecondPipe), ConnectFails(ERROR_INVALID_HANDLE),
                                        Closes(kSecondPipe), Closes(kEvent) });
    EXPECT_EQ(Play(pipe), std::string(kStartLine) + kBrokenLine +
                              "ConnectNamedPipe returned error. Error 6\n"
                              "Could not resuscitate pipe. Bailing.\n");
}

TEST(BrokenPipe, AClientThatCameAndWentBeforeTheNewPipeWasConnectedDoesNotEndTheLoop) {
    ScriptedPipe pipe(Start() +
                      Script{ Waits(), ReadFails(ERROR_BROKEN_PIPE), Closes(kPipe), Creates(kSecondPipe),
                              ConnectFails(ERROR_NO_DATA), Disconnects(), ConnectPends() } +
                      EndOfSecond());
    EXPECT_EQ(Play(pipe), std::string(kStartLine) + kBrokenLine + kStartLine + kEndLines);
    EXPECT_EQ(pipe.mDisconnects, std::vector<HANDLE>{ kSecondPipe });
}

constexpr DWORD kGone[] = { ERROR_BROKEN_PIPE, ERROR_NO_DATA, ERROR_PIPE_NOT_CONNECTED };
static_assert(kGone[0] == 109 && kGone[1] == 232 && kGone[2] == 233);

TEST(BrokenPipe, AReplyThatFailsAtOnceBecauseTheClientIsGoneIsHandledOnce) {
    for (const DWORD error : kGone) {
        ScriptedPipe pipe(Start() + Script{ Waits(), Reads("MOVW"), Waits(), WriteFails(error) } + Anew() +
                          Script{ Waits(), Reads("DRAW"), Waits(), Writes(2) } + EndOfSecond());
        EXPECT_EQ(Play(pipe), std::string(kStartLine) + "MoveVisualizer override me\n" + kBrokenLine +
                                  kStartLine + kEndLines)
            << error;
    }
}

TEST(BrokenPipe, AReplyToAPendingReadThatFailsBecauseTheClientIsGoneLeavesNoPendingFlag) {
    for (const DWORD error : kGone) {
        ScriptedPipe pipe(Start() +
                          Script{ Waits(), ReadPends(), Waits(), ReadIsDone("DRAW"), WriteFails(error) } +
                          Anew() + EndOfSecond());
        EXPECT_EQ(Play(pipe), std::string(kStartLine) + kBrokenLine + kStartLine + kEndLines) << error;
    }
}

TEST(BrokenPipe, APendingReplyThatFailsBecauseTheClientIsGoneIsHandledOnce) {
    for (const DWORD error : kGone) {
        ScriptedPipe pipe(
            Start() +
            Script{ Waits(), Reads("MOVW"), Waits(), WritePends(), Waits(), OperationFailed(error) } +
            Anew() + Script{ Waits(), Reads("DRAW"), Waits(), Writes(2) } + EndOfSecond());
        EXPECT_EQ(Play(pipe),
                  std::string(kStartLine) +
                      "MoveVisualizer override me\n"
                      "[kWriting] Either GetOverlappedResult returned false or bytesTransferred is 0\n" +
                      kBrokenLine + kStartLine + kEndLines)
            << error;
    }
}

TEST(BrokenPipe, AReplyToAClientThatIsGoneEndsTheLoopIfNoNewPipeCanBeMade) {
    for (const Script& write : { Script{ WriteFails(ERROR_NO_DATA) },
                                 Script{ WritePends(), Waits(), OperationFailed(ERROR_NO_DATA) } }) {
        ScriptedPipe pipe(Start() + Script{ Waits(), Reads("DRAW"), Waits() } + write +
                          Script{ Closes(kPipe), CreateFails(ERROR_PIPE_BUSY), Closes(kEvent) });
        EXPECT_TRUE(Play(pipe).ends_with(kEndLines));
    }
}

// Two classes down, as the program's own server is; each adds to the chain.
class MiddleServer : public PipeServer {
public:
    using PipeServer::PipeServer;

    bool Initialize(std::uint8_t messageMode) override {
        platform::LogFormat("middle %d\n", int(messageMode));
        return PipeServer::Initialize(messageMode);
    }
};

class OuterServer : public MiddleServer {
public:
    using MiddleServer::MiddleServer;

    bool Initialize(std::uint8_t messageMode) override {
        platform::LogFormat("outer %d\n", int(messageMode));
        return MiddleServer::Initialize(messageMode);
    }
};

TEST(BrokenPipe, EachDisconnectRunsTheWholeInitializeChainOfTheMostDerivedClassOnce) {
    const LogCapture log;
    {
        ScriptedPipe pipe(Start() + Script{ Waits(), ReadFails(ERROR_BROKEN_PIPE) } + Anew() +
                          Script{ Waits(), Reads("DRAW"), Waits(), WriteFails(ERROR_NO_DATA),
                                  Closes(kSecondPipe), Creates(), ConnectPends() } +
                          End());
        OuterServer server(pipe.Calls());
        EXPECT_TRUE(server.Initialize(1));
        server.ServeConnection();
    }
    const std::string chain = "outer 1\nmiddle 1\n";
    EXPECT_EQ(log.Text(), chain + kStartLine + kBrokenLine + chain + kStartLine + kBrokenLine + chain +
                              kStartLine + kBrokenLine + chain +
                              "CreateNamedPipe failed during initialization of the server. Error 231\n"
                              "Could not resuscitate pipe. Bailing.\n");
}

TEST(Leaving, TheLoopLeavesInsteadOfWaiting) {
    const LogCapture log;
    ScriptedPipe pipe(Start() + Script{ SetsEvent(), Closes(kPipe), Closes(kEvent) });
    PipeServer server(pipe.Calls());
    EXPECT_TRUE(server.Initialize(1));
    server.AskServiceThreadToLeave();
    server.ServeConnection();
    EXPECT_EQ(pipe.mSetEvents, std::vector<HANDLE>{ kEvent });
    EXPECT_EQ(log.Text(), kStartLine);
}

TEST(Leaving, TheLoopLeavesOutOfAWaitWithNoFurtherRead) {
    const LogCapture log;
    Step interrupted = Waits();
    PipeServer* asked = nullptr;
    interrupted.during = [&asked] { asked->AskServiceThreadToLeave(); };
    ScriptedPipe pipe(
        Start() + Script{ Waits(), ReadPends(), interrupted, SetsEvent(), Closes(kPipe), Closes(kEvent) });
    PipeServer server(pipe.Calls());
    asked = &server;
    EXPECT_TRUE(server.Initialize(1));
    server.ServeConnection();
    EXPECT_EQ(log.Text(), kStartLine);
}

TEST(Leaving, ASignalLostToAnOperationThatResetTheEventDoesNotKeepTheLoop) {
    const LogCapture log;
    Step read = ReadPends();
    PipeServer* asked = nullptr;
    read.during = [&asked] { asked->AskServiceThreadToLeave(); };
    ScriptedPipe pipe(Start() + Script{ Waits(), read, SetsEvent(), Closes(kPipe), Closes(kEvent) });
    PipeServer server(pipe.Calls());
    asked = &server;
    EXPECT_TRUE(server.Initialize(1));
    server.ServeConnection();
    EXPECT_EQ(log.Text(), kStartLine);
}

TEST(Leaving, ANewServerServesAgain) {
    const LogCapture log;
    {
        ScriptedPipe pipe({ SetEventFails() });
        PipeServer(pipe.Calls()).AskServiceThreadToLeave();
    }
    ScriptedPipe pipe(Start() + Script{ Waits(), Reads("DRAW"), Waits(), Writes(2) } + End());
    PipeServer server(pipe.Calls());
    EXPECT_TRUE(server.Initialize(1));
    server.ServeConnection();
    EXPECT_EQ(pipe.mReplies, std::vector<std::string>{ "OK" });
}

} // namespace
} // namespace orvane::shell
