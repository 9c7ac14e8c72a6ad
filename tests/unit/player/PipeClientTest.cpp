#include "player/client/PipeClient.h"

#include "support/Wire.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <thread>
#include <type_traits>

namespace orvane::player {
namespace {

using namespace std::chrono_literals;
using tests::AsText;

static_assert(!std::is_copy_constructible_v<PipeClient> && std::is_nothrow_move_constructible_v<PipeClient>);

constexpr auto kPatience = 60s; // for what must come
constexpr auto kMoment = 100ms; // for what must not

// The server's end of a pipe of this test's own, in the hand of the test.
class PipeClientTest : public testing::Test {
protected:
    PipeClientTest()
        : mName(LR"(\\.\pipe\OrvanePipeClientTest-)" + std::to_wstring(GetCurrentProcessId())) {}

    void MakePipe() {
        mServer = Adopt(CreateNamedPipeW(mName.c_str(), PIPE_ACCESS_DUPLEX,
                                         PIPE_TYPE_MESSAGE | PIPE_READMODE_MESSAGE, 1, kPipeBytes, kPipeBytes,
                                         0, nullptr));
        ASSERT_TRUE(mServer);
    }

    void MakePipeWithClient() {
        ASSERT_NO_FATAL_FAILURE(MakePipe());
        ASSERT_TRUE(mClient.Connect(kPatience, mName.c_str()));
    }

    void Say(const Bytes& message) {
        DWORD written = 0;
        ASSERT_TRUE(WriteFile(mServer.get(), message.data(), DWORD(message.size()), &written, nullptr));
    }

    void Say(std::string_view text) { Say(Bytes(text.begin(), text.end())); }

    std::string Hear() {
        std::string message(kPipeBytes, '\0');
        DWORD bytes = 0;
        if (!ReadFile(mServer.get(), message.data(), kPipeBytes, &bytes, nullptr)) return "(nothing)";
        message.resize(bytes);
        return message;
    }

    static constexpr DWORD kPipeBytes = 1 << 20;

