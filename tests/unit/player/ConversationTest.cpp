#include "player/console/Conversation.h"

#include "support/Wire.h"

#include <gtest/gtest.h>

#include <deque>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace orvane::player {
namespace {

using namespace std::string_view_literals;

Reply Answer(std::string_view bytes) {
    return { {}, Bytes(bytes.begin(), bytes.end()) };
}

Reply Fail(Failure failure, std::uint32_t systemCode = 0) {
    return { { failure, systemCode }, {} };
}

// Gives the replies that it was given, and keeps what it was asked.
class ScriptedConnection final : public IConnection {
public:
    Outcome Reconnect() override {
        mHeard.emplace_back("(reconnect)");
        return mReconnected;
    }

    Reply Exchange(std::span<const std::uint8_t> request, std::chrono::milliseconds) override {
        mHeard.push_back(tests::AsText(request));
        if (mReplies.empty()) return Answer("OK");
        const Reply reply = mReplies.front();
        mReplies.pop_front();
        return reply;
    }

    std::deque<Reply> mReplies;
    Outcome mReconnected;
    std::vector<std::string> mHeard;
};

class Conversation : public testing::Test {
protected:
    ExitCode Run(const std::string& script) {
        std::istringstream lines(script);
        return RunConversation(lines, mConnection, mOut, mErrors);
    }

