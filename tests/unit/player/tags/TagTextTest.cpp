#include "player/tags/TagText.h"

#include "support/TagFiles.h"

#include <gtest/gtest.h>

#include <string>

namespace orvane::player {
namespace {

using tests::AsBytes;

TEST(TagText, Latin1IsTakenByteForByte) {
    EXPECT_EQ(TextOfLatin1(AsBytes("Caf\xE9 \xDF")), u"Caf\u00E9 \u00DF");
}

TEST(TagText, AMarkTellsTheOrderOfUtf16) {
    EXPECT_EQ(TextOfUtf16(AsBytes({ "\xFF\xFE\xE9\0b\0", 6 }), Utf16Order::kByMark), u"\u00E9b");
    EXPECT_EQ(TextOfUtf16(AsBytes({ "\xFE\xFF\0\xE9\0b", 6 }), Utf16Order::kByMark), u"\u00E9b");
    EXPECT_EQ(TextOfUtf16(AsBytes({ "\xFF\xFE\xE9\0", 4 }), Utf16Order::kBigEndian), u"\u00E9");
}

TEST(TagText, Utf16WithoutAMarkIsAsTheTagSaysOrLittleEndian) {
    EXPECT_EQ(TextOfUtf16(AsBytes({ "a\0b\0", 4 }), Utf16Order::kByMark), u"ab");
    EXPECT_EQ(TextOfUtf16(AsBytes({ "\0a\0b", 4 }), Utf16Order::kBigEndian), u"ab");
}

TEST(TagText, AHalfUnitAtTheEndIsLeftOut) {
    EXPECT_EQ(TextOfUtf16(AsBytes({ "a\0b", 3 }), Utf16Order::kByMark), u"a");
    EXPECT_EQ(TextOfUtf16(AsBytes("a"), Utf16Order::kByMark), u"");
    EXPECT_EQ(TextOfUtf16({}, Utf16Order::kByMark), u"");
}

TEST(TagText, Utf8IsDecodedAndItsMarkLeftOut) {
    EXPECT_EQ(TextOfUtf8(AsBytes("\xEF\xBB\xBF\xE4\xB8\x96\xF0\x9F\x8E\xB5")), u"\u4E16\U0001F3B5");
}

TEST(TagText, WhatIsNotUtf8IsTakenAsLatin1) {
    EXPECT_EQ(TextOfUtf8(AsBytes("Caf\xE9 noir")), u"Caf\u00E9 noir");
    EXPECT_EQ(TextOfUtf8(AsBytes("\x80\x80\x80\x80\x80")), u""); // control characters, all of them
}

TEST(TagText, ATextEndsWithItsFirstZero) {
    EXPECT_EQ(TextOfLatin1(AsBytes({ "one\0two", 7 })), u"one");
    EXPECT_EQ(TextOfUtf8(AsBytes({ "one\0\xE9", 5 })), u"one");
    EXPECT_EQ(TextOfUtf16(AsBytes({ "a\0\0\0b\0", 6 }), Utf16Order::kByMark), u"a");
}

TEST(TagText, BlanksAtTheEndsGoAndControlCharactersBecomeBlanks) {
    EXPECT_EQ(TextOfLatin1(AsBytes("  a\nb\tc \r\n")), u"a b c");
    EXPECT_EQ(TextOfLatin1(AsBytes("   ")), u"");
    EXPECT_EQ(TextOfLatin1(AsBytes("\x7F\x80\x9F\xA0z")), u"\u00A0z");
}

TEST(TagText, IsCutAt255Units) {
    EXPECT_EQ(TextOfLatin1(AsBytes(std::string(255, 'x'))), std::u16string(255, u'x'));
    EXPECT_EQ(TextOfLatin1(AsBytes(std::string(256, 'x'))), std::u16string(255, u'x'));
    EXPECT_EQ(TextOfLatin1(AsBytes(std::string(254, 'x') + " y")), std::u16string(254, u'x'));
}

TEST(TagText, NoPairIsCutInTwo) {
    std::u16string text(254, u'x');
    text += u"\U0001F3B5";
    EXPECT_EQ(TidyText(text), std::u16string(254, u'x'));
    EXPECT_EQ(TidyText(text.substr(1)), text.substr(1)); // fits whole
}

TEST(TagText, ALongUtf8TextThatWasCutWithinACharacterIsStillUtf8) {
    const std::string beginning = tests::Join({ "\xC3\x84", std::string(kLongestText - 2, 'x') });
    std::u16string units(kLongestText - 1, u'x');
    units.front() = u'\u00C4';
    for (const std::string_view character : { "\xC3\xA9", "\xE4\xB8\x96", "\xF0\x9F\x8E\xB5" })
        for (std::size_t kept = 1; kept < character.size(); ++kept) {
            const std::string text = tests::Join({ beginning, character.substr(0, kept) });
            EXPECT_EQ(TextOfUtf8(AsBytes(text)), units) << kept << " of " << character.size();
        }
}

TEST(TagText, AShortTextThatEndsInALatin1LetterKeepsIt) {
    EXPECT_EQ(TextOfUtf8(AsBytes("Gru\xDF")), u"Gru\u00DF");
    EXPECT_EQ(TextOfUtf8(AsBytes("\xE4")), u"\u00E4");
}

} // namespace
} // namespace orvane::player
