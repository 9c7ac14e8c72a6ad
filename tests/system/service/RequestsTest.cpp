#include "system/HostProcess.h"
#include "system/service/Expected.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>

namespace orvane::tests {
namespace {

using namespace std::chrono_literals;
using player::Failure;
using player::PipeClient;

TEST(Requests, EachIsAnsweredAndToldOnTheConsoleInItsOwnWords) {
    HostProcess host;
    ASSERT_TRUE(host.Serve());
    PipeClient client = ConnectToHost();
    ASSERT_TRUE(client.IsConnected());

    std::string console = ExpectedStart();
    for (const auto& exchange : ExpectedConversation()) {
        SCOPED_TRACE(exchange.name);
        ASSERT_TRUE(client.Send(exchange.request, kPatience));
        console += exchange.console;
        // A reply where none belongs would be taken for that of the next request, which would then be wrong.
        if (!exchange.reply) continue;
        const auto reply = client.Receive(kPatience);
        ASSERT_TRUE(reply.outcome);
        EXPECT_EQ(AsText(reply.bytes), *exchange.reply);
        // Posted work may come after the reply, and must have come before the next request is told.
        ASSERT_TRUE(host.WaitForText(console)) << host.Text();
    }
    EXPECT_EQ(client.Receive(200ms).outcome.failure, Failure::kNoReplyInTime);

    EXPECT_EQ(host.Quit(), 0);
    EXPECT_EQ(host.Text(), console + ExpectedEnd());
}

TEST(Requests, EachOfTheTwentyTagsIsInTheConversationOnce) {
    const auto conversation = ExpectedConversation();
    for (const auto tag : { "UPVM", "PULS", "KEYI", "SWND", "SWSV", "HWND", "NTFS", "XTFS", "PM2C", "DCTV",
                            "STRT", "DRAW", "IDLE", "STOP", "MOVW", "RSHP", "ACTV", "NOAR", "AR13", "AR14" })
        EXPECT_EQ(std::count_if(conversation.begin(), conversation.begin() + 20,
                                [tag](const auto& row) { return AsText(row.request).starts_with(tag); }),
                  1)
            << tag;
}

TEST(Requests, AnEmptyRequestGetsNoReplyAndTheNextOneDoes) {
    HostProcess host;
    ASSERT_TRUE(host.Serve());
    PipeClient client = ConnectToHost();
    ASSERT_TRUE(client.Send({}, kPatience));
    const auto reply = client.Exchange(WireBuilder().Raw("MOVW").Get(), kPatience);
    EXPECT_EQ(AsText(reply.bytes), "OK");
    EXPECT_EQ(client.Receive(200ms).outcome.failure, Failure::kNoReplyInTime);

    EXPECT_EQ(host.Quit(), 0);
    // The line comes if the read was waiting, and not if the request was there before it.
    const std::string line =
        "[kReading] Either GetOverlappedResult returned false or bytesTransferred is 0\n";
    const std::string move = "MoveVisualizer override me\n";
    EXPECT_THAT(host.Text(), testing::AnyOf(ExpectedStart() + line + move + ExpectedEnd(),
                                            ExpectedStart() + move + ExpectedEnd()));
}

} // namespace
} // namespace orvane::tests
