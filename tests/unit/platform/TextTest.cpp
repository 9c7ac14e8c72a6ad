#include "platform/Text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace orvane::platform {
namespace {

using namespace std::string_literals;

struct PairRow {
    std::string utf8;
    std::u16string utf16;
};

// Both sides of every length of UTF-8 and of the surrogates' place.
const PairRow kBoundaries[] = {
    { "\0"s, u"\0"s },
    { "\x7F", u"\u007F" },
    { "\xC2\x80", u"\u0080" },
    { "\xDF\xBF", u"\u07FF" },
    { "\xE0\xA0\x80", u"\u0800" },
    { "\xED\x9F\xBF", u"\uD7FF" },
    { "\xEE\x80\x80", u"\uE000" },
    { "\xEF\xBF\xBD", u"\uFFFD" },
    { "\xEF\xBF\xBF", u"\uFFFF" },
    { "\xF0\x90\x80\x80", u"\xD800\xDC00" },
    { "\xF0\x9F\x8E\xB5", u"\xD83C\xDFB5" },
    { "\xF4\x8F\xBF\xBF", u"\xDBFF\xDFFF" },
    { "", u"" },
    { "Zo\xC3\xAB \xE2\x99\xAA\xF0\x9F\x8E\xB5!", u"Zo\u00EB \u266A\xD83C\xDFB5!" },
};

TEST(Text, BoundariesOfEveryLengthGoBothWays) {
    for (const auto& row : kBoundaries) {
        EXPECT_EQ(Utf16FromUtf8(row.utf8), row.utf16) << row.utf8;
        EXPECT_EQ(Utf8FromUtf16(row.utf16), row.utf8);
    }
}

struct InvalidRow {
    const char* why;
    std::string_view bytes;
};

constexpr InvalidRow kInvalid[] = {
    { "stray continuation byte, first", "\x80" },
    { "stray continuation byte, last", "\xBF" },
    { "continuation byte behind a whole sequence", "\xC3\xAB\xAB" },
    { "two bytes for U+0000", "\xC0\x80" },
    { "two bytes for U+007F", "\xC1\xBF" },
    { "three bytes for U+0000", "\xE0\x80\x80" },
    { "three bytes for U+07FF", "\xE0\x9F\xBF" },
    { "four bytes for U+0000", "\xF0\x80\x80\x80" },
    { "four bytes for U+FFFF", "\xF0\x8F\xBF\xBF" },
    { "first lead surrogate", "\xED\xA0\x80" },
    { "last lead surrogate", "\xED\xAF\xBF" },
    { "first trail surrogate", "\xED\xB0\x80" },
    { "last trail surrogate", "\xED\xBF\xBF" },
    { "surrogate pair in three bytes each", "\xED\xA0\x80\xED\xB0\x80" },
    { "U+110000", "\xF4\x90\x80\x80" },
    { "the largest that four bytes hold", "\xF7\xBF\xBF\xBF" },
    { "lead byte F5", "\xF5\x80\x80\x80" },
    { "lead byte of five", "\xF8\x88\x80\x80\x80" },
    { "lead byte of six", "\xFC\x84\x80\x80\x80\x80" },
    { "FE", "\xFE" },
    { "FF", "\xFF" },
    { "two bytes cut to one", "\xC3" },
    { "three bytes cut to one", "\xE2" },
    { "three bytes cut to two", "\xE2\x99" },
    { "four bytes cut to one", "\xF0" },
    { "four bytes cut to two", "\xF0\x9F" },
    { "four bytes cut to three", "\xF0\x9F\x8E" },
    { "a letter where the second of two belongs", "\xC3x" },
    { "a letter where the second of three belongs", "\xE2x\xAA" },
    { "a letter where the third of three belongs", "\xE2\x99x" },
    { "a letter where the second of four belongs", "\xF0x\x8E\xB5" },
    { "a letter where the third of four belongs", "\xF0\x9Fx\xB5" },
    { "a letter where the fourth of four belongs", "\xF0\x9F\x8Ex" },
    { "a lead byte where a continuation belongs", "\xC3\xC3\xAB" },
};

// Behind, in front of and amid good text of several lengths, in a heap block of exactly its size.
TEST(Text, EveryClassOfInvalidSequenceIsRefusedWhereverItStands) {
    for (const auto& row : kInvalid)
        for (const std::size_t before : { 0u, 1u, 7u, 8u, 9u, 31u })
            for (const std::size_t behind : { 0u, 1u, 40u }) {
                std::string text(before, 'a');
                text += row.bytes;
                text.append(behind, 'b');
                const std::vector<char> exact(text.begin(), text.end());
                EXPECT_EQ(Utf16FromUtf8({ exact.data(), exact.size() }), std::nullopt)
                    << row.why << ", " << before << " letters before, " << behind << " behind";
            }
}

// The table of well-formed sequences: ranges for the lead byte and each byte behind it.
struct WellFormedRow {
    std::uint8_t low[4], high[4];
    std::size_t length;
};

constexpr WellFormedRow kWellFormed[] = {
    { { 0x00 }, { 0x7F }, 1 },
    { { 0xC2, 0x80 }, { 0xDF, 0xBF }, 2 },
    { { 0xE0, 0xA0, 0x80 }, { 0xE0, 0xBF, 0xBF }, 3 },
    { { 0xE1, 0x80, 0x80 }, { 0xEC, 0xBF, 0xBF }, 3 },
    { { 0xED, 0x80, 0x80 }, { 0xED, 0x9F, 0xBF }, 3 },
    { { 0xEE, 0x80, 0x80 }, { 0xEF, 0xBF, 0xBF }, 3 },
    { { 0xF0, 0x90, 0x80, 0x80 }, { 0xF0, 0xBF, 0xBF, 0xBF }, 4 },
    { { 0xF1, 0x80, 0x80, 0x80 }, { 0xF3, 0xBF, 0xBF, 0xBF }, 4 },
    { { 0xF4, 0x80, 0x80, 0x80 }, { 0xF4, 0x8F, 0xBF, 0xBF }, 4 },
};

std::size_t WellFormedLength(std::string_view text) {
    for (const auto& row : kWellFormed) {
        bool fits = row.length <= text.size();
        for (std::size_t i = 0; fits && i < row.length; ++i)
            fits = std::uint8_t(text[i]) >= row.low[i] && std::uint8_t(text[i]) <= row.high[i];
        if (fits) return row.length;
    }
    return 0;
}

bool IsWellFormed(std::string_view text) {
    while (!text.empty()) {
        const std::size_t length = WellFormedLength(text);
        if (length == 0) return false;
        text.remove_prefix(length);
    }
    return true;
}

TEST(Text, AgreesWithTheTableOfWellFormedSequencesOnEveryPairOfBytes) {
    for (int first = 0; first < 256; ++first)
        for (int second = 0; second < 256; ++second) {
            const std::string text = { char(first), char(second) };
            ASSERT_EQ(Utf16FromUtf8(text).has_value(), IsWellFormed(text)) << first << " " << second;
        }
}

TEST(Text, AgreesWithTheTableOfWellFormedSequencesOnLongerOnes) {
    constexpr std::uint8_t kTails[] = { 0x00, 0x7F, 0x80, 0x9F, 0xA0, 0xBF, 0xC0, 0xFF };
    for (int first = 0xE0; first < 256; ++first)
        for (int second = 0x70; second < 0xD0; ++second)
            for (const std::uint8_t third : kTails)
                for (const std::uint8_t fourth : kTails) {
                    const std::string text = { char(first), char(second), char(third), char(fourth) };
                    ASSERT_EQ(Utf16FromUtf8(text).has_value(), IsWellFormed(text))
                        << first << " " << second << " " << int(third) << " " << int(fourth);
                }
}

// One code point by division, as the definition has it.
std::string EncodeUtf8(std::uint32_t c) {
    const auto tail = [c](std::uint32_t divisor) { return char(0x80 + c / divisor % 64); };
    if (c < 0x80) return { char(c) };
    if (c < 0x800) return { char(0xC0 + c / 64), tail(1) };
    if (c < 0x10000) return { char(0xE0 + c / 4096), tail(64), tail(1) };
    return { char(0xF0 + c / 262144), tail(4096), tail(64), tail(1) };
}

std::u16string EncodeUtf16(std::uint32_t c) {
    if (c < 0x10000) return { char16_t(c) };
    return { char16_t(0xD800 + (c - 0x10000) / 1024), char16_t(0xDC00 + (c - 0x10000) % 1024) };
}

TEST(Text, EveryCodePointGoesBothWays) {
    std::string utf8;
    std::u16string utf16;
    for (std::uint32_t c = 0; c <= 0x10FFFF; ++c) {
        if (c == 0xD800) c = 0xE000;
        utf8 += EncodeUtf8(c);
        utf16 += EncodeUtf16(c);
    }
    EXPECT_TRUE(Utf16FromUtf8(utf8) == utf16);
    EXPECT_TRUE(Utf8FromUtf16(utf16) == utf8);
}

TEST(Text, LettersOfEveryLengthBetweenOthersComeThroughWhole) {
    for (std::size_t letters = 0; letters < 70; ++letters) {
        std::string text = "\xC3\xAB";
        text.append(letters, 'q').append("\xE2\x99\xAA").append(letters, 'r');
        std::u16string expected = u"\u00EB";
        expected.append(letters, u'q').append(u"\u266A").append(letters, u'r');
        EXPECT_EQ(Utf16FromUtf8(text), expected) << letters << " letters";
    }
}

TEST(Text, EachUnitOfABrokenPairBecomesAReplacementCharacter) {
    // U+FFFD is EF BF BD.
    EXPECT_EQ(Utf8FromUtf16(u"a\xD800"), "a\xEF\xBF\xBD");
    EXPECT_EQ(Utf8FromUtf16(u"\xDC00z"), "\xEF\xBF\xBDz");
    EXPECT_EQ(Utf8FromUtf16(u"\xDBFFz"), "\xEF\xBF\xBDz");
    EXPECT_EQ(Utf8FromUtf16(u"\xDFFF\xD800"), "\xEF\xBF\xBD\xEF\xBF\xBD");
    EXPECT_EQ(Utf8FromUtf16(u"\xD800\xD800\xDC00"), "\xEF\xBF\xBD\xF0\x90\x80\x80");
    EXPECT_EQ(Utf8FromUtf16(u"\xD800\xDC00\xDC00"), "\xF0\x90\x80\x80\xEF\xBF\xBD");
}

} // namespace
} // namespace orvane::platform
