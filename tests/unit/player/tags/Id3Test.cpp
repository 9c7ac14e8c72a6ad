#include "TagReading.h"

#include <gtest/gtest.h>

#include <string>

namespace orvane::player {
namespace {

using namespace tests;

constexpr std::uint8_t kUnsynchronised = 0x80, kExtendedHeader = 0x40, kFooter = 0x10;

std::string ThreeTexts(int version) {
    const bool two = version == 2;
    return Join({ Id3Frame(version, two ? "TT2" : "TIT2", Id3Text("Title")),
                  Id3Frame(version, two ? "TP1" : "TPE1", Id3Text("Artist")),
                  Id3Frame(version, two ? "TAL" : "TALB", Id3Text("Album")) });
}

void ExpectThreeTexts(const Tags& tags) {
    EXPECT_EQ(tags.title, u"Title");
    EXPECT_EQ(tags.artist, u"Artist");
    EXPECT_EQ(tags.album, u"Album");
    EXPECT_TRUE(tags.cover.empty());
}

TEST(Id3, ReadsTheTextsOfEachVersionBeforeSoundAndPadding) {
    for (const int version : { 2, 3, 4 }) {
        SCOPED_TRACE(version);
        ExpectThreeTexts(TagsOf(Id3Tag(version, ThreeTexts(version))));
        ExpectThreeTexts(
            TagsOf(Id3Tag(version, ThreeTexts(version) + std::string(50, '\0')) + "\xFF\xFBsound"));
    }
}

TEST(Id3, ReadsEachEncoding) {
    const std::string_view titles[] = { { "\0\xE4", 2 },
                                        { "\x01\xFF\xFE\xE4\0", 5 },
                                        { "\x01\xFE\xFF\0\xE4", 5 },
                                        { "\x02\0\xE4", 3 },
                                        { "\x03\xC3\xA4", 3 } };
    for (const auto title : titles)
        EXPECT_EQ(TagsOf(Id3Tag(4, Id3Frame(4, "TIT2", title))).title, u"\u00E4") << int(title[0]);
}

TEST(Id3, AnUnknownEncodingAndAnEmptyFrameGiveNoText) {
    EXPECT_EQ(TagsOf(Id3Tag(4, Id3Frame(4, "TIT2", "\x04what"))).title, u"");
    EXPECT_EQ(TagsOf(Id3Tag(4, Id3Frame(4, "TIT2", ""))).title, u"");
    EXPECT_EQ(TagsOf(Id3Tag(4, Id3Frame(4, "TIT2", "\x03"))).title, u"");
}

TEST(Id3, TheFirstOfTwoTextsStays) {
    const std::string body = Id3Frame(3, "TIT2", Id3Text("one")) + Id3Frame(3, "TIT2", Id3Text("two"));
    EXPECT_EQ(TagsOf(Id3Tag(3, body)).title, u"one");
}

TEST(Id3, FramesOfOtherNamesArePassedOver) {
    const std::string body = Id3Frame(3, "PRIV", std::string(5000, 'x')) + ThreeTexts(3);
    ExpectThreeTexts(TagsOf(Id3Tag(3, body)));
}

// "\xFF\0\xE4" stands for 0xFF 0xE4.
TEST(Id3, UndoesUnsynchronisationOfTheWholeTagInTheOlderVersions) {
    for (const int version : { 2, 3 }) {
        const std::string_view name = version == 2 ? "TT2" : "TIT2";
        // The size counts the bytes as they are read, two less than stand in the file.
        const std::string plain = Id3Frame(version, name, Id3Text("a\xFF\xE4z\xFF"));
        std::string body;
        for (const char byte : plain) {
            body += byte;
            if (byte == '\xFF') body += '\0';
        }
        const std::string rest =
            version == 2 ? Id3Frame(2, "TP1", Id3Text("Artist")) : Id3Frame(3, "TPE1", Id3Text("Artist"));
        const Tags tags = TagsOf(Id3Tag(version, body + rest, kUnsynchronised));
        EXPECT_EQ(tags.title, u"a\u00FF\u00E4z\u00FF") << version;
        EXPECT_EQ(tags.artist, u"Artist") << version;
    }
}

TEST(Id3, UndoesUnsynchronisationFrameByFrameInVersion4) {
    constexpr std::uint8_t ofFrame = 0x02;
    const std::string_view data("\0a\xFF\0\xE4", 5);
    const std::string marked = Id3Frame(4, "TIT2", data, ofFrame) + Id3Frame(4, "TPE1", Id3Text("Artist"));
    for (const std::uint8_t flags : { std::uint8_t(0), kUnsynchronised }) {
        const Tags tags = TagsOf(Id3Tag(4, marked, flags));
        EXPECT_EQ(tags.title, u"a\u00FF\u00E4");
        EXPECT_EQ(tags.artist, u"Artist");
    }
    EXPECT_EQ(TagsOf(Id3Tag(4, Id3Frame(4, "TIT2", data), kUnsynchronised)).title, u"a\u00FF\u00E4");
    EXPECT_EQ(TagsOf(Id3Tag(4, Id3Frame(4, "TIT2", data))).title, u"a\u00FF"); // a zero ends the text
}

TEST(Id3, TheExtendedHeaderIsPassedOver) {
    // Version 3: a size that doesn't count itself. Version 4: syncsafe, and it does.
    const std::string extended3 = BigValue(6, 4) + std::string(6, '\x7E');
    const std::string extended4 = Syncsafe(6) + std::string(2, '\x01');
    ExpectThreeTexts(TagsOf(Id3Tag(3, extended3 + ThreeTexts(3), kExtendedHeader)));
    ExpectThreeTexts(TagsOf(Id3Tag(4, extended4 + ThreeTexts(4), kExtendedHeader)));
}

TEST(Id3, AnExtendedHeaderOfAWrongSizeDoesNoHarm) {
    for (const std::uint32_t size : { 0u, 3u, 0xFFFFFFFFu, 0x7F7F7F7Fu })
        for (const int version : { 3, 4 })
            EXPECT_EQ(TagsOf(Id3Tag(version, BigValue(size, 4), kExtendedHeader)), Tags());
}

TEST(Id3, ACompressedTagOfVersion2IsLeftUnread) {
    EXPECT_EQ(TagsOf(Id3Tag(2, ThreeTexts(2), 0x40)), Tags());
}

TEST(Id3, FieldsInFrontOfAFramesDataArePassedOver) {
    const std::string grouped3 = Id3Frame(3, "TIT2", Join({ "\x07", Id3Text("Title") }), 0x20);
    EXPECT_EQ(TagsOf(Id3Tag(3, grouped3)).title, u"Title");
    const std::string both4 =
        Id3Frame(4, "TIT2", Join({ "\x07", Syncsafe(6), Id3Text("Title") }), 0x40 | 0x01);
    EXPECT_EQ(TagsOf(Id3Tag(4, both4)).title, u"Title");
}

TEST(Id3, CompressedAndEncryptedFramesAreLeftOut) {
    const struct {
        int version;
        std::uint8_t flag;
    } cases[] = { { 3, 0x80 }, { 3, 0x40 }, { 4, 0x08 }, { 4, 0x04 } };

    for (const auto& [version, flag] : cases) {
        const std::string body =
            Id3Frame(version, "TIT2", Id3Text("no"), flag) + Id3Frame(version, "TPE1", Id3Text("Artist"));
        const Tags tags = TagsOf(Id3Tag(version, body));
        EXPECT_EQ(tags.title, u"") << version << ' ' << int(flag);
        EXPECT_EQ(tags.artist, u"Artist");
    }
}

TEST(Id3, ASizeOfVersion4ThatIsNotSyncsafeIsTakenAsVersion3WritesIt) {
    const std::string data = Id3Text(std::string(199, 'x')); // 200 bytes: 0xC8 has its top bit set
    const std::string frame = Join({ "TIT2", BigValue(data.size(), 4), BigValue(0, 2), data });
    const Tags tags = TagsOf(Id3Tag(4, frame + Id3Frame(4, "TPE1", Id3Text("Artist"))));
    EXPECT_EQ(tags.title, std::u16string(199, u'x'));
    EXPECT_EQ(tags.artist, u"Artist");
}

TEST(Id3, AFrameThatClaimsMoreThanTheTagHasEndsIt) {
    std::string body = Id3Frame(3, "TPE1", Id3Text("Artist"));
    body += Join({ "TIT2", BigValue(0x7FFFFFFF, 4), BigValue(0, 2), Id3Text("Title") });
    const Tags tags = TagsOf(Id3Tag(3, body) + std::string(1000, 'x'));
    EXPECT_EQ(tags.artist, u"Artist");
    EXPECT_EQ(tags.title, u"");
}

TEST(Id3, OtherVersionsAndASizeWithTopBitsAreNoTag) {
    for (const int version : { 0, 1, 5, 255 })
        EXPECT_EQ(TagsOf(Id3Tag(version, ThreeTexts(3))), Tags()) << version;
    std::string file = Id3Tag(3, ThreeTexts(3));
    file[9] = char(file[9] | 0x80);
    EXPECT_EQ(TagsOf(file), Tags());
}

TEST(Id3, WhatFollowsTheTagIsReadBehindItsFooter) {
    const std::string flac = FlacFile({ { 4, VorbisComments({ "ALBUM=Behind" }) } });
    const std::string tag = Id3Tag(4, Id3Frame(4, "TIT2", Id3Text("Title")));
    EXPECT_EQ(TagsOf(tag + flac).album, u"Behind");
    const std::string footed = Id3Tag(4, Id3Frame(4, "TIT2", Id3Text("Title")), kFooter);
    EXPECT_EQ(TagsOf(footed + std::string(10, '3') + flac).album, u"Behind");
}

TEST(Id3, EveryBeginningOfATagIsReadWithoutHarm) {
    for (const int version : { 2, 3, 4 })
        ForEachBeginning(Id3Tag(version, ThreeTexts(version)), [](std::size_t length, const Tags& tags) {
            // A frame is there whole or not at all.
            EXPECT_TRUE(tags.title.empty() || tags.title == u"Title") << length;
            EXPECT_TRUE(tags.artist.empty() || tags.artist == u"Artist") << length;
            EXPECT_EQ(tags.album, u"") << length;
        });
}

TEST(Id3, AThousandFramesInFrontChangeNothing) {
    std::string body;
    for (int i = 0; i < 1000; ++i) body += Id3Frame(3, "PRIV", "");
    ExpectThreeTexts(TagsOf(Id3Tag(3, body + ThreeTexts(3))));
}

TEST(Id3v1, ReadsTheLast128Bytes) {
    ExpectThreeTexts(TagsOf(Join({ "\xFF\xFBsound", Id3v1Tag("Title", "Artist", "Album") })));
    const std::string full = Id3v1Tag(std::string(30, 't'), "Artist   ", std::string(30, '\xE4'));
    EXPECT_EQ(full.size(), 128u);
    const Tags tags = TagsOf(full);
    EXPECT_EQ(tags.title, std::u16string(30, u't'));
    EXPECT_EQ(tags.artist, u"Artist");
    EXPECT_EQ(tags.album, std::u16string(30, u'\u00E4'));
}

TEST(Id3v1, FillsInWhatTheTagInFrontLeavesOpen) {
    const Tags tags = TagsOf(Id3Tag(3, Id3Frame(3, "TIT2", Id3Text("Front"))) + "sound" +
                             Id3v1Tag("Title", "Artist", "Album"));
    EXPECT_EQ(tags.title, u"Front");
    EXPECT_EQ(tags.artist, u"Artist");
}

TEST(Id3v1, AFileThatIsTooShortOrEndsOtherwiseHasNone) {
    const std::string tag = Id3v1Tag("Title", "Artist", "Album");
    EXPECT_EQ(TagsOf(tag.substr(1)), Tags());
    EXPECT_EQ(TagsOf(tag + "x"), Tags());
}

} // namespace
} // namespace orvane::player
