#include "visualizer/PlatformVisualizer.h"

#include "unit/render/recording/BitmapFileBytes.h"
#include "unit/visualizer/VisualizerFixture.h"
#include "visualizer/D3DTextureBlitter.h"
#include "visualizer/D3DTextureCreator.h"

#include <vector>

namespace orvane::visualizer {
namespace {

constexpr std::uint32_t kOpaqueRed = 0xFFFF0000, kOpaqueBlue = 0xFF0000FF; // alpha, red, green, blue

std::vector<std::byte> RedAndBlue() {
    return render::BitmapFileBytes(2, 1, 24, { 0, 0, 255, 255, 0, 0, 0, 0 });
}

class TrackText : public VisualizerFixture {
protected:
    const render::RecordedImage& Image() { return *Recorder().FindResource("Track Info")->image; }
};

TEST_F(TrackText, HasAlbumArtistAndNameInThreeRowsFrom2At96Dpi) {
    Start();
    PlayTrack(u"Name", u"Artist", u"Album");
    ASSERT_EQ(Drawn().texts.size(), 3u);
    const char16_t* const expected[] = { u"Album", u"Artist", u"Name" };
    for (std::size_t row = 0; row < 3; ++row) {
        const auto& text = Drawn().texts[row];
        EXPECT_EQ(text.text, expected[row]);
        EXPECT_EQ(text.rect, (Rect{ 0, 2 + 20.0 * double(row), 512, 20 }));
        EXPECT_EQ(text.fontSize, 12.0f);
        EXPECT_EQ(text.alignment, render::kTextAlignmentLeading);
        EXPECT_EQ(text.colour, (std::array<float, 4>{ 1, 1, 1, 1 }));
    }
    EXPECT_EQ(Image().width, 512u);
    EXPECT_EQ(Image().height, 64u);
    EXPECT_EQ(Image().pixelFormat, render::kPixelFormat_BGRA8);
    EXPECT_FALSE(Recorder().FindResource("Track Info")->dynamic);
    EXPECT_FALSE(IsBlank(Image()));
    EXPECT_EQ(Drawn().liveSurfaces, 0);
}

TEST_F(TrackText, ATrackWithEmptyStringsGivesBlankLinesAndNotANullTexture) {
    Start();
    PlayTrack(u"", u"", u"");
    ASSERT_NE(mVisualizer->mTrackTextTexture, nullptr);
    EXPECT_TRUE(IsBlank(Image()));
    EXPECT_EQ(Image().width, 512u);
}

TEST_F(TrackText, At120DpiTheFirstRowWrapsAndTheTextIsBlank) {
    const tests::SetDpi large(120);
    Start();
    PlayTrack();
    ASSERT_NE(mVisualizer->mTrackTextTexture, nullptr);
    EXPECT_TRUE(IsBlank(Image()));
    ASSERT_EQ(Drawn().texts.size(), 3u);
    // 64 - 75 is 2^64 - 11, and half of that 2^63 - 6.
    EXPECT_EQ(Drawn().texts[0].rect, (Rect{ 0, 9223372036854775802.0, 512, 25 }));
}

// A text size of 13 from 100 DPI on: rows of 22 pixels, three of them 66.
TEST_F(TrackText, TheRowsNoLongerFitFromATextSizeOf13On) {
    {
        const tests::SetDpi small(99);
        Start();
        PlayTrack();
        EXPECT_FALSE(IsBlank(Image()));
    }
    mVisualizer.reset();
    const tests::SetDpi large(100);
    Start();
    PlayTrack();
    EXPECT_TRUE(IsBlank(Image()));
}

TEST_F(TrackText, ABlockThatClaimsMoreUnitsThanItHasEndsAtItsEnd) {
    Start();
    const auto track = records::MakeTrackParam();
    track->mTrackAlbum.Assign(std::u16string(255, u'a'));
    track->mTrackAlbum.count = 60000;
    mVisualizer->StartExternalVisualPlayback(track.get(), &track->mAudioFormat, 0, 0);
    EXPECT_EQ(Drawn().texts[0].text.size(), 255u);
}

TEST_F(TrackText, AFailedSurfaceOrFormatOrTextureLeavesNoTextureAndReleasesTheOldOne) {
    Start();
    const auto expectNone = [&](const char* what) {
        EXPECT_EQ(mVisualizer->mTrackTextTexture, nullptr) << what;
        SitesInForce().refuseSurface = SitesInForce().refuseTextFormat = false;
        Recorder().Refuse(render::Refusal::Texture, false);
        PlayTrack();
        EXPECT_NE(mVisualizer->mTrackTextTexture, nullptr);
    };
    PlayTrack();
    SitesInForce().refuseSurface = true;
    PlayTrack();
    expectNone("surface");
    SitesInForce().refuseTextFormat = true;
    PlayTrack();
    expectNone("format");
    Recorder().Refuse(render::Refusal::Texture);
    PlayTrack();
    expectNone("texture");
}

class Artwork : public VisualizerFixture {
protected:
    void Take(const std::vector<std::byte>& file) { mVisualizer->SetArtwork(file.data(), file.size(), 13); }
};

TEST_F(Artwork, FillsTheSquareWithoutRegardToItsProportions) {
    Start();
    Take(RedAndBlue());
    ASSERT_NE(mVisualizer->mArtworkTexture, nullptr);
    const auto resource = Recorder().FindResource("Track Info");
    const auto& image = *resource->image;
    EXPECT_EQ(image.width, 64u);
    EXPECT_EQ(image.height, 64u);
    EXPECT_FALSE(resource->dynamic);
    for (const std::uint32_t y : { 0u, 31u, 63u }) {
        EXPECT_EQ(image.Texel(4, y), kOpaqueRed) << y;
        EXPECT_EQ(image.Texel(60, y), kOpaqueBlue) << y;
    }
    ASSERT_EQ(Drawn().images.size(), 1u);
    EXPECT_EQ(Drawn().images[0].rect, (Rect{ 0, 0, 64, 64 }));
    EXPECT_EQ(Drawn().images[0].opacity, 1.0f);
}

TEST_F(Artwork, ASecondOneReplacesTheFirstWhichIsReleasedFirst) {
    Start();
    Take(RedAndBlue());
    const auto first = Recorder().FindResource("Track Info");
    EXPECT_TRUE(first->alive);
    const std::size_t alive = Recorder().LiveResources();
    Take(RedAndBlue());
    EXPECT_FALSE(first->alive);
    EXPECT_EQ(Recorder().LiveResources(), alive);
    EXPECT_TRUE(Recorder().FindResource("Track Info")->alive);
    SitesInForce().refuseSurface = true;
    Take(RedAndBlue());
    EXPECT_EQ(Recorder().LiveResources(), alive - 1) << "released before anything else is tried";
}

TEST_F(Artwork, DataThatCantBeDecodedLeavesNone) {
    Start();
    Take(RedAndBlue());
    mVisualizer->SetArtwork(nullptr, 0, 0);
    EXPECT_EQ(mVisualizer->mArtworkTexture, nullptr);
    Take(RedAndBlue());
    auto cut = RedAndBlue();
    cut.resize(20);
    Take(cut);
    EXPECT_EQ(mVisualizer->mArtworkTexture, nullptr);
    EXPECT_EQ(Drawn().liveSurfaces, 0);
}

class DrawTextLines : public VisualizerFixture {
protected:
    DrawTextLines() {
        Start();
        SitesInForce().drawing->texts.clear();
    }

