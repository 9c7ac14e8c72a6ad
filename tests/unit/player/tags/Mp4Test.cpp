#include "TagReading.h"

#include <gtest/gtest.h>

#include <string>

namespace orvane::player {
namespace {

using namespace tests;

constexpr std::uint32_t kUtf8 = 1, kUtf16 = 2, kJpeg = 13, kPng = 14, kInteger = 21;

std::string ThreeItems() {
    return Join({ Mp4Item("\xA9nam", kUtf8, "T\xC3\xA4nze"),
                  Mp4Item("\xA9"
                          "ART",
                          kUtf8, "Artist"),
                  Mp4Item("\xA9"
                          "alb",
                          kUtf8, "Album") });
}

void ExpectThreeItems(const Tags& tags) {
    EXPECT_EQ(tags.title, u"T\u00E4nze");
    EXPECT_EQ(tags.artist, u"Artist");
    EXPECT_EQ(tags.album, u"Album");
}

TEST(Mp4, ReadsTheItemsOfTheTagList) {
    const Tags tags =
        TagsOf(Mp4File(ThreeItems() + Mp4Item("trkn", kInteger, "1234") + Mp4Item("covr", kJpeg, Jpeg(300))));
    ExpectThreeItems(tags);
    EXPECT_EQ(tags.cover, AsBytes(Jpeg(300)));
}

TEST(Mp4, ReadsUtf16AndNoTextOfAnotherType) {
    EXPECT_EQ(TagsOf(Mp4File(Mp4Item("\xA9nam", kUtf16, { "\0T\x4E\x16", 4 }))).title, u"T\u4E16");
    EXPECT_EQ(TagsOf(Mp4File(Mp4Item("\xA9nam", kInteger, "1234"))).title, u"");
}

TEST(Mp4, TheFirstOfSeveralCoversIsTheFront) {
    const auto data = [](std::string_view image) {
        return Box("data", Join({ BigValue(kPng, 4), BigValue(0, 4), image }));
    };
    const std::string two = Box("covr", data(Png(100, '1')) + data(Png(100, '2')));
    EXPECT_EQ(TagsOf(Mp4File(two)).cover, AsBytes(Png(100, '1')));
}

TEST(Mp4, TooLargeACoverIsLeftOut) {
    EXPECT_EQ(TagsOf(Mp4File(Mp4Item("covr", kJpeg, Jpeg(kLargestCover)))).cover.size(), kLargestCover);
    EXPECT_TRUE(TagsOf(Mp4File(Mp4Item("covr", kJpeg, Jpeg(kLargestCover + 1)))).cover.empty());
}

std::string Tree(std::string_view meta) {
    return Join({ Box("ftyp", "M4A "), Box("moov", Box("udta", meta)) });
}

TEST(Mp4, AMetaBoxOfTheOlderKindHasNoVersion) {
    const std::string handler = Box("hdlr", std::string(25, '\0'));
    ExpectThreeItems(TagsOf(Tree(Box("meta", handler + Box("ilst", ThreeItems())))));
}

TEST(Mp4, ASizeOfEightBytesAndOneToTheEndAreUnderstood) {
    const std::string ilst =
        Join({ BigValue(1, 4), "ilst", BigValue(16 + ThreeItems().size(), 8), ThreeItems() });
    ExpectThreeItems(TagsOf(Tree(Box("meta", BigValue(0, 4) + ilst))));
    const std::string open = Join({ BigValue(0, 4), "ilst", ThreeItems() });
    ExpectThreeItems(TagsOf(Tree(Box("meta", BigValue(0, 4) + open))));
}

TEST(Mp4, WrongSizesDoNoHarm) {
    const std::string good = Mp4File(ThreeItems());
    for (const std::string_view name : { "mdat", "moov", "mvhd", "udta", "meta", "hdlr", "ilst", "data" })
        for (const std::uint32_t size : { 1u, 2u, 7u, 8u, 9u, 0x7FFFFFFFu, 0xFFFFFFFFu }) {
            std::string wrong = good;
            const std::size_t at = wrong.find(name) - 4;
            wrong.replace(at, 4, BigValue(size, 4));
            const Tags tags = TagsOf(wrong);
            EXPECT_TRUE(tags.title == u"" || tags.title == u"T\u00E4nze") << name << ' ' << size;
        }
}

TEST(Mp4, ASizeOfEightBytesThatIsTooSmallOrTooLargeDoesNoHarm) {
    for (const std::uint64_t size : { std::uint64_t(0), std::uint64_t(15), ~std::uint64_t(0) }) {
        const std::string moov = Join({ BigValue(1, 4), "moov", BigValue(size, 8), "rest" });
        EXPECT_EQ(TagsOf(Box("ftyp", "M4A ") + moov), Tags()) << size;
    }
}

TEST(Mp4, BoxesThatAreNestedTooDeepAreNotFollowed) {
    std::string nest = ThreeItems();
    for (int depth = 0; depth < 100; ++depth)
        for (const std::string_view name : { "ilst", "meta", "udta", "moov" }) nest = Box(name, nest);
    EXPECT_EQ(TagsOf(Box("ftyp", "M4A ") + nest), Tags());
}

TEST(Mp4, AThousandBoxesInFrontChangeNothing) {
    std::string boxes;
    for (int i = 0; i < 1000; ++i) boxes += Box("moof", "x");
    ExpectThreeItems(TagsOf(Box("ftyp", "M4A ") + boxes + Mp4File(ThreeItems())));
}

TEST(Mp4, EveryBeginningIsReadWithoutHarm) {
    ForEachBeginning(Mp4File(ThreeItems() + Mp4Item("covr", kJpeg, Jpeg(50))),
                     [](std::size_t length, const Tags& tags) {
                         EXPECT_TRUE(std::u16string_view(u"Album").starts_with(tags.album)) << length;
                         EXPECT_LE(tags.cover.size(), 50u) << length;
                     });
}

} // namespace
} // namespace orvane::player
