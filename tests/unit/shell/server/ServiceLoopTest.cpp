#include "shell/server/PipeServer.h"
#include "support/LogCapture.h"
#include "unit/shell/server/ScriptedPipe.h"

#include <gtest/gtest.h>

namespace orvane::shell {
namespace {

using namespace tests;

constexpr char kBrokenLine[] = "ServeConnection:Pipe is broken. Will atempt to create a new one.\n";
constexpr char kUpvmLine[] = "HandleUPVMMessage override me\n";

// Plays `session` between a plain start and a plain end and returns what was printed between their lines.
template <class Server = PipeServer>
std::string Play(ScriptedPipe& pipe) {
    const LogCapture log;
    {
        Server server(pipe.Calls());
        EXPECT_TRUE(server.Initialize(1));
        server.ServeConnection();
    }
    std::string text = log.Text();
    EXPECT_TRUE(text.starts_with(kStartLine) && text.ends_with(kEndLines)) << text;
    if (text.size() < sizeof(kStartLine) - 1 + sizeof(kEndLines) - 1) return text;
    return text.substr(sizeof(kStartLine) - 1,
                       text.size() - (sizeof(kStartLine) - 1) - (sizeof(kEndLines) - 1));
}

const std::vector<std::string> kOneOk = { "OK" };
const std::vector<std::string> kTwoOk = { "OK", "OK" };

// ---- reading

TEST(ServiceLoop, EveryWaitIsInfiniteAlertableAndOnTheEvent) {
    ScriptedPipe pipe(Start() + Script{ Waits(), Reads("DRAW"), Waits(), Writes(2) } + End());
    EXPECT_EQ(Play(pipe), "");
    const ScriptedPipe::Waiting expected = { kEvent, INFINITE, TRUE };
    EXPECT_EQ(pipe.mWaits, std::vector<ScriptedPipe::Waiting>(3, expected));
}

TEST(ServiceLoop, AReadFillsTheWholeInputBufferOnTheOneOverlappedStructure) {
    ScriptedPipe pipe(Start() + Script{ Waits(), Reads("DRAW"), Waits(), Writes(2) } + End());
    EXPECT_EQ(Play(pipe), "");
    ASSERT_EQ(pipe.mReads.size(), 2u);
    for (const auto& read : pipe.mReads) {
        EXPECT_EQ(read.pipe, kPipe);
        EXPECT_EQ(read.size, 0x100000u);
        EXPECT_EQ(read.event, kEvent);
        EXPECT_EQ(read.buffer, pipe.mReads[0].buffer);
        EXPECT_EQ(read.overlapped, pipe.mConnects[0].overlapped);
    }
}

TEST(ServiceLoop, AReadThatFinishesAtOnceIsHandledAfterTheNextWait) {
    ScriptedPipe pipe(Start() + Script{ Waits(), Reads("STRT"), Waits(), Writes(5) } + End());
    EXPECT_EQ(Play(pipe), "StartVisualizerPlaybackWithTrackInfo: override me\n");
    EXPECT_EQ(pipe.mReplies, std::vector<std::string>{ "Start" });
}

TEST(ServiceLoop, APendingReadIsHandledInThePassThatFindsItDone) {
    ScriptedPipe pipe(Start() + Script{ Waits(), ReadPends(), Waits(), ReadIsDone("MOVW"), Writes(2) } +
                      End());
    EXPECT_EQ(Play(pipe), "MoveVisualizer override me\n");
    EXPECT_EQ(pipe.mReplies, kOneOk);
}

TEST(ServiceLoop, TheCountOfAPendingReadIsThatOfItsResult) {
    ScriptedPipe pipe(Start() + Script{ Waits(), ReadPends(), Waits(), ReadIsDone("abc"), Writes(33) } +
                      End());
    EXPECT_EQ(Play(pipe), "HandleRequest mBytesRead < 4\n");
    EXPECT_EQ(pipe.mReplies, std::vector<std::string>{ "No input message. Buffer size = 3" });
}

TEST(ServiceLoop, AnOverlappedResultIsAskedForWithoutWaiting) {
    ScriptedPipe pipe(Start() + Script{ Waits(), ReadPends(), Waits(), ReadIsDone("DRAW"), Writes(2) } +
                      End());
    EXPECT_EQ(Play(pipe), "");
    ASSERT_EQ(pipe.mResults.size(), 1u);
    EXPECT_EQ(pipe.mResults[0].pipe, kPipe);
    EXPECT_EQ(pipe.mResults[0].overlapped, pipe.mReads[0].overlapped);
    EXPECT_EQ(pipe.mResults[0].wait, FALSE);
}

TEST(ServiceLoop, AZeroLengthReadLeavesItReading) {
    ScriptedPipe pipe(Start() + Script{ Waits(), Reads(""), Waits(), Reads("DRAW"), Waits(), Writes(2) } +
                      End());
    EXPECT_EQ(Play(pipe), "");
    EXPECT_EQ(pipe.mReplies, kOneOk);
}

TEST(ServiceLoop, AZeroLengthPendingReadLeavesItReading) {
    ScriptedPipe pipe(Start() + Script{ Waits(), ReadPends(), Waits(), OperationIsDone(0) } +
                      Script{ Reads("DRAW"), Waits(), Writes(2) } + End());
    EXPECT_EQ(Play(pipe), "[kReading] Either GetOverlappedResult returned false or bytesTransferred is 0\n");
    EXPECT_EQ(pipe.mReplies, kOneOk);
}

TEST(ServiceLoop, AReadThatGoesPendingAgainKeepsTheFlag) {
    // The failed read leaves the flag set, and neither the read that goes pending nor the empty one after it
    // clears it: each of the next two waits is followed by the question for a result.
    ScriptedPipe pipe(Start() + Script{ Waits(), ReadPends(), Waits(), OperationFailed(ERROR_MORE_DATA) } +
                      Script{ ReadPends(), Waits(), OperationFailed(ERROR_MORE_DATA), Reads("") } +
                      Script{ Waits(), ReadIsDone("DRAW"), Writes(2) } + End());
    const std::string line =
        "[kReading] Either GetOverlappedResult returned false or bytesTransferred is 0\n";
    EXPECT_EQ(Play(pipe), line + line);
    EXPECT_EQ(pipe.mReplies, kOneOk);
}

TEST(ServiceLoop, ARequestLongerThanTheBufferPrintsErrorAndTheRemainderIsARequestOfItsOwn) {
    ScriptedPipe pipe(
        Start() + Script{ Waits(), ReadFails(ERROR_MORE_DATA), Waits(), Reads("DRAW"), Waits(), Writes(2) } +
        End());
    EXPECT_EQ(Play(pipe), "ServeConnection:Error 234 on read attempt\n");
    EXPECT_EQ(pipe.mReplies, kOneOk);
}

TEST(ServiceLoop, AFailedReadAfterAPendingOneKeepsTheFlag) {
    ScriptedPipe pipe(Start() +
                      Script{ Waits(), ReadPends(), Waits(), OperationFailed(ERROR_MORE_DATA),
                              ReadFails(ERROR_NOT_ENOUGH_MEMORY), Waits(), ReadIsDone("DRAW"), Writes(2) } +
                      End());
    EXPECT_EQ(Play(pipe), "[kReading] Either GetOverlappedResult returned false or bytesTransferred is 0\n"
                          "ServeConnection:Error 8 on read attempt\n");
}

// ---- waits

TEST(ServiceLoop, AnInterruptedWaitOnAPendingReadSaysSoAndReadsOn) {
    ScriptedPipe pipe(
        Start() +
        Script{ Waits(), ReadPends(), Waits(WAIT_IO_COMPLETION), Reads("DRAW"), Waits(), Writes(2) } + End());
    EXPECT_EQ(Play(pipe), "PendingIO::Wait over result is WAIT_IO_COMPLETION\n");
}

TEST(ServiceLoop, AFailedWaitOnAPendingReadSaysSoAndReadsOn) {
    for (const DWORD result : { WAIT_FAILED, DWORD(WAIT_TIMEOUT), DWORD(WAIT_ABANDONED) }) {
        ScriptedPipe pipe(Start() +
                          Script{ Waits(), ReadPends(), Waits(result), Reads("DRAW"), Waits(), Writes(2) } +
                          End());
        EXPECT_EQ(Play(pipe), "PendingIO::Wait over result is error\n") << result;
    }
}

TEST(ServiceLoop, WithNothingPendingTheResultOfTheWaitIsNotLookedAt) {
    ScriptedPipe pipe(
        Start() + Script{ Waits(WAIT_FAILED), Reads("DRAW"), Waits(WAIT_IO_COMPLETION), Writes(2) } + End());
    EXPECT_EQ(Play(pipe), "");
    EXPECT_EQ(pipe.mReplies, kOneOk);
}

TEST(ServiceLoop, TheWaitingLineIsNotPrinted) {
    // Through all three states: connecting, reading, writing.
    ScriptedPipe pipe(Start() +
                      Script{ Waits(), ReadFails(ERROR_BROKEN_PIPE), Closes(kPipe), Creates(),
                              ConnectReturnsTrue(), Waits(), OperationIsDone(), Reads("DRAW"), Waits(),
                              Writes(2) } +
                      End());
    EXPECT_EQ(Play(pipe),
              std::string(kBrokenLine) + "ConnectNamedPipe returned true, which is unexpected.\n");
}

// ---- connecting

TEST(ServiceLoop, AConnectWhoseResultFailsGoesOnConnecting) {
    ScriptedPipe pipe(Start() +
                      Script{ Waits(), ReadFails(ERROR_BROKEN_PIPE), Closes(kPipe), Creates(),
                              ConnectReturnsTrue(), Waits(), OperationFailed(ERROR_IO_INCOMPLETE),
                              Waits(WAIT_IO_COMPLETION), Waits(WAIT_FAILED), Waits(), OperationIsDone(),
                              Reads("DRAW"), Waits(), Writes(2) } +
                      End());
    EXPECT_EQ(Play(pipe), std::string(kBrokenLine) + "ConnectNamedPipe returned true, which is unexpected.\n"
                                                     "GetOverlappedResult failed in connecting state\n"
                                                     "PendingIO::Wait over result is WAIT_IO_COMPLETION\n"
                                                     "PendingIO::Wait over result is error\n");
}

// ---- handling and writing

TEST(ServiceLoop, AReplyIsWrittenFromTheOutputBufferOnTheOneOverlappedStructure) {
    ScriptedPipe pipe(Start() + Script{ Waits(), Reads("DRAW"), Waits(), Writes(2) } + End());
    EXPECT_EQ(Play(pipe), "");
    ASSERT_EQ(pipe.mWrites.size(), 1u);
    EXPECT_EQ(pipe.mWrites[0].pipe, kPipe);
    EXPECT_EQ(pipe.mWrites[0].size, 2u);
    EXPECT_EQ(pipe.mWrites[0].event, kEvent);
    EXPECT_EQ(pipe.mWrites[0].overlapped, pipe.mReads[0].overlapped);
    EXPECT_NE(pipe.mWrites[0].buffer, pipe.mReads[0].buffer);
    EXPECT_NE(pipe.mWrites[0].count, pipe.mReads[0].count) << "mBytesWritten, not mBytesRead";
}

TEST(ServiceLoop, AReplyThatCompletesAtOnceLeavesNoPendingFlag) {
    // The read was pending, so the flag was set; the pass after the reply asks for no result.
    ScriptedPipe pipe(Start() +
                      Script{ Waits(), ReadPends(), Waits(), ReadIsDone("DRAW"), Writes(2), Waits(),
                              Reads("STOP"), Waits(), Writes(2) } +
                      End());
    EXPECT_EQ(Play(pipe), "");
    EXPECT_EQ(pipe.mReplies, kTwoOk);
}

TEST(ServiceLoop, APendingWriteIsFinishedAfterTheNextWaitAndTheReadFollowsAtOnce) {
    ScriptedPipe pipe(Start() +
                      Script{ Waits(), Reads("DRAW"), Waits(), WritePends(), Waits(), OperationIsDone(2),
                              Reads("IDLE"), Waits(), Writes(2) } +
                      End());
    EXPECT_EQ(Play(pipe), "");
    EXPECT_EQ(pipe.mReplies, kTwoOk);
}

TEST(ServiceLoop, AfterAPendingWriteTheFlagStaysUntilTheNextStepClearsIt) {
    ScriptedPipe pipe(Start() +
                      Script{ Waits(), Reads("DRAW"), Waits(), WritePends(), Waits(), OperationIsDone(2),
                              ReadPends(), Waits(), ReadIsDone("IDLE"), Writes(2) } +
                      End());
    EXPECT_EQ(Play(pipe), "");
    EXPECT_EQ(pipe.mReplies, kTwoOk);
}

TEST(ServiceLoop, APendingWriteThatEndsInNothingHandlesTheRequestAgain) {
    constexpr char kLine[] =
        "[kWriting] Either GetOverlappedResult returned false or bytesTransferred is 0\n";
    for (const Step& outcome : { OperationIsDone(0), OperationFailed(ERROR_IO_INCOMPLETE) }) {
        ScriptedPipe pipe(
            Start() + Script{ Waits(), Reads("DRAW"), Waits(), WritePends(), Waits(), outcome, Writes(2) } +
            End());
        EXPECT_EQ(Play(pipe), kLine);
        EXPECT_EQ(pipe.mReplies, kTwoOk);
    }
}

TEST(ServiceLoop, AnInterruptedOrFailedWaitOnAPendingWriteHandlesTheRequestAgain) {
    ScriptedPipe pipe(Start() +
                      Script{ Waits(), Reads("DRAW"), Waits(), WritePends(), Waits(WAIT_IO_COMPLETION),
                              WritePends(), Waits(WAIT_FAILED), Writes(2) } +
                      End());
    EXPECT_EQ(Play(pipe), "PendingIO::Wait over result is WAIT_IO_COMPLETION\n"
                          "PendingIO::Wait over result is error\n");
    EXPECT_EQ(pipe.mReplies, (std::vector<std::string>{ "OK", "OK", "OK" }));
}

TEST(ServiceLoop, AWriteThatFailsForAnotherReasonChangesNothing) {
    ScriptedPipe pipe(
        Start() +
        Script{ Waits(), Reads("DRAW"), Waits(), WriteFails(ERROR_NOT_ENOUGH_MEMORY), Waits(), Writes(2) } +
        End());
    EXPECT_EQ(Play(pipe), "");
    EXPECT_EQ(pipe.mReplies, kTwoOk);
}

TEST(ServiceLoop, AWriteThatFailsForAnotherReasonLeavesAPendingFlagSet) {
    ScriptedPipe pipe(Start() +
                      Script{ Waits(), ReadPends(), Waits(), ReadIsDone("DRAW"),
                              WriteFails(ERROR_NOT_ENOUGH_MEMORY), Waits(),
                              OperationFailed(ERROR_IO_INCOMPLETE), Writes(2) } +
                      End());
    EXPECT_EQ(Play(pipe), "[kWriting] Either GetOverlappedResult returned false or bytesTransferred is 0\n");
    EXPECT_EQ(pipe.mReplies, kTwoOk);
}

TEST(ServiceLoop, AWriteOfNothingChangesNothing) {
    ScriptedPipe pipe(Start() + Script{ Waits(), Reads("DRAW"), Waits(), Writes(0), Waits(), Writes(2) } +
                      End());
    EXPECT_EQ(Play(pipe), "");
    EXPECT_EQ(pipe.mReplies, kTwoOk);
}

TEST(ServiceLoop, AHandlerThatWritesNoReplyCountsAsAnswered) {
    ScriptedPipe pipe(Start() +
                      Script{ Waits(), Reads("UPVM"), Waits(), Waits(), Reads("DRAW"), Waits(), Writes(2) } +
                      End());
    EXPECT_EQ(Play(pipe), kUpvmLine);
    EXPECT_EQ(pipe.mReplies, kOneOk);
}

TEST(ServiceLoop, AHandlerThatWritesNoReplyToAPendingReadLeavesNoPendingFlag) {
    ScriptedPipe pipe(Start() +
                      Script{ Waits(), ReadPends(), Waits(), ReadIsDone("UPVM"), Waits(), Reads("DRAW"),
                              Waits(), Writes(2) } +
                      End());
    EXPECT_EQ(Play(pipe), kUpvmLine);
    EXPECT_EQ(pipe.mReplies, kOneOk);
}

// An operation further down the chain that says "true" although it wrote nothing.
class SilentServer : public PipeServer {
public:
    using PipeServer::PipeServer;

