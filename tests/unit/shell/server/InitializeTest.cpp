#include "shell/server/PipeServer.h"
#include "support/LogCapture.h"
#include "unit/shell/server/ScriptedPipe.h"

#include <gtest/gtest.h>

namespace orvane::shell {
namespace {

using namespace tests;

constexpr char kUnexpectedLine[] = "ConnectNamedPipe returned true, which is unexpected.\n";

TEST(Initialize, MakesAMessagePipeIfTheModeIsAboveZero) {
    for (const std::uint8_t mode : { std::uint8_t(1), std::uint8_t(255) }) {
        const LogCapture log;
        ScriptedPipe pipe(Start() + Script{ Closes(kPipe), Closes(kEvent) });
        EXPECT_TRUE(PipeServer(pipe.Calls()).Initialize(mode));
        const std::vector<ScriptedPipe::Creation> expected = {
            { LR"(\\.\pipe\Visualizer)", 0x40000003, 6, 255, 0x100000, 0x100000, 0, nullptr },
        };
        EXPECT_EQ(pipe.mCreations, expected);
        EXPECT_EQ(log.Text(), "ConnectNamedPipe [ERROR_IO_PENDING].\n");
    }
}

TEST(Initialize, MakesABytePipeIfTheModeIsZero) {
    const LogCapture log;
    ScriptedPipe pipe(Start() + Script{ Closes(kPipe), Closes(kEvent) });
    EXPECT_TRUE(PipeServer(pipe.Calls()).Initialize(0));
    const std::vector<ScriptedPipe::Creation> expected = {
        { LR"(\\.\pipe\Visualizer)", 0x40000003, 0, 255, 0x100000, 0x100000, 0, nullptr },
    };
    EXPECT_EQ(pipe.mCreations, expected);
}

TEST(Initialize, APipeThatCannotBeMadeEndsItBeforeAnythingElse) {
    const LogCapture log;
    ScriptedPipe pipe({ CreateFails(ERROR_ACCESS_DENIED) });
    EXPECT_FALSE(PipeServer(pipe.Calls()).Initialize(1));
    EXPECT_EQ(log.Text(), "CreateNamedPipe failed during initialization of the server. Error 5\n");
}

TEST(Initialize, TheEventIsManualResetUnsignalledAndUnnamed) {
    const LogCapture log;
    ScriptedPipe pipe(Start() + Script{ Closes(kPipe), Closes(kEvent) });
    EXPECT_TRUE(PipeServer(pipe.Calls()).Initialize(1));
    const std::vector<ScriptedPipe::EventCreation> expected = { { nullptr, TRUE, FALSE, nullptr } };
    EXPECT_EQ(pipe.mEventCreations, expected);
}

TEST(Initialize, TheEventLivesOnWhenThePipeIsMadeAnew) {
    const LogCapture log;
    ScriptedPipe pipe(Start() +
                      Script{ Waits(), ReadFails(ERROR_BROKEN_PIPE), Closes(kPipe), Creates(), ConnectPends(),
                              Waits(), ReadFails(ERROR_BROKEN_PIPE), Closes(kPipe), Creates(),
                              ConnectPends() } +
                      End());
    PipeServer server(pipe.Calls());
    EXPECT_TRUE(server.Initialize(1));
    server.ServeConnection();
    EXPECT_EQ(pipe.mEventCreations.size(), 1u);
    for (const auto& connect : pipe.mConnects) EXPECT_EQ(connect.event, kEvent);
}

TEST(Initialize, AnEventThatCannotBeMadeEndsIt) {
    const LogCapture log;
    ScriptedPipe pipe({ Creates(), EventFails(ERROR_NOT_ENOUGH_MEMORY), Closes(kPipe) });
    EXPECT_FALSE(PipeServer(pipe.Calls()).Initialize(1));
    EXPECT_EQ(log.Text(), "Could not create the overlap instruction event. Error 8\n");
}

TEST(ServiceLoop, AnEventThatIsNullPassesAsMade) {
    const LogCapture log;
    {
        ScriptedPipe pipe({ Creates(), MakesEvent(nullptr), ConnectPends(), Waits(WAIT_FAILED),
                            ReadFails(ERROR_BROKEN_PIPE), Closes(kPipe), Creates(), ConnectPends(),
                            Waits(WAIT_FAILED), ReadFails(ERROR_BROKEN_PIPE), Closes(kPipe),
                            CreateFails(ERROR_PIPE_BUSY), Closes(nullptr) });
        PipeServer server(pipe.Calls());
        EXPECT_TRUE(server.Initialize(1));
        server.ServeConnection();
        EXPECT_EQ(pipe.mWaits.at(0).event, nullptr);
        EXPECT_EQ(pipe.mEventCreations.size(), 1u) << "null counts as made, so it isn't tried again";
    }
    EXPECT_EQ(log.Text(), std::string(kStartLine) +
                              "ServeConnection:Pipe is broken. Will atempt to create a new one.\n" +
                              kStartLine + kEndLines);
}

TEST(Initialize, ConnectIsOverlappedOnTheNewPipeAndTheEvent) {
    const LogCapture log;
    ScriptedPipe pipe(Start() + Script{ Closes(kPipe), Closes(kEvent) });
    EXPECT_TRUE(PipeServer(pipe.Calls()).Initialize(1));
    ASSERT_EQ(pipe.mConnects.size(), 1u);
    EXPECT_EQ(pipe.mConnects[0].pipe, kPipe);
    EXPECT_NE(pipe.mConnects[0].overlapped, nullptr);
    EXPECT_EQ(pipe.mConnects[0].event, kEvent);
}

TEST(Initialize, APendingConnectIsFollowedByAReadWithNoQuestionForItsResult) {
    const LogCapture log;
    {
        ScriptedPipe pipe(Script{ Creates(), MakesEvent(), ConnectPends() } + End());
        PipeServer server(pipe.Calls());
        EXPECT_TRUE(server.Initialize(1));
        server.ServeConnection();
    }
    EXPECT_EQ(log.Text(), std::string("ConnectNamedPipe [ERROR_IO_PENDING].\n") + kEndLines);
}

TEST(Initialize, AClientThatConnectsBeforeConnectNamedPipeIsServedAtOnceByASignalByHand) {
    const LogCapture log;
    {
        ScriptedPipe pipe(Script{ Creates(), MakesEvent(), ConnectFails(ERROR_PIPE_CONNECTED), SetsEvent() } +
                          End());
        PipeServer server(pipe.Calls());
        EXPECT_TRUE(server.Initialize(1));
        EXPECT_EQ(pipe.mSetEvents, std::vector<HANDLE>{ kEvent });
        server.ServeConnection();
    }
    EXPECT_EQ(log.Text(), std::string("ConnectNamedPipe [ERROR_PIPE_CONNECTED]\n"
                                      "ConnectNamedPipe SetEvent returned true\n") +
                              kEndLines);
}

TEST(Initialize, ASignalByHandThatFailsLeavesOutItsLineOnly) {
    const LogCapture log;
    {
        ScriptedPipe pipe(
            Script{ Creates(), MakesEvent(), ConnectFails(ERROR_PIPE_CONNECTED), SetEventFails() } + End());
        PipeServer server(pipe.Calls());
        EXPECT_TRUE(server.Initialize(1));
        server.ServeConnection();
    }
    EXPECT_EQ(log.Text(), std::string("ConnectNamedPipe [ERROR_PIPE_CONNECTED]\n") + kEndLines);
}

TEST(Initialize, AConnectThatReturnsTrueIsFinishedByItsOverlappedResult) {
    const LogCapture log;
    {
        // The read comes in the same pass as the result: the state has moved by then.
        ScriptedPipe pipe(Script{ Creates(), MakesEvent(), ConnectReturnsTrue(), Waits(), OperationIsDone(),
                                  ReadFails(ERROR_BROKEN_PIPE), Closes(kPipe), CreateFails(ERROR_PIPE_BUSY),
                                  Closes(kEvent) });
        PipeServer server(pipe.Calls());
        EXPECT_TRUE(server.Initialize(1));
        server.ServeConnection();
    }
    EXPECT_EQ(log.Text(), std::string(kUnexpectedLine) + kEndLines);
}

TEST(Initialize, AnyOtherConnectErrorEndsIt) {
    const LogCapture log;
    ScriptedPipe pipe(
        { Creates(), MakesEvent(), ConnectFails(ERROR_PIPE_NOT_CONNECTED), Closes(kPipe), Closes(kEvent) });
    EXPECT_FALSE(PipeServer(pipe.Calls()).Initialize(1));
    EXPECT_EQ(log.Text(), "ConnectNamedPipe returned error. Error 233\n");
}

// Counts how often the whole chain runs, as a class further down would take part in it.
class CountingServer : public PipeServer {
public:
    using PipeServer::PipeServer;