    void Draw(const TextColumn& first, const TextColumn& second, bool rightAligned = false) {
        mVisualizer->DrawTextLines(first, 3, second, 40, 5, 12, 18, mVisualizer->mConfigTexture.get(), false,
                                   false, rightAligned);
    }

    std::shared_ptr<render::RecordedImage> Image() {
        return Recorder().FindResource("Config texture")->image;
    }
};

TEST_F(DrawTextLines, ColumnsOfEqualLengthAreDrawnRowByRow) {
    Draw({ u"a", u"b" }, { u"one", u"two" });
    ASSERT_EQ(Drawn().texts.size(), 4u);
    EXPECT_EQ(Drawn().texts[0].text, u"a");
    EXPECT_EQ(Drawn().texts[0].rect, (Rect{ 3, 5, 37, 18 }));
    EXPECT_EQ(Drawn().texts[1].text, u"one");
    EXPECT_EQ(Drawn().texts[1].rect, (Rect{ 40, 5, 160, 18 }));
    EXPECT_EQ(Drawn().texts[2].rect, (Rect{ 3, 23, 37, 18 }));
    EXPECT_EQ(Drawn().texts[3].text, u"two");
    EXPECT_EQ(Drawn().texts[3].alignment, render::kTextAlignmentLeading);
}

TEST_F(DrawTextLines, ListsOfUnequalLengthDrawTheFirstAloneInOneColumn) {
    Draw({ u"a", u"b" }, { u"one" });
    ASSERT_EQ(Drawn().texts.size(), 2u);
    EXPECT_EQ(Drawn().texts[0].rect, (Rect{ 3, 5, 197, 18 }));
    EXPECT_EQ(Drawn().texts[1].text, u"b");
    EXPECT_EQ(Drawn().texts[1].rect, (Rect{ 3, 23, 197, 18 }));
    SitesInForce().drawing->texts.clear();
    Draw({}, { u"one" });
    EXPECT_TRUE(Drawn().texts.empty());
}

TEST_F(DrawTextLines, RightAlignedTextIsTrailing) {
    Draw({ u"a" }, {}, true);
    EXPECT_EQ(Drawn().texts[0].alignment, render::kTextAlignmentTrailing);
}

TEST_F(DrawTextLines, TheOldContentsAreReplacedAsAWhole) {
    Draw({ u"a" }, {});
    EXPECT_FALSE(IsBlank(*Image()));
    Draw({}, {});
    EXPECT_TRUE(IsBlank(*Image()));
}

TEST_F(DrawTextLines, AFailedSurfaceOrFormatLeavesTheTextureAsItIs) {
    Draw({ u"a" }, {});
    const std::uint64_t before = Image()->Digest();
    SitesInForce().refuseSurface = true;
    Draw({ u"bb" }, {});
    SitesInForce().refuseSurface = false;
    SitesInForce().refuseTextFormat = true;
    Draw({ u"bb" }, {});
    EXPECT_EQ(Image()->Digest(), before);
    EXPECT_NE(mVisualizer->mConfigTexture, nullptr);
}

TEST_F(DrawTextLines, ANullTextureEndsTheOperation) {
    const int surfaces = Drawn().surfaces;
    mVisualizer->DrawTextLines({ u"a" }, 0, {}, 0, 0, 12, 18, nullptr, false, false, false);
    EXPECT_EQ(Drawn().surfaces, surfaces);
}

TEST(PlatformVisualizer, TheScaleFactorIs1) {
    tests::TestVisualizer v(0);
    EXPECT_EQ(v.GetScaleFactor(), 1.0);
}

TEST(D3DTextureCreator, WithoutARendererNoTextureComes) {
    std::uint32_t pixel = 0;
    D3DTextureCreator creator(nullptr);
    creator.Process(&pixel, 1, 1, 4, 4);
    EXPECT_EQ(creator.Take(), nullptr);
}

TEST(D3DTextureBlitter, ANullTargetStaysUnwritten) {
    std::uint32_t pixel = 0;
    D3DTextureBlitter blitter(nullptr);
    blitter.Process(&pixel, 1, 1, 4, 4);
    EXPECT_EQ(pixel, 0u);
}

TEST(PlatformVisualizerDelegate, ItsReservedOperationReturns0) {
    tests::TestVisualizerDelegate delegate({});
    EXPECT_EQ(delegate.Reserved1(), 0u);
}

} // namespace
} // namespace orvane::visualizer
