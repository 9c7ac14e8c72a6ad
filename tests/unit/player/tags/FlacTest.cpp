#include "TagReading.h"

#include <gtest/gtest.h>

#include <string>

namespace orvane::player {
namespace {

using namespace tests;

constexpr std::uint8_t kStreamInfo = 0, kPadding = 1, kComment = 4, kPicture = 6;

const FlacBlock kInfoBlock = { kStreamInfo, std::string(34, 'i') };

std::string WithComments(std::initializer_list<std::string_view> comments) {
    return FlacFile({ kInfoBlock, { kComment, VorbisComments(comments) } });
}

TEST(Flac, ReadsCommentsWhateverTheirCase) {
    const Tags tags =
        TagsOf(WithComments({ "COMMENT=x", "Title=T\xC3\xA4nze", "ARTIST=A", "album=B" }) + "sound");
    EXPECT_EQ(tags.title, u"T\u00E4nze");
    EXPECT_EQ(tags.artist, u"A");
    EXPECT_EQ(tags.album, u"B");
}

TEST(Flac, TheFirstOfSeveralIsTakenAndNamesMustFitWhole) {
    const Tags tags =
        TagsOf(WithComments({ "TITLE2=no", "TITLE", "ALBUMARTIST=no", "TITLE=", "TITLE=one", "TITLE=two" }));
    EXPECT_EQ(tags.title, u"one");
    EXPECT_EQ(tags.album, u"");
    EXPECT_EQ(tags.artist, u"");
}

TEST(Flac, ReadsPicturesAndPrefersTheFrontCover) {
    const Tags tags = TagsOf(FlacFile({ kInfoBlock,
                                        { kPicture, FlacPicture(4, Jpeg(200, 'b')) },
                                        { kPadding, std::string(300, '\0') },
                                        { kPicture, FlacPicture(3, Png(200, 'f')) } }));
    EXPECT_EQ(tags.cover, AsBytes(Png(200, 'f')));
}

TEST(Flac, NothingIsReadBehindTheLastBlock) {
    std::string file = WithComments({ "ARTIST=A" });
    const std::string behind = VorbisComments({ "TITLE=T" });
    file += Join({ "\x84", BigValue(behind.size(), 3), behind });
    const Tags tags = TagsOf(file);
    EXPECT_EQ(tags.artist, u"A");
    EXPECT_EQ(tags.title, u"");
}

TEST(Flac, APictureThatClaimsMoreThanItsBlockHasIsLeftOut) {
    std::string picture = FlacPicture(3, Jpeg(100));
    for (const std::size_t sizeField : { std::size_t(4), std::size_t(18), picture.size() - 104 }) {
        std::string wrong = picture;
        wrong.replace(sizeField, 4, "\xFF\xFF\xFF\xFF");
        EXPECT_TRUE(TagsOf(FlacFile({ { kPicture, wrong } }) + std::string(5000, 'x')).cover.empty())
            << sizeField;
    }
}

TEST(Flac, TooLargeAPictureIsLeftOut) {
    const std::string largest = FlacPicture(3, Jpeg(kLargestCover)),
                      larger = FlacPicture(3, Jpeg(kLargestCover + 1));
    EXPECT_EQ(TagsOf(FlacFile({ { kPicture, largest } })).cover.size(), kLargestCover);
    EXPECT_TRUE(TagsOf(FlacFile({ { kPicture, larger } })).cover.empty());
}

TEST(Flac, WrongCountsAndLengthsOfCommentsDoNoHarm) {
    const std::string good = VorbisComments({ "TITLE=T", "ARTIST=A" });
    // The vendor's length, the count, the first comment's length.
    for (const std::size_t field : { 0u, 8u, 12u })
        for (const std::string_view value :
             { std::string_view("\xFF\xFF\xFF\xFF", 4), std::string_view("\xFF\xFF\0\0", 4) }) {
            std::string block = good;
            block.replace(field, 4, value);
            const Tags tags = TagsOf(FlacFile({ { kComment, block }, { kPadding, std::string(64, 'x') } }));
            // Too high a count changes nothing; a length that is too large swallows the rest of the block.
            EXPECT_EQ(tags.artist, field == 8 ? u"A" : u"") << field;
        }
}

TEST(Flac, AVeryLongCommentIsCutAndTheNextOneRead) {
    const std::string title = Join({ "TITLE=", std::string(100000, 'x') });
    const Tags tags = TagsOf(WithComments({ title, "ARTIST=A" }));
    EXPECT_EQ(tags.title, std::u16string(255, u'x'));
    EXPECT_EQ(tags.artist, u"A");
}

TEST(Flac, EveryBeginningIsReadWithoutHarm) {
    const std::string file = FlacFile({ kInfoBlock,
                                        { kComment, VorbisComments({ "TITLE=T", "ARTIST=Artist" }) },
                                        { kPicture, FlacPicture(3, Jpeg(60)) } });
    ForEachBeginning(file, [](std::size_t length, const Tags& tags) {
        EXPECT_TRUE(tags.title == u"" || tags.title == u"T") << length;
        EXPECT_TRUE(std::u16string_view(u"Artist").starts_with(tags.artist)) << length;
        EXPECT_TRUE(tags.cover.empty()) << length;
    });
}

} // namespace
} // namespace orvane::player
