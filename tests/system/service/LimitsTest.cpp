// Requests at and beyond what the protocol holds.
#include "system/HostProcess.h"
#include "system/service/Expected.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace orvane::tests {
namespace {

using player::PipeClient;

constexpr std::size_t kLongestRequest = 1 << 20; // bytes

class Limits : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(mHost.Serve());
        mClient = ConnectToHost();
        ASSERT_TRUE(mClient.IsConnected());
    }

    std::string Ask(const Bytes& request) { return AsText(mClient.Exchange(request, kPatience).bytes); }

    // Exactly one reply came for whatever was asked before: the next one is this request's own.
    void ExpectNextIsAnswered() {
        EXPECT_EQ(Ask(WireBuilder().Raw("PU").Get()), "No input message. Buffer size = 2");
    }

    HostProcess mHost;
    PipeClient mClient;
};

TEST_F(Limits, ARequestOfExactlyOneMebibyteIsAnswered) {
    EXPECT_EQ(Ask(WireBuilder().Raw("AR13").Zeros(kLongestRequest - 4).Get()), ExpectedReply("AR13"));
    ExpectNextIsAnswered();
}

// What doesn't fit fails the read, and the remainder is taken for a request of its own.
TEST_F(Limits, TheRemainderOfALongerRequestIsAnsweredAsOneOfItsOwn) {
    const auto mebibyte = [] { return WireBuilder().Raw("AR13").Zeros(kLongestRequest - 4); };

    struct Row {
        Bytes request;
        std::string reply;
        int failedReads;
    };

    const Row rows[] = {
        { mebibyte().U8(0).Get(), "No input message. Buffer size = 1", 1 },
        { mebibyte().U8(0).U8(0).U8(0).Get(), "No input message. Buffer size = 3", 1 },
        { mebibyte().Raw("STOP").Get(), ExpectedReply("STOP"), 1 },
        { mebibyte().Zeros(kLongestRequest).Get(), "Not handled", 1 },
        { mebibyte().Zeros(kLongestRequest).Raw("IDLE").Get(), ExpectedReply("IDLE"), 2 },
    };
    int failedReads = 0;
    for (const auto& row : rows) {
        EXPECT_EQ(Ask(row.request), row.reply);
        ExpectNextIsAnswered();
        failedReads += row.failedReads;
    }

    ASSERT_EQ(mHost.Quit(), 0);
    // A read that fails at once prints the first line, one that was waiting the second; one that fails at once
    // right after one that was waiting prints both, since the pending flag still stands.
    const std::string text = mHost.Text();
    const int lines =
        Count(text, "ServeConnection:Error 234 on read attempt\n") +
        Count(text, "[kReading] Either GetOverlappedResult returned false or bytesTransferred is 0\n");
    EXPECT_GE(lines, failedReads) << text;
    EXPECT_LE(lines, 2 * failedReads) << text;
}

TEST_F(Limits, StringsUpToAndBeyondTheirLimitAreAnswered) {
    for (const std::size_t units : { 0u, 255u, 256u, 65535u }) {
        SCOPED_TRACE(units);
        const std::u16string text(units, u'x');
        EXPECT_EQ(Ask(WireBuilder().Raw("SWSV").String(text).U8(0).Get()), ExpectedReply("SWSV"));
        EXPECT_EQ(Ask(WireBuilder().Raw("ACTV").String(text).Get()), ExpectedReply("ACTV"));
        EXPECT_EQ(Ask(WireBuilder().Raw("STRTFNIT").U32(0).U32(0).String(text).Get()), ExpectedReply("STRT"));
        ExpectNextIsAnswered();
    }
}

TEST_F(Limits, StringsThatClaimMoreUnitsThanCameAreAnswered) {
    for (const int claimed : { 1, 255, 256, 65535 }) {
        SCOPED_TRACE(claimed);
        EXPECT_EQ(Ask(WireBuilder().Raw("SWSV RTS").U16(std::uint16_t(claimed)).Get()),
                  ExpectedReply("SWSV"));
        EXPECT_EQ(Ask(WireBuilder().Raw("ACTV RTS").U16(std::uint16_t(claimed)).Get()),
                  ExpectedReply("ACTV"));
        ExpectNextIsAnswered();
    }
}

TEST_F(Limits, ATrackBlockCutOffAtEveryByteIsAnswered) {
    const std::string block = AsText(SampleTrackBlock());
    for (std::size_t length = 0; length <= block.size(); ++length) {
        ASSERT_EQ(Ask(WireBuilder().Raw("STRT").Raw(block.substr(0, length)).Get()), ExpectedReply("STRT"))
            << length;
        ASSERT_EQ(Ask(WireBuilder().Raw("DRAW").Get()), ExpectedReply("DRAW")) << length;
    }
    ExpectNextIsAnswered();
}

} // namespace
} // namespace orvane::tests
