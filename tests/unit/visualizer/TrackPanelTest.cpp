#include "records/PulseEvents.h"
#include "unit/render/recording/BitmapFileBytes.h"
#include "unit/visualizer/VisualizerFixture.h"

#include <algorithm>

namespace orvane::visualizer {
namespace {

// A file of two pixels side by side, red and blue.
std::vector<std::byte> RedAndBlue() {
    return render::BitmapFileBytes(2, 1, 24, { 0, 0, 255, 255, 0, 0, 0, 0 });
}

class TrackPanel : public VisualizerFixture {
protected:
    void TakeArtwork() {
        const auto file = RedAndBlue();
        mVisualizer->SetArtwork(file.data(), file.size(), 13);
    }

    // Of the track text at so many seconds behind the first frame; -1 if it isn't drawn.
    float AlphaAt(double elapsed) {
        FrameAt(elapsed);
        const auto* const draw = DrawOf(mVisualizer->mTrackTextTexture);
        return draw ? draw->tint[3] : -1.0f;
    }
};

TEST_F(TrackPanel, ATrackChangeAt0IsFullUntil10HalfAt15AndGoneBehind20) {
    StartAndDraw();
    PlayTrack();
    EXPECT_EQ(mVisualizer->mTrackChangeTime, 0.0);
    EXPECT_EQ(AlphaAt(0), 1.0f);
    EXPECT_EQ(AlphaAt(10), 1.0f);
    EXPECT_NEAR(AlphaAt(15), 0.5f, 1e-6);
    EXPECT_NEAR(AlphaAt(20), 0.0f, 1e-6);
    EXPECT_NE(DrawOf(mVisualizer->mTrackTextTexture), nullptr);
    EXPECT_EQ(AlphaAt(20.125), -1.0f);
    mVisualizer->RestartTrackInfoFade();
    EXPECT_EQ(AlphaAt(30), 1.0f);
}

TEST_F(TrackPanel, WithTrackInfoAlwaysSetItNeverFades) {
    StartAndDraw();
    PlayTrack();
    mVisualizer->mTrackInfoAlways = true;
    EXPECT_EQ(AlphaAt(15), 1.0f);
    EXPECT_EQ(AlphaAt(3600), 1.0f);
}

TEST_F(TrackPanel, TheTextStandsBesideTheMiddleOfTheArtwork) {
    StartAndDraw(1000, 500);
    PlayTrack();
    TakeArtwork();
    FrameAt(1);
    const auto* const artwork = DrawOf(mVisualizer->mArtworkTexture);
    const auto* const text = DrawOf(mVisualizer->mTrackTextTexture);
    ASSERT_TRUE(artwork && text);
    ExpectRect(DestinationOf(*artwork), { 0.02, 0.04, 0.064, 0.128 });
    // x: 20 + 74. y: 32 - 31 + 20, of a text 64 pixels high.
    ExpectRect(DestinationOf(*text), { 0.094, 0.042, 0.512, 0.128 });
    EXPECT_LT(artwork, text) << "drawn first";
    EXPECT_EQ(artwork->tint, (std::array<float, 4>{ 1, 1, 1, 1 }));
}

TEST_F(TrackPanel, WithoutArtworkTheTextStandsAtTheLeftMargin) {
    StartAndDraw(500, 1000);
    PlayTrack();
    FrameAt(1);
    const auto* const text = DrawOf(mVisualizer->mTrackTextTexture);
    ASSERT_NE(text, nullptr);
    ExpectRect(DestinationOf(*text), { 0.04, 0.02, 1.024, 0.064 });
}

TEST_F(TrackPanel, ArtworkThatCantBeDecodedLeavesNoneAndTheTextMovesToTheLeftMargin) {
    StartAndDraw(1000, 500);
    PlayTrack();
    TakeArtwork();
    mVisualizer->SetArtwork("no image", 8, 13);
    EXPECT_EQ(mVisualizer->mArtworkTexture, nullptr);
    FrameAt(1);
    const auto* const text = DrawOf(mVisualizer->mTrackTextTexture);
    ASSERT_NE(text, nullptr);
    ExpectRect(DestinationOf(*text), { 0.02, 0.04, 0.512, 0.128 });
}

TEST_F(TrackPanel, AnArtworkAloneIsShown) {
    StartAndDraw();
    TakeArtwork();
    FrameAt(1);
    EXPECT_NE(DrawOf(mVisualizer->mArtworkTexture), nullptr);
}

TEST_F(TrackPanel, IsLaidOutByTheDisplayScale) {
    StartAndDraw(1000, 500);
    PlayTrack();
    TakeArtwork();
    mVisualizer->mDisplayScale = 1.5;
    FrameAt(1);
    // Margin 30, side 96; x 30 + 111; y 48 - 31 + 30.
    ExpectRect(DestinationOf(*DrawOf(mVisualizer->mArtworkTexture)), { 0.03, 0.06, 0.096, 0.192 });
    ExpectRect(DestinationOf(*DrawOf(mVisualizer->mTrackTextTexture)), { 0.141, 0.094, 0.512, 0.128 });
}

TEST_F(TrackPanel, IsDrawnThroughWhateverProjectionTheFrameLeft) {
    StartAndDraw();
    PlayTrack();
    mVisualizer->ToggleHelpDisplay();
    Recorder().ForgetRecords();
    Recorder().PushOrthographicProjection(4, 2);
    Recorder().PushModelView();
    Recorder().Translate(1, 2, 3);
    mVisualizer->PlatformVisualizer::Draw(0);
    const auto* const text = DrawOf(mVisualizer->mTrackTextTexture);
    const auto* const help = DrawOf(mVisualizer->mHelpTexture);
    ASSERT_TRUE(text && help);
    EXPECT_EQ(text->matrix, render::OrthographicMatrix(4, 2)) << "identity modelview, the frame's projection";
    EXPECT_EQ(help->matrix, render::kIdentityMatrix);
    EXPECT_EQ(Recorder().ModelViewDepth(), 2u);
    EXPECT_EQ(Recorder().ProjectionDepth(), 2u);
}

TEST_F(TrackPanel, TellsWhenItWasDrawnAndOnlyThen) {
    StartAndDraw();
    const auto told = [&] { return std::ranges::count(mVisualizer->mCalls, "TrackInfoDrawn"); };
    FrameAt(1);
    EXPECT_EQ(told(), 0) << "no texture";
    PlayTrack();
    FrameAt(2);
    EXPECT_EQ(told(), 1);
    FrameAt(50);
    EXPECT_EQ(told(), 1) << "faded";
}

TEST_F(TrackPanel, AnEmptyViewIsNoError) {
    StartAndDraw(0, 0);
    PlayTrack();
    TakeArtwork();
    mVisualizer->ToggleHelpDisplay();
    mVisualizer->ToggleFPSDisplay();
    mVisualizer->ToggleConfigDisplay();
    FrameAt(1);
    EXPECT_NE(DrawOf(mVisualizer->mTrackTextTexture), nullptr);
}

TEST_F(TrackPanel, PlaybackCopiesTheTrackAndItsFormatAndTellsThePlayer) {
    Start();
    records::trackInfoDirty = false;
    auto track = records::MakeTrackParam();
    track->mInfoWords1[0] = 11;
    track->mTrackName.Assign(u"Name");
    track->mInfoLong = 12;
    track->mTrackStartA = -1;
    records::AudioFormatBlock format{};
    format.word0 = 14;
    format.word8 = 15;
    mVisualizer->StartExternalVisualPlayback(track.get(), &format, 16, 17);
    track.reset();
    EXPECT_EQ(mVisualizer->mTrack.mInfoWords1[0], 11u);
    EXPECT_EQ(mVisualizer->mTrack.mTrackName.View(), u"Name");
    EXPECT_EQ(mVisualizer->mTrack.mInfoLong, 12u);
    EXPECT_EQ(mVisualizer->mTrack.mTrackStartA, 0) << "behind what is copied";
    EXPECT_EQ(mVisualizer->mAudioFormat.word0, 14u);
    EXPECT_EQ(mVisualizer->mAudioFormat.word8, 15u);
    EXPECT_EQ(mVisualizer->mTrackStartA, 16u);
    EXPECT_EQ(mVisualizer->mTrackStartB, 17u);
    EXPECT_NE(mVisualizer->mTrackTextTexture, nullptr);
    EXPECT_TRUE(records::trackInfoDirty);
    records::trackInfoDirty = false;
}

TEST_F(TrackPanel, ClearTrackStateKeepsTheTexturesIfAskedTo) {
    Start();
    PlayTrack();
    TakeArtwork();
    EXPECT_EQ(mVisualizer->ClearTrackState(true), 0u);
    EXPECT_NE(mVisualizer->mTrackTextTexture, nullptr);
    EXPECT_NE(mVisualizer->mArtworkTexture, nullptr);
    EXPECT_EQ(mVisualizer->mTrackStartA, 0u);
    EXPECT_EQ(mVisualizer->mTrackStartB, 0u);
    EXPECT_EQ(mVisualizer->ClearTrackState(false), 0u);
    EXPECT_EQ(mVisualizer->mTrackTextTexture, nullptr);
    EXPECT_EQ(mVisualizer->mArtworkTexture, nullptr);
}

} // namespace
} // namespace orvane::visualizer