    ScriptedConnection mConnection;
    std::ostringstream mOut;
    std::ostringstream mErrors;
};

TEST_F(Conversation, PrintsEachRequestAndItsReply) {
    mConnection.mReplies = { Answer("\0\0\0\0"sv), Answer("OK") };
    EXPECT_EQ(Run("PULS --hex 0000000000000000\nSWND\n"), kExitOk);
    EXPECT_EQ(mOut.str(), "> PULS 12 bytes\n"
                          "< 4 bytes  00000000 ....\n"
                          "  event: none\n"
                          "> SWND 4 bytes\n"
                          "< 2 bytes  4F4B OK\n");
    EXPECT_EQ(mErrors.str(), "");
}

TEST_F(Conversation, BlankLinesAndCommentsAreNoRequests) {
    EXPECT_EQ(
        Run("# first\n\n   \n  SWND  # show it\r\nPM2C --text \"a # b\"\nPM2C --text 'c # d' #e\n\tA#B\t\n"),
        kExitOk);
    EXPECT_EQ(mConnection.mHeard, (std::vector<std::string>{ "SWND", "PM2Ca # b", "PM2Cc # d", "A#B" }));
}

TEST_F(Conversation, ReconnectsWhereItIsTold) {
    EXPECT_EQ(Run("SWND\nreconnect\nHWND\n"), kExitOk);
    EXPECT_EQ(mConnection.mHeard, (std::vector<std::string>{ "SWND", "(reconnect)", "HWND" }));
    EXPECT_EQ(mOut.str(), "> SWND 4 bytes\n"
                          "< 2 bytes  4F4B OK\n"
                          "> reconnect\n"
                          "< (connected)\n"
                          "> HWND 4 bytes\n"
                          "< 2 bytes  4F4B OK\n");
}

TEST_F(Conversation, GoesOnAfterARequestWithoutReply) {
    mConnection.mReplies = { Fail(Failure::kNoReplyInTime), Answer("OK") };
    EXPECT_EQ(Run("\"\"\nSWND\n"), kExitOk);
    EXPECT_EQ(mOut.str(), "> \"\" 0 bytes\n"
                          "< (no reply)\n"
                          "> SWND 4 bytes\n"
                          "< 2 bytes  4F4B OK\n");
    EXPECT_EQ(mErrors.str(), "");
}

TEST_F(Conversation, EndsWhenTheConnectionBreaks) {
    mConnection.mReplies = { Fail(Failure::kConnectionLost, 109) };
    EXPECT_EQ(Run("SWND\nHWND\n"), kExitConnectionLost);
    EXPECT_EQ(mConnection.mHeard, (std::vector<std::string>{ "SWND" }));
    EXPECT_EQ(mErrors.str(),
              "The connection broke (system error 109). See whether orvane-visualizer.exe still "
              "runs, then try again.\n");
}

TEST_F(Conversation, EndsWhenTheHostIsGoneAtAReconnection) {
    mConnection.mReconnected = { Failure::kHostNotFound, 2 };
    EXPECT_EQ(Run("reconnect\nHWND\n"), kExitHostNotFound);
    EXPECT_EQ(mErrors.str(),
              "No host has opened \\\\.\\pipe\\Visualizer. Start orvane-visualizer.exe, then try "
              "again.\n");
}

TEST_F(Conversation, EndsAtALineThatCantBeUnderstoodAndSaysWhich) {
    EXPECT_EQ(Run("SWND\n\nPULS --hex 0G\nHWND\n"), kExitUsage);
    EXPECT_EQ(mConnection.mHeard, (std::vector<std::string>{ "SWND" }));
    EXPECT_EQ(mErrors.str(), "Line 3: --hex takes pairs of hexadecimal digits, such as --hex \"01 AB\".\n");
}

TEST_F(Conversation, LongRepliesGoOnInLinesOfSixteenBytes) {
    mConnection.mReplies = { Answer("0123456789abcdef"), Answer("0123456789abcdefXYZ\n"), Answer("") };
    EXPECT_EQ(Run("A\nB\nC\n"), kExitOk);
    EXPECT_EQ(mOut.str(), "> A 1 bytes\n"
                          "< 16 bytes  30313233 34353637 38396162 63646566 0123456789abcdef\n"
                          "> B 1 bytes\n"
                          "< 20 bytes\n"
                          "  30313233 34353637 38396162 63646566 0123456789abcdef\n"
                          "  58595A0A                            XYZ.\n"
                          "> C 1 bytes\n"
                          "< 0 bytes\n");
}

TEST_F(Conversation, TellsThePulseEvents) {
    mConnection.mReplies = { Answer("\0\0\0\0WSLC"sv), Answer("\0\0\0\0WTRA"sv),
                             Answer("\0\0\0\0CYEK\x41\0\0\0\1\0\x1E\0"sv),
                             Answer("\0\0\0\0XYEK\0\0\0\0\0\0\0\0"sv), Answer("OK") };
    EXPECT_EQ(Run("PULS\nPULS\nPULS\nPULS\nPULS\n"), kExitOk);
    for (const auto line : { "  event: close request\n", "  event: track display changed\n",
                             "  event: character left over, code 0041, lParam 001E0001\n",
                             "  event: extended key, code 0000, lParam 00000000\n",
                             "  event: malformed: shorter than 4 bytes\n" })
        EXPECT_NE(mOut.str().find(line), std::string::npos) << line << "in\n" << mOut.str();
}

TEST_F(Conversation, TellsThePluginList) {
    mConnection.mReplies = { Answer("\0\0\0\1"
                                    "\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0"
                                    "\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0"
                                    "\0\0\0\2\0\0\0\0"
                                    "\0\2\0Q\0\xE9\0\1\0p"sv),
                             Answer("\0\0\0\3"sv) };
    EXPECT_EQ(Run("UPVM\nUPVM\n"), kExitOk);
    EXPECT_NE(mOut.str().find("  plug-ins: 1\n    \"Q\u00E9\" kind 2 path \"p\"\n"), std::string::npos)
        << mOut.str();
    EXPECT_NE(mOut.str().find("  plug-ins: 3 (malformed)\n"), std::string::npos) << mOut.str();
}

TEST_F(Conversation, ARequestByItselfTellsThatNoReplyCame) {
    mConnection.mReplies = { Fail(Failure::kNoReplyInTime) };
    EXPECT_EQ(RunRequest(ParseRequestLine("UPVM"), mConnection, mOut, mErrors), kExitNoReply);
    EXPECT_EQ(mOut.str(), "> UPVM 4 bytes\n< (no reply)\n");
    EXPECT_EQ(mErrors.str(),
              "No reply came in time. Give the host more time with --timeout SECONDS, or see what "
              "its console says.\n");
}

TEST(Failures, EachHasAnExitCodeAndOneLine) {
    std::vector<int> codes;
    for (const auto failure : { Failure::kHostNotFound, Failure::kPipeBusy, Failure::kNoReplyInTime,
                                Failure::kConnectionLost, Failure::kSystem }) {
        codes.push_back(ExitCodeOf({ failure, 5 }));
        const std::string line = ExplainFailure({ failure, 5 });
        EXPECT_EQ(line.back(), '.') << line;
        EXPECT_EQ(line.find('\n'), std::string::npos) << line;
    }
    EXPECT_EQ(codes, (std::vector<int>{ 2, 3, 4, 5, 6 }));
    EXPECT_EQ(ExitCodeOf({}), kExitOk);
    EXPECT_EQ(ExplainFailure({}), "");
}

} // namespace
} // namespace orvane::player
