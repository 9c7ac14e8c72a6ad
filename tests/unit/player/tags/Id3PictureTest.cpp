#include "TagReading.h"

#include <gtest/gtest.h>

#include <string>

namespace orvane::player {
namespace {

using namespace tests;

constexpr std::uint8_t kOther = 0, kIcon = 1, kFront = 3, kBack = 4, kLeaflet = 5;

std::string Picture(std::uint8_t kind, std::string_view image) {
    return Id3Frame(3, "APIC", Id3Picture(kind, image));
}

Bytes CoverOf(std::string_view body, int version = 3) {
    return TagsOf(Id3Tag(version, body)).cover;
}

TEST(Id3Picture, ReadsAPictureOfEachVersion) {
    EXPECT_EQ(CoverOf(Picture(kFront, Jpeg(500))), AsBytes(Jpeg(500)));
    EXPECT_EQ(CoverOf(Id3Frame(4, "APIC", Id3Picture(kFront, Png(500))), 4), AsBytes(Png(500)));
    // Version 2 names the type in three characters.
    const std::string data = Join({ { "\0JPG", 4 }, "\x03", { "cover\0", 6 }, Jpeg(500) });
    EXPECT_EQ(CoverOf(Id3Frame(2, "PIC", data), 2), AsBytes(Jpeg(500)));
}

TEST(Id3Picture, ADescriptionInUtf16EndsWithTwoZeros) {
    // U+0100 and U+0062: a zero byte on either side of the seam, which ends nothing.
    const std::string_view description("\xFF\xFE\0\x01\x62\0\0\0", 8);
    const std::string data = Join({ { "\x01image/png\0", 11 }, "\x03", description, Png(100) });
    EXPECT_EQ(CoverOf(Id3Frame(3, "APIC", data)), AsBytes(Png(100)));
}

TEST(Id3Picture, TheFrontCoverIsTakenWhereverItStands) {
    const std::string front = Picture(kFront, Jpeg(100, 'f')), back = Picture(kBack, Jpeg(100, 'b'));
    const std::string other = Picture(kOther, Jpeg(100, 'o'));
    for (const auto& body : { Join({ front, back, other }), Join({ back, front, other }),
                              Join({ back, other, front }), Join({ other, front, back }) })
        EXPECT_EQ(CoverOf(body), AsBytes(Jpeg(100, 'f')));
}

TEST(Id3Picture, WithoutAFrontCoverOneOfNoKindIsTakenAndThenTheFirst) {
    const std::string back = Picture(kBack, Jpeg(100, 'b')), leaflet = Picture(kLeaflet, Jpeg(100, 'l'));
    EXPECT_EQ(CoverOf(Join({ back, Picture(kOther, Jpeg(100, 'o')) })), AsBytes(Jpeg(100, 'o')));
    EXPECT_EQ(CoverOf(Join({ leaflet, back })), AsBytes(Jpeg(100, 'l')));
}

TEST(Id3Picture, OfTwoFrontCoversTheFirstIsTaken) {
    EXPECT_EQ(CoverOf(Join({ Picture(kFront, Jpeg(100, '1')), Picture(kFront, Jpeg(100, '2')) })),
              AsBytes(Jpeg(100, '1')));
}

TEST(Id3Picture, AnIconOfAFileIsNoCover) {
    EXPECT_EQ(CoverOf(Picture(kIcon, Png(100))), Bytes());
}

TEST(Id3Picture, WhatIsNeitherJpegNorPngGivesWayToWhatIs) {
    EXPECT_EQ(CoverOf(Picture(kFront, "GIF89a and so on")), Bytes());
    EXPECT_EQ(CoverOf(Picture(kFront, "http://example.org/cover.jpg")), Bytes());
    EXPECT_EQ(CoverOf(Join({ Picture(kFront, "GIF89a"), Picture(kBack, Png(100)) })), AsBytes(Png(100)));
}

TEST(Id3Picture, TheLargestCoverIsTakenAndALargerOneIsNot) {
    EXPECT_EQ(CoverOf(Picture(kFront, Jpeg(kLargestCover))).size(), kLargestCover);
    EXPECT_EQ(CoverOf(Picture(kFront, Jpeg(kLargestCover + 1))), Bytes());
    EXPECT_EQ(CoverOf(Picture(kFront, Jpeg(kLargestCover + 100000))), Bytes());
    EXPECT_EQ(CoverOf(Join({ Picture(kFront, Jpeg(kLargestCover + 1)), Picture(kBack, Png(100)) })),
              AsBytes(Png(100)));
}

TEST(Id3Picture, UnsynchronisationIsUndoneInPictures) {
    const std::string_view stored("\xFF\0\xD8\xFF\0\xE0 and so on", 16);
    const std::string frame = Id3Frame(4, "APIC", Id3Picture(kFront, stored), 0x02);
    EXPECT_EQ(CoverOf(frame, 4), AsBytes("\xFF\xD8\xFF\xE0 and so on"));
}

TEST(Id3Picture, FieldsThatNeverEndGiveNoCover) {
    const std::string_view cases[] = {
        "",
        { "\0", 1 },
        { "\0image/jpeg", 11 },
        { "\0image/jpeg\0", 12 },
        { "\0image/jpeg\0\x03", 13 },
        { "\0image/jpeg\0\x03 no end", 20 },
        { "\0image/jpeg\0\x03\0", 14 },
    };
    for (const auto data : cases) EXPECT_EQ(CoverOf(Id3Frame(3, "APIC", data)), Bytes()) << data.size();
    EXPECT_EQ(CoverOf(Id3Frame(2, "PIC", std::string_view("\0J", 2)), 2), Bytes());
}

TEST(Id3Picture, EveryBeginningIsReadWithoutHarm) {
    ForEachBeginning(Id3Tag(3, Picture(kFront, Jpeg(100))), [](std::size_t length, const Tags& tags) {
        EXPECT_TRUE(tags.cover.empty()) << length; // a frame that is cut off is left out
    });
}

} // namespace
} // namespace orvane::player
