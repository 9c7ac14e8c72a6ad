#include "TagReading.h"

#include <gtest/gtest.h>

#include <string>

namespace orvane::player {
namespace {

using namespace tests;

std::string ThreeInfos() {
    return InfoList(Join({ Chunk("INAM", { "Title\0", 6 }), Chunk("ISFT", "odd"), Chunk("IART", "Artist!"),
                           Chunk("IPRD", "Album") }));
}

TEST(Wav, ReadsTheInfoListBehindTheSound) {
    const Tags tags = TagsOf(WavFile(ThreeInfos()));
    EXPECT_EQ(tags.title, u"Title");
    EXPECT_EQ(tags.artist, u"Artist!");
    EXPECT_EQ(tags.album, u"Album");
}

TEST(Wav, InfoTextsAreUtf8OrLatin1) {
    EXPECT_EQ(TagsOf(WavFile(InfoList(Chunk("INAM", "\xC3\xA4")))).title, u"\u00E4");
    EXPECT_EQ(TagsOf(WavFile(InfoList(Chunk("INAM", "\xE4")))).title, u"\u00E4");
}

TEST(Wav, ReadsAnId3TagInAChunkOfItsOwn) {
    const std::string tag =
        Id3Tag(3, Id3Frame(3, "TIT2", Id3Text("From ID3")) + Id3Frame(3, "APIC", Id3Picture(3, Jpeg(100))));
    for (const std::string_view name : { "id3 ", "ID3 " }) {
        const Tags tags = TagsOf(WavFile(ThreeInfos() + Chunk(name, tag)));
        EXPECT_EQ(tags.title, u"From ID3"); // it goes before the list
        EXPECT_EQ(tags.artist, u"Artist!");
        EXPECT_EQ(tags.cover, AsBytes(Jpeg(100)));
    }
}

TEST(Wav, AnotherListAndAnotherFormOfRiffAreNotRead) {
    EXPECT_EQ(TagsOf(WavFile(Chunk("LIST", Join({ "adtl", Chunk("INAM", "Title") })))), Tags());
    std::string file = WavFile(ThreeInfos());
    file.replace(8, 4, "AVI ");
    EXPECT_EQ(TagsOf(file), Tags());
}

TEST(Wav, WrongSizesDoNoHarm) {
    const std::string good = WavFile(ThreeInfos());
    for (const std::string_view name : { "RIFF", "fmt ", "data", "LIST", "INAM", "ISFT", "IART" })
        for (const std::uint32_t size : { 0u, 1u, 3u, 0x7FFFFFFFu, 0xFFFFFFFFu }) {
            std::string wrong = good;
            wrong.replace(wrong.find(name) + 4, 4, LittleValue(size, 4));
            const Tags tags = TagsOf(wrong);
            EXPECT_TRUE(std::u16string_view(u"Title").starts_with(tags.title.substr(0, 5)))
                << name << ' ' << size;
            EXPECT_TRUE(tags.album == u"" || tags.album == u"Album") << name << ' ' << size;
            // The size of the whole is not needed, and recorders leave it open.
            EXPECT_TRUE(name != "RIFF" || tags.title == u"Title") << size;
        }
}

TEST(Wav, EveryBeginningIsReadWithoutHarm) {
    ForEachBeginning(WavFile(ThreeInfos()), [](std::size_t length, const Tags& tags) {
        EXPECT_TRUE(std::u16string_view(u"Title").starts_with(tags.title)) << length;
        EXPECT_TRUE(std::u16string_view(u"Artist!").starts_with(tags.artist)) << length;
    });
}

} // namespace
} // namespace orvane::player
