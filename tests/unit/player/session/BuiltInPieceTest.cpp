#include "player/session/BuiltInPiece.h"

#include <gtest/gtest.h>

#include <vector>

namespace orvane::player {
namespace {

std::vector<StereoFrame> Read(ISoundSource& source, std::size_t count) {
    std::vector<StereoFrame> frames(count);
    frames.resize(source.Read(frames));
    return frames;
}

TEST(BuiltInPiece, IsASongWithATitle) {
    const Track track = OpenBuiltInPiece();
    ASSERT_TRUE(track.source);
    EXPECT_EQ(track.texts, (TrackTexts{ u"The built-in piece", u"Orvane", u"" }));
    EXPECT_EQ(track.source->Rate(), 48000u);
    EXPECT_GT(track.source->Length(), 48000 * 60);
}

TEST(BuiltInPiece, SoundsTheSameWhereverItIsEntered) {
    const Track track = OpenBuiltInPiece();
    const auto first = Read(*track.source, 500);
    (void)Read(*track.source, 9500);
    const auto later = Read(*track.source, 500); // from 10,000 on
    ASSERT_TRUE(track.source->Seek(0));
    EXPECT_EQ(Read(*track.source, 500), first);
    ASSERT_TRUE(track.source->Seek(10000));
    EXPECT_EQ(Read(*track.source, 500), later);
    ASSERT_TRUE(track.source->Seek(10100));
    EXPECT_EQ(Read(*track.source, 400), std::vector<StereoFrame>(later.begin() + 100, later.end()));
}

TEST(BuiltInPiece, EndsBehindItsLastFrame) {
    const Track track = OpenBuiltInPiece();
    ASSERT_TRUE(track.source->Seek(track.source->Length() + 5));
    EXPECT_EQ(Read(*track.source, 10).size(), 0u);
}

} // namespace
} // namespace orvane::player