    const std::wstring mName;
    UniqueHandle mServer;
    PipeClient mClient;
};

Bytes Text(std::string_view text) {
    return { text.begin(), text.end() };
}

TEST_F(PipeClientTest, AHostThatIsNotThereIsToldWhenTheTimeIsOver) {
    EXPECT_EQ(mClient.Connect(0ms, mName.c_str()), (Outcome{ Failure::kHostNotFound, ERROR_FILE_NOT_FOUND }));
    EXPECT_EQ(mClient.Connect(kMoment, mName.c_str()).failure, Failure::kHostNotFound);
    EXPECT_FALSE(mClient.IsConnected());
}

TEST_F(PipeClientTest, WaitsForAHostThatIsStillToCome) {
    std::thread host([this] {
        std::this_thread::sleep_for(kMoment);
        MakePipe();
    });
    EXPECT_TRUE(mClient.Connect(kPatience, mName.c_str()));
    EXPECT_TRUE(mClient.IsConnected());
    host.join();
}

TEST_F(PipeClientTest, TellsWhoMadeThePipe) {
    EXPECT_EQ(mClient.ServerProcessId(), 0u);
    ASSERT_NO_FATAL_FAILURE(MakePipeWithClient());
    EXPECT_EQ(mClient.ServerProcessId(), GetCurrentProcessId());
    mClient.Disconnect();
    EXPECT_EQ(mClient.ServerProcessId(), 0u);
}

TEST_F(PipeClientTest, AnotherPlayerOnThePipeIsToldWhenTheTimeIsOver) {
    ASSERT_NO_FATAL_FAILURE(MakePipeWithClient());
    PipeClient second;
    EXPECT_EQ(second.Connect(kMoment, mName.c_str()), (Outcome{ Failure::kPipeBusy, ERROR_PIPE_BUSY }));
}

TEST_F(PipeClientTest, WaitsForAnotherPlayerToGo) {
    ASSERT_NO_FATAL_FAILURE(MakePipeWithClient());
    std::thread host([this] {
        std::this_thread::sleep_for(kMoment);
        mClient.Disconnect();
        DisconnectNamedPipe(mServer.get());
        ConnectNamedPipe(mServer.get(), nullptr); // until the second one is there
    });
    PipeClient second;
    EXPECT_TRUE(second.Connect(kPatience, mName.c_str()));
    host.join();
}

TEST_F(PipeClientTest, ARequestGoesOutAsOneMessageAndItsReplyComesBackAsOne) {
    ASSERT_NO_FATAL_FAILURE(MakePipeWithClient());
    std::thread host([this] {
        EXPECT_EQ(Hear(), "PULS");
        Say("one");
        Say("two"); // a message of its own
    });
    EXPECT_EQ(AsText(mClient.Exchange(Text("PULS"), kPatience).bytes), "one");
    EXPECT_EQ(AsText(mClient.Receive(kPatience).bytes), "two");
    host.join();
}

TEST_F(PipeClientTest, AnEmptyRequestIsAnEmptyMessage) {
    ASSERT_NO_FATAL_FAILURE(MakePipeWithClient());
    EXPECT_TRUE(mClient.Send({}, kPatience));
    EXPECT_EQ(Hear(), "");
}

TEST_F(PipeClientTest, AReplyLongerThanTheReadIsPutTogether) {
    ASSERT_NO_FATAL_FAILURE(MakePipeWithClient());
    for (const std::size_t size : { 16383u, 16384u, 16385u, 32768u, 1u << 20 }) {
        Bytes reply(size);
        for (std::size_t i = 0; i < size; ++i) reply[i] = std::uint8_t(i * 7 + i / 256);
        std::thread host([&] { Say(reply); });
        const Reply received = mClient.Receive(kPatience);
        EXPECT_TRUE(received.outcome) << size;
        EXPECT_TRUE(received.bytes == reply) << size;
        host.join();
    }
}

TEST_F(PipeClientTest, NoReplyInTimeIsToldAndTheConnectionStays) {
    ASSERT_NO_FATAL_FAILURE(MakePipeWithClient());
    EXPECT_EQ(mClient.Exchange(Text("UPVM"), kMoment).outcome.failure, Failure::kNoReplyInTime);
    EXPECT_EQ(mClient.Receive(0ms).outcome.failure, Failure::kNoReplyInTime);
    EXPECT_EQ(Hear(), "UPVM");
    std::thread host([this] {
        EXPECT_EQ(Hear(), "DRAW");
        Say("OK");
    });
    EXPECT_EQ(AsText(mClient.Exchange(Text("DRAW"), kPatience).bytes), "OK");
    host.join();
}

TEST_F(PipeClientTest, AReplyThatCameTooLateIsNotTakenForTheNextOne) {
    ASSERT_NO_FATAL_FAILURE(MakePipeWithClient());
    EXPECT_EQ(mClient.Exchange(Text("UPVM"), kMoment).outcome.failure, Failure::kNoReplyInTime);
    EXPECT_EQ(Hear(), "UPVM");
    Say("late");
    Say(Bytes(100000, 'l')); // also one that takes several reads
    std::thread host([this] {
        EXPECT_EQ(Hear(), "DRAW");
        Say("OK");
    });
    EXPECT_EQ(AsText(mClient.Exchange(Text("DRAW"), kPatience).bytes), "OK");
    host.join();
}

TEST_F(PipeClientTest, AHostThatGoesAwayIsTold) {
    ASSERT_NO_FATAL_FAILURE(MakePipeWithClient());
    std::thread host([this] {
        EXPECT_EQ(Hear(), "DRAW");
        mServer.reset();
    });
    EXPECT_EQ(mClient.Exchange(Text("DRAW"), kPatience).outcome.failure, Failure::kConnectionLost);
    host.join();
    EXPECT_EQ(mClient.Exchange(Text("DRAW"), kPatience).outcome.failure, Failure::kConnectionLost);
}

TEST_F(PipeClientTest, WithoutAConnectionNothingIsSent) {
    EXPECT_EQ(mClient.Send(Text("DRAW"), kPatience).failure, Failure::kConnectionLost);
    EXPECT_EQ(mClient.Receive(kPatience).outcome.failure, Failure::kConnectionLost);
    EXPECT_EQ(mClient.Exchange(Text("DRAW"), kPatience).outcome.failure, Failure::kConnectionLost);
}

TEST_F(PipeClientTest, MovingTakesTheConnectionAlong) {
    ASSERT_NO_FATAL_FAILURE(MakePipeWithClient());
    PipeClient moved = std::move(mClient);
    EXPECT_TRUE(moved.Send(Text("DRAW"), kPatience));
    EXPECT_EQ(Hear(), "DRAW");
    moved.Disconnect();
    EXPECT_EQ(Hear(), "(nothing)");
}

} // namespace
} // namespace orvane::player
