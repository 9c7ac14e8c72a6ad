// Requests and replies over the real pipe.
#include "unit/shell/server/RealPipe.h"

namespace orvane::shell {
namespace {

using namespace tests;

TEST_F(RealPipe, EveryRequestGetsItsReplyAndItsLine) {
    struct Row {
        const char *tag, *reply, *line;
    };

    constexpr Row kRows[] = {
        { "PULS", "OK", "PulseVisualizer override me\n" },
        { "KEYI", "OK", "KeyInputVisualizer override me\n" },
        { "SWND", "OK", "ShowVisualizerWindow override me\n" },
        { "SWSV", "OK", "ShowVisualizerWindowAndSelectVisualizer override me\n" },
        { "HWND", "OK", "HideVisualizerWindow override me\n" },
        { "NTFS", "OK", "EnterFullscreen override me\n" },
        { "XTFS", "OK", "ExitFullscreen override me\n" },
        { "DCTV", "OK", "DeactivateVisualizer override me\n" },
        { "STRT", "Start", "StartVisualizerPlaybackWithTrackInfo: override me\n" },
        { "DRAW", "OK", "" },
        { "MOVW", "OK", "MoveVisualizer override me\n" },
        { "RSHP", "OK", "ReshapeVisualizer override me\n" },
        { "ACTV", "OK", "ActivateVisualizer override me\n" },
        { "NOAR", "OK", "" },
        { "AR13", "OK", "" },
        { "AR14", "OK", "" },
    };
    Start();
    PipeClient client;
    std::string lines = kPendingLine;
    for (const auto& row : kRows) {
        EXPECT_EQ(client.Ask(row.tag), row.reply) << row.tag;
        EXPECT_EQ(mLog.Text(), lines += row.line);
    }
}

TEST_F(RealPipe, ARequestWithNoReplyLeavesThePipeUsable) {
    Start();
    PipeClient client;
    EXPECT_TRUE(client.Send("UPVM"));
    EXPECT_EQ(client.Ask("STRT"), "Start");
    EXPECT_FALSE(client.HasReply());
    EXPECT_EQ(mLog.Text(), std::string(kPendingLine) + "HandleUPVMMessage override me\n"
                                                       "StartVisualizerPlaybackWithTrackInfo: override me\n");
}

TEST_F(RealPipe, ARequestTooShortForATagIsToldItsLength) {
    Start();
    PipeClient client;
    EXPECT_EQ(client.Ask("A"), "No input message. Buffer size = 1");
    EXPECT_EQ(client.Ask("ABC"), "No input message. Buffer size = 3");
    EXPECT_EQ(client.Ask("DRAW"), "OK");
    const std::string line = "HandleRequest mBytesRead < 4\n";
    EXPECT_EQ(mLog.Text(), kPendingLine + line + line);
}

TEST_F(RealPipe, AnUnknownTagIsNotHandledAndThePipeStaysUsable) {
    Start();
    PipeClient client;
    EXPECT_EQ(client.Ask("draw"), "Not handled");
    EXPECT_EQ(client.Ask("\xC4RAW"), "Not handled");
    EXPECT_EQ(client.Ask("DRAW"), "OK");
    EXPECT_EQ(mLog.Text(), kPendingLine);
}

TEST_F(RealPipe, AnEmptyRequestGetsNoReplyAndThePipeStaysUsable) {
    Start();
    PipeClient client;
    EXPECT_EQ(client.Ask("DRAW"), "OK");
    EXPECT_TRUE(client.Send(""));
    EXPECT_EQ(client.Ask("STRT"), "Start");
    EXPECT_FALSE(client.HasReply());
}

// Bytes that differ from place to place, so that the digest sees any shift.
std::string LongRequest(std::size_t size) {
    std::string request = "PM2C";
    for (std::size_t i = request.size(); i < size; ++i) request += char(i % 251);
    return request;
}

std::string DigestOf(const std::string& request) {
    return Digest(reinterpret_cast<const std::uint8_t*>(request.data()), request.size());
}

TEST_F(RealPipe, ARequestOfExactlyOneMiBIsReadWhole) {
    Start();
    PipeClient client;
    const std::string request = LongRequest(1024 * 1024);
    EXPECT_EQ(client.Ask(request), DigestOf(request));
    EXPECT_EQ(client.Ask("DRAW"), "OK");
    EXPECT_EQ(mLog.Text(), kPendingLine);
}

TEST_F(RealPipe, OfALongerRequestTheRemainderIsARequestOfItsOwn) {
    Start();
    PipeClient client;
    EXPECT_EQ(client.Ask(LongRequest(1024 * 1024) + "STRT"), "Start");
    EXPECT_FALSE(client.HasReply()) << "the first 1 MiB get no reply";
    EXPECT_EQ(client.Ask("DRAW"), "OK");
    // Which of the two lines comes depends on who was first: the server with its read, or the client.
    constexpr char kStartLine[] = "StartVisualizerPlaybackWithTrackInfo: override me\n";
    const std::string pending = std::string(kPendingLine) + kReadLine + kStartLine;
    const std::string atOnce =
        std::string(kPendingLine) + "ServeConnection:Error 234 on read attempt\n" + kStartLine;
    const std::string text = mLog.Text();
    EXPECT_TRUE(text == pending || text == atOnce) << text;
}

} // namespace
} // namespace orvane::shell
