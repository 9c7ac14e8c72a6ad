#include "shell/wire/DumpDataAsHex.h"

#include "support/LogCapture.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace orvane::shell {
namespace {

using tests::LogCapture;

TEST(DumpDataAsHex, PrintsExactly64BytesInOneLine) {
    const LogCapture log;
    std::vector<std::uint8_t> data(64); // not a byte more may be read
    for (std::size_t i = 0; i < data.size(); ++i) data[i] = std::uint8_t(i * 4 + 3);
    DumpDataAsHex(data.data());
    const std::vector<std::string> expected = { "DumpDataAsHex:  data is\""
                                                "03070B0F13171B1F23272B2F33373B3F"
                                                "43474B4F53575B5F63676B6F73777B7F"
                                                "83878B8F93979B9FA3A7ABAFB3B7BBBF"
                                                "C3C7CBCFD3D7DBDFE3E7EBEFF3F7FBFF"
                                                "\"\n" };
    EXPECT_EQ(log.Lines(), expected);
}

TEST(DumpDataAsHex, ZeroBytesDontEndTheLine) {
    const LogCapture log;
    const std::vector<std::uint8_t> data(80, 0);
    DumpDataAsHex(data.data());
    EXPECT_EQ(log.Text(), "DumpDataAsHex:  data is\"" + std::string(128, '0') + "\"\n");
}

TEST(DumpDataAsHex, NullPrintsNothing) {
    const LogCapture log;
    DumpDataAsHex(nullptr);
    EXPECT_EQ(log.Text(), "");
}

} // namespace
} // namespace orvane::shell