    bool IdleVisualizer() override {
        platform::LogLine("silent\n");
        return true;
    }
};

TEST(ServiceLoop, WhatAHandlerThatWritesNoReplyReturnsMakesNoDifference) {
    ScriptedPipe pipe(Start() +
                      Script{ Waits(), Reads("IDLE"), Waits(), Waits(), Reads("DRAW"), Waits(), Writes(2) } +
                      End());
    EXPECT_EQ(Play<SilentServer>(pipe), "silent\n");
    EXPECT_EQ(pipe.mReplies, kOneOk);
}

TEST(ServiceLoop, MoveVisualizerAnswersOkAndPrintsItsLine) {
    ScriptedPipe pipe(Start() + Script{ Waits(), Reads("MOVW"), Waits(), Writes(2) } + End());
    EXPECT_EQ(Play(pipe), "MoveVisualizer override me\n");
    EXPECT_EQ(pipe.mReplies, kOneOk);
}

TEST(HandleRequest, IsTrueExactlyIfTheWriteReturnedTrue) {
    const LogCapture log;
    ScriptedPipe pipe({ Writes(33), Writes(0), WritePends(), WriteFails(ERROR_NO_DATA) });
    PipeServer server(pipe.Calls());
    EXPECT_TRUE(server.HandleRequest());
    EXPECT_TRUE(server.HandleRequest());
    EXPECT_FALSE(server.HandleRequest());
    EXPECT_FALSE(server.HandleRequest());
    EXPECT_EQ(pipe.mReplies, std::vector<std::string>(4, "No input message. Buffer size = 0"));
}

} // namespace
} // namespace orvane::shell