    bool Initialize(std::uint8_t messageMode) override {
        ++mInitializations;
        return PipeServer::Initialize(messageMode);
    }

    int mInitializations = 0;
};

TEST(Initialize, AClientThatCameAndWentIsDisconnectedAndConnectingBeginsAgain) {
    const LogCapture log;
    {
        ScriptedPipe pipe(Script{ Creates(), MakesEvent(), ConnectFails(ERROR_NO_DATA), Disconnects(),
                                  ConnectFails(ERROR_NO_DATA), Disconnects(), ConnectPends() } +
                          End());
        CountingServer server(pipe.Calls());
        EXPECT_TRUE(server.Initialize(1));
        EXPECT_EQ(server.mInitializations, 1) << "the outer chain is not run for it";
        EXPECT_EQ(pipe.mDisconnects, (std::vector<HANDLE>{ kPipe, kPipe }));
        server.ServeConnection();
    }
    EXPECT_EQ(log.Text(), std::string(kStartLine) + kEndLines);
}

TEST(Initialize, AfterAClientThatCameAndWentEveryOutcomeOfConnectingIsTaken) {
    struct Row {
        Script connect;
        bool result;
        const char* lines;
    };

    const Row rows[] = {
        { { ConnectReturnsTrue() }, true, kUnexpectedLine },
        { { ConnectFails(ERROR_PIPE_CONNECTED), SetsEvent() },
          true,
          "ConnectNamedPipe [ERROR_PIPE_CONNECTED]\nConnectNamedPipe SetEvent returned true\n" },
        { { ConnectFails(ERROR_INVALID_HANDLE) }, false, "ConnectNamedPipe returned error. Error 6\n" },
    };
    for (const auto& row : rows) {
        const LogCapture log;
        ScriptedPipe pipe(Script{ Creates(), MakesEvent(), ConnectFails(ERROR_NO_DATA), Disconnects() } +
                          row.connect + Script{ Closes(kPipe), Closes(kEvent) });
        EXPECT_EQ(PipeServer(pipe.Calls()).Initialize(1), row.result) << row.lines;
        EXPECT_EQ(log.Text(), row.lines);
    }
}

TEST(Destructor, AServerThatWasNeverInitializedClosesNothing) {
    ScriptedPipe pipe({});
    const PipeServer server(pipe.Calls());
}

TEST(Destructor, ClosesPipeAndEvent) {
    const LogCapture log;
    ScriptedPipe pipe(Start() + Script{ Closes(kPipe), Closes(kEvent) });
    EXPECT_TRUE(PipeServer(pipe.Calls()).Initialize(1));
}

TEST(Destructor, ClosesTheEventAloneWhenThePipeCouldNotBeMadeAgain) {
    const LogCapture log;
    ScriptedPipe pipe(Start() + End());
    PipeServer server(pipe.Calls());
    EXPECT_TRUE(server.Initialize(1));
    server.ServeConnection();
}

TEST(Destructor, ClosesThePipeAloneWhenTheEventCouldNotBeMade) {
    const LogCapture log;
    ScriptedPipe pipe({ Creates(), EventFails(ERROR_NOT_ENOUGH_MEMORY), Closes(kPipe) });
    EXPECT_FALSE(PipeServer(pipe.Calls()).Initialize(1));
}

} // namespace
} // namespace orvane::shell
