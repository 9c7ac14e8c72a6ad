#include "render/PackedRows.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

namespace orvane::render {
namespace {

using Bytes = std::vector<std::uint8_t>;

// The strings in heap blocks of exactly their size, so that a read past an end is seen by the sanitizer.
class Rows {
public:
    explicit Rows(const std::vector<std::string>& texts) {
        for (const std::string& text : texts) {
            mTexts.push_back(std::make_unique<char[]>(text.size() + 1));
            std::memcpy(mTexts.back().get(), text.c_str(), text.size() + 1);
            mRows.push_back(mTexts.back().get());
        }
    }

    [[nodiscard]] std::optional<PackedPicture> Decode() const {
        return DecodePackedRows(mRows.data(), mRows.size());
    }

private:
    std::vector<std::unique_ptr<char[]>> mTexts;
    std::vector<const char*> mRows;
};

Bytes BytesOf(const std::optional<PackedPicture>& picture) {
    if (!picture) return {};
    return Bytes(picture->bytes.get(), picture->bytes.get() + picture->RowBytes() * picture->height);
}

Bytes Unpacked(const std::string& text) {
    const PackedRow row = ParsePackedRow(text.c_str());
    Bytes bytes(UnpackedLength(row), 0xEE);
    UnpackRow(row, bytes.data(), 1, bytes.size());
    return bytes;
}

std::string Repeated(const std::string& text, int count) {
    std::string result;
    for (int i = 0; i < count; ++i) result += text;
    return result;
}

TEST(PackedRows, FF00UnpacksToTwoZeroBytes) {
    EXPECT_EQ(Unpacked("FF00"), (Bytes{ 0, 0 }));
}

TEST(PackedRows, AControlByteOf00IsOneByteAsItIs) {
    EXPECT_EQ(Unpacked("00A7"), (Bytes{ 0xA7 }));
}

TEST(PackedRows, BytesAsTheyAreAndRunsFollowOneAnother) {
    EXPECT_EQ(Unpacked("02010203FE9900FF"), (Bytes{ 1, 2, 3, 0x99, 0x99, 0x99, 0xFF }));
}

TEST(PackedRows, ControlByte81IsARunOf128) {
    EXPECT_EQ(Unpacked("8105"), Bytes(128, 5));
}

TEST(PackedRows, ControlByte80IsARunOf129) {
    EXPECT_EQ(Unpacked("8005"), Bytes(129, 5));
}

TEST(PackedRows, TheTextEndsAtTheFirstCharacterThatIsNoUpperCaseDigit) {
    EXPECT_EQ(Unpacked("FF07ff08"), (Bytes{ 7, 7 }));
    EXPECT_EQ(Unpacked("FF07 FF08"), (Bytes{ 7, 7 }));
    EXPECT_EQ(Unpacked("G"), Bytes{});
    EXPECT_EQ(ParsePackedRow(nullptr).size, 0u);
}

TEST(PackedRows, AnOddLastDigitIsDropped) {
    EXPECT_EQ(ParsePackedRow("0102F").size, 2u);
}

TEST(PackedRows, AStringDecodesToAtMost1024Bytes) {
    EXPECT_EQ(ParsePackedRow(Repeated("AB", 1024).c_str()).size, 1024u);
    EXPECT_EQ(ParsePackedRow(Repeated("AB", 1025).c_str()).size, 1024u);
    // 512 pairs of control byte and value, two bytes each; the 513th pair is dropped.
    EXPECT_EQ(Unpacked(Repeated("FF00", 513)).size(), 1024u);
}

TEST(PackedRows, ARunWhoseBytesAreMissingCountsInFullAndWritesWhatItHas) {
    EXPECT_EQ(Unpacked("03010203"), (Bytes{ 1, 2, 3, 0xEE }));
    EXPECT_EQ(Unpacked("FE"), (Bytes{ 0xEE, 0xEE, 0xEE }));
}

TEST(PackedRows, FourStringsAreTheFourBytesOfThePixelsOfARow) {
    const auto picture = Rows({ "010B0C", "011516", "FF20", "012A2B" }).Decode();
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->width, 2u);
    EXPECT_EQ(picture->height, 1u);
    EXPECT_EQ(BytesOf(picture), (Bytes{ 0x0B, 0x15, 0x20, 0x2A, 0x0C, 0x16, 0x20, 0x2B }));
}

TEST(PackedRows, ThreeStringsAreNoPicture) {
    EXPECT_FALSE(Rows({ "FF00", "FF00", "FF00" }).Decode());
    EXPECT_FALSE(Rows(std::vector<std::string>{}).Decode());
    EXPECT_FALSE(DecodePackedRows(nullptr, 4));
}

TEST(PackedRows, AWidthOfZeroIsNoPicture) {
    EXPECT_FALSE(Rows({ "", "FF00", "FF00", "FF00" }).Decode());
}

TEST(PackedRows, TheHeightIsAQuarterOfTheCountAndWhatIsLeftOverIsIgnored) {
    const auto picture =
        Rows({ "0001", "0002", "0003", "0004", "0005", "0006", "0007", "0008", "0009", "000A", "000B" })
            .Decode();
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->height, 2u);
    EXPECT_EQ(BytesOf(picture), (Bytes{ 1, 2, 3, 4, 5, 6, 7, 8 }));
}

TEST(PackedRows, AStringShorterThanTheWidthLeavesZeros) {
    EXPECT_EQ(BytesOf(Rows({ "FE01", "0002", "", "FF04" }).Decode()),
              (Bytes{ 1, 2, 0, 4, 1, 0, 0, 4, 1, 0, 0, 0 }));
}

TEST(PackedRows, AStringLongerThanTheWidthRunsOnIntoTheNextRow) {
    // One pixel wide, three rows. The second plane of the first row has two bytes: the second one lands in
    // row 1, whose own string is empty. The third plane's does too and is written over.
    const auto picture = Rows({ "0001", "0111AA", "0121BB", "0031", //
                                "0002", "", "0022", "0032",         //
                                "0003", "0013", "0023", "0033" })
                             .Decode();
    EXPECT_EQ(BytesOf(picture),
              (Bytes{ 0x01, 0x11, 0x21, 0x31, 0x02, 0xAA, 0x22, 0x32, 0x03, 0x13, 0x23, 0x33 }));
}

TEST(PackedRows, TheLastRowStaysInsideThePictureHoweverLongItsStrings) {
    const std::string longest = Repeated("80EE", 512); // 66,048 bytes
    const auto picture = Rows({ "0001", longest, longest, longest }).Decode();
    EXPECT_EQ(BytesOf(picture), (Bytes{ 1, 0xEE, 0xEE, 0xEE }));
    const auto last = Rows({ "FF01", "FF02", "FF03", "FF04", longest, longest, longest, longest }).Decode();
    EXPECT_EQ(BytesOf(last), (Bytes{ 1, 2, 3, 4, 1, 2, 3, 4, //
                                     0xEE, 0xEE, 0xEE, 0xEE, 0xEE, 0xEE, 0xEE, 0xEE }));
}

TEST(PackedRows, TheWidestRowIs66048Pixels) {
    const std::string widest = Repeated("8007", 512);
    const auto picture = Rows({ widest, widest, widest, widest }).Decode();
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->width, 66048u); // 512 runs of 129
    EXPECT_EQ(BytesOf(picture), Bytes(66048 * 4, 7));
}

} // namespace
} // namespace orvane::render
