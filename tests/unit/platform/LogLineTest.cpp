#include "platform/LogLine.h"

#include "support/LogCapture.h"
#include "support/RedirectedOutput.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <string_view>
#include <vector>

namespace orvane::platform {
namespace {

using tests::LogCapture;
using tests::OutputTarget;
using tests::RedirectedOutput;

TEST(LogLine, ReachesTheStandardOutput) {
    const RedirectedOutput output(OutputTarget::kFile);
    LogLine("one ");
    LogFormat("%d %s\n", 2, "tw\xC3\xB6");
    EXPECT_EQ(output.Text(), "one 2 tw\xC3\xB6\n") << "byte for byte, in order, with nothing added";
    LogLine("three");
    EXPECT_EQ(output.Text(), "one 2 tw\xC3\xB6\nthree");
}

TEST(LogLine, WritesTheMeasuredLengthAndNotUpToAZero) {
    const RedirectedOutput output(OutputTarget::kFile);
    constexpr char kText[] = { 'a', '\0', 'b', '\n', 'c' };
    LogLine(kText, 4);
    EXPECT_EQ(output.Text(), std::string("a\0b\n", 4));
}

TEST(LogLine, AWriteThatFailsIsDropped) {
    for (const OutputTarget target : { OutputTarget::kReadOnly, OutputTarget::kMissing }) {
        const RedirectedOutput output(target);
        LogLine("nobody sees this\n");
        LogFormat("nor %s\n", "this");
    }
    const RedirectedOutput output(OutputTarget::kFile);
    LogLine("and the next one is written\n");
    EXPECT_EQ(output.Text(), "and the next one is written\n");
}

TEST(LogLine, ASinkTakesTheLinesAndTheOldOneComesBack) {
    static std::string sTaken;
    sTaken.clear();
    const RedirectedOutput output(OutputTarget::kFile);
    const LogSink sink = [](std::string_view line) { sTaken += line; };
    EXPECT_EQ(SetLogSink(sink), nullptr);
    LogLine("to the sink");
    EXPECT_EQ(SetLogSink(nullptr), sink);
    LogLine("to the output");
    EXPECT_EQ(sTaken, "to the sink");
    EXPECT_EQ(output.Text(), "to the output");
}

TEST(LogFormat, TakesNoNewlineOfItsOwnAndNoLengthButTheLines) {
    const LogCapture log;
    LogFormat("%s=%u", "a", 4294967295u);
    LogFormat(LineBuffer::k512, "%c%%\n", 'b');
    const std::vector<std::string> expected = { "a=4294967295", "b%\n" };
    EXPECT_EQ(log.Lines(), expected);
}

TEST(LogFormat, AnEmptyLineIsNoLine) {
    const LogCapture log;
    LogFormat("%s", "");
    EXPECT_EQ(log.Text(), "");
}

struct CutRow {
    LineBuffer size;
    std::size_t longest;
};

constexpr CutRow kCuts[] = {
    { LineBuffer::k256, 255 },
    { LineBuffer::k512, 511 },
    { LineBuffer::k1024, 1023 },
};

TEST(LogFormat, ALineIsCutOneByteBeforeTheEndOfItsBuffer) {
    for (const auto& cut : kCuts)
        for (const std::size_t length :
             { cut.longest - 1, cut.longest, cut.longest + 1, std::size_t(5000) }) {
            const LogCapture log;
            std::string text(length, 'x');
            text.front() = 'F';
            text.back() = '\n';
            LogFormat(cut.size, "%s", text.c_str());
            EXPECT_EQ(log.Text(), text.substr(0, cut.longest)) << cut.longest << ", " << length << " bytes";
        }
}

TEST(LogFormat, TheRuleIsABufferOf256Bytes) {
    const LogCapture log;
    LogFormat("%s", std::string(300, 'y').c_str());
    EXPECT_EQ(log.Text(), std::string(255, 'y'));
}

} // namespace
} // namespace orvane::platform
