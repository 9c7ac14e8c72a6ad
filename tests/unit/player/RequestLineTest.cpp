#include "player/console/RequestLine.h"

#include "support/Wire.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

namespace orvane::player {
namespace {

using namespace std::chrono_literals;
using namespace std::string_view_literals;
using tests::AsText;

TEST(RequestLine, ATagAloneIsSentAsGiven) {
    const Request request = ParseRequestLine("SWND");
    EXPECT_EQ(request.error, "");
    EXPECT_EQ(request.tag, "SWND");
    EXPECT_EQ(AsText(request.bytes), "SWND");
    EXPECT_EQ(request.timeout, 5s);
}

TEST(RequestLine, AShortTagMakesAShortRequestAndAnEmptyOneAnEmptyRequest) {
    EXPECT_EQ(AsText(ParseRequestLine("PUL").bytes), "PUL");
    const Request empty = ParseRequestLine("\"\"");
    EXPECT_EQ(empty.error, "");
    EXPECT_TRUE(empty.bytes.empty());
}

TEST(RequestLine, AWordThatBeginsWithASlashIsNoOption) {
    EXPECT_EQ(AsText(ParseRequestLine("/hex").bytes), "/hex");
}

TEST(RequestLine, HexIsTakenWithAndWithoutBlanks) {
    EXPECT_EQ(AsText(ParseRequestLine("PULS --hex 0001fFA0").bytes), "PULS\0\1\xFF\xA0"sv);
    EXPECT_EQ(AsText(ParseRequestLine("PULS --hex \"00 01ff  A0\"").bytes), "PULS\0\1\xFF\xA0"sv);
}

TEST(RequestLine, TextIsSentWithoutATerminator) {
    EXPECT_EQ(AsText(ParseRequestLine("PM2C --text \"two words\"").bytes), "PM2Ctwo words");
}

TEST(RequestLine, AFileIsSentByteForByte) {
    const auto name = std::filesystem::temp_directory_path() / "orvane-request-line-\u00E4.bin";
    std::ofstream(name, std::ios::binary) << "\0\r\n\x1A\xFF"sv;
    const std::u8string utf8 = name.generic_u8string();
    const Request request = ParseRequestLine("AR13 --file \"" + std::string(utf8.begin(), utf8.end()) + "\"");
    std::filesystem::remove(name);
    EXPECT_EQ(request.error, "");
    EXPECT_EQ(AsText(request.bytes), "AR13\0\r\n\x1A\xFF"sv);
}

TEST(RequestLine, TheTimeoutIsInSecondsAndTheirParts) {
    EXPECT_EQ(ParseRequestLine("DRAW --timeout 0.25").timeout, 250ms);
    EXPECT_EQ(ParseRequestLine("DRAW --timeout 60").timeout, 60s);
}

TEST(RequestLine, WhatCantBeUnderstoodIsRefusedInOneLine) {
    for (const auto line : { "PULS --hex 0", "PULS --hex 0G", "PULS --hex \"0 1\"", "PULS --hex +1",
                             "PULS --file /there/is/no/such/file", "PULS --hex 00 --text x",
                             "PULS --text x --file y", "PULS --nonsense", "PULS SWND", "--text x",
                             "PULS --timeout -1", "PULS --timeout soon", "PM2C --text \"x" }) {
        const Request request = ParseRequestLine(line);
        EXPECT_NE(request.error, "") << line;
        EXPECT_EQ(request.error.find('\n'), std::string::npos) << line;
    }
}

} // namespace
} // namespace orvane::player
