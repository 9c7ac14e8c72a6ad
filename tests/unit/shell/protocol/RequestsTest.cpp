#include "shell/protocol/Requests.h"

#include "support/Wire.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <string>

namespace orvane::shell {
namespace {

struct TagRow {
    const char* text;
    std::uint32_t tag;
};

constexpr TagRow kTags[] = {
    { "UPVM", tags::kLocalizedStrings },
    { "PULS", tags::kPulse },
    { "KEYI", tags::kKeyInput },
    { "SWND", tags::kShowWindow },
    { "SWSV", tags::kShowWindowAndSelect },
    { "HWND", tags::kHideWindow },
    { "NTFS", tags::kEnterFullscreen },
    { "XTFS", tags::kExitFullscreen },
    { "PM2C", tags::kPostToConsole },
    { "DCTV", tags::kDeactivate },
    { "STRT", tags::kStart },
    { "DRAW", tags::kDraw },
    { "IDLE", tags::kIdle },
    { "STOP", tags::kStop },
    { "MOVW", tags::kMove },
    { "RSHP", tags::kReshape },
    { "ACTV", tags::kActivate },
    { "NOAR", tags::kNoArtwork },
    { "AR13", tags::kArtwork13 },
    { "AR14", tags::kArtwork14 },
};
static_assert(std::size(kTags) == 20);

std::uint32_t TagOf(const std::string& request) {
    const tests::Bytes bytes(request.begin(), request.end()); // exactly four: no more may be read
    return ComposeTag(bytes.data());
}

bool IsTag(std::uint32_t value) {
    return std::any_of(std::begin(kTags), std::end(kTags),
                       [value](const auto& row) { return row.tag == value; });
}

TEST(ComposeTag, TheTagsTravelInReadingOrder) {
    EXPECT_EQ(TagOf("KEYI"), 0x4B455949u);
    for (const auto& row : kTags) EXPECT_EQ(TagOf(row.text), row.tag) << row.text;
}

TEST(ComposeTag, AByteOf80OrMoreMatchesNoTagWhereverItStands) {
    for (const auto& row : kTags)
        for (std::size_t place = 0; place < 4; ++place)
            for (int byte = 0x80; byte <= 0xFF; ++byte) {
                std::string request = row.text;
                request[place] = char(byte);
                EXPECT_FALSE(IsTag(TagOf(request))) << row.text << " " << place << " " << byte;
            }
}

TEST(ComposeTag, EachByteIsTakenAsSigned) {
    // -128 << 24, -1 << 16, -2 << 8 and -1, one over the other.
    EXPECT_EQ(TagOf("\x80@@@"), 0x80404040u);
    EXPECT_EQ(TagOf("@\xFF@@"), 0xFFFF4040u);
    EXPECT_EQ(TagOf("@@\xFE@"), 0xFFFFFE40u);
    EXPECT_EQ(TagOf("@@@\xFF"), 0xFFFFFFFFu);
}

TEST(UInt32At, ReadsLittleEndianAtAnyOffset) {
    const tests::Bytes bytes = tests::WireBuilder().Raw("PULS").U32(0x01020304).U8(9).U32(0xFFFFFFFE).Get();
    EXPECT_EQ(UInt32At(bytes.data(), pulse_request::kStamp), 0x01020304u);
    EXPECT_EQ(UInt32At(bytes.data(), 9), 0xFFFFFFFEu);
}

TEST(Requests, AMessageHoldsOneMebibyte) {
    EXPECT_EQ(kMessageCapacity, 1024u * 1024u);
}

} // namespace
} // namespace orvane::shell
