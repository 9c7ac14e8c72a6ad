// The framework on what the product draws with: a real window, Direct3D, Direct2D, and the pixels of it.
#include "plugins/PlugInMemory.h"
#include "support/SetClock.h"
#include "support/SetDpi.h"
#include "support/TestVisualPlugIn.h"
#include "support/direct3d/Picture.h"
#include "support/windows/TestWindow.h"
#include "unit/render/recording/BitmapFileBytes.h"
#include "visualizer/ConstructionSites.h"

#include <gtest/gtest.h>

namespace orvane::visualizer {
namespace {

using tests::Area;
using tests::Colour;
using tests::Picture;

constexpr int kWidth = 600, kHeight = 300;

TEST(ProductSites, NoWindowGivesNoRenderer) {
    EXPECT_EQ(MakeRenderer(kWidth, kHeight, {}), nullptr);
}

TEST(ProductSites, ASurfaceOfNoSizeIsNone) {
    EXPECT_EQ(MakeSurface(0, 0), nullptr);
    EXPECT_NE(MakeSurface(512, 64), nullptr);
    EXPECT_NE(MakeTextFormat(12), nullptr);
}

class OnProductSites : public testing::Test {
protected:
    void SetUp() override {
        const records::LocalizedStrings help = { records::MakeLocalizedString("Shows these lines", "H") };
        ASSERT_TRUE(mVisualizer.Start(mWindow.AsNative(), help));
        mVisualizer.StepFrameClock();
    }

    // The panels on black, as they stand before the frame is presented.
    Picture Panels() {
        constexpr float kBlack[4] = { 0, 0, 0, 1 };
        mVisualizer.Renderer()->BeginFrame();
        mVisualizer.Renderer()->Clear(kBlack);
        mVisualizer.PlatformVisualizer::Draw(0);
        return Picture(static_cast<render::Direct3DRenderer&>(*mVisualizer.Renderer()));
    }

    void PlayTrack() {
        const auto track = records::MakeTrackParam();
        track->mTrackName.Assign(u"Name of the track");
        track->mTrackAlbum.Assign(u"Album");
        mVisualizer.StartExternalVisualPlayback(track.get(), &track->mAudioFormat, 0, 0);
    }

    tests::SetClock mClock{ 100 };
    tests::SetDpi mDpi{ 96 };
    tests::TestWindow mWindow{ kWidth, kHeight, tests::WindowPlace::Child };
    tests::TestVisualizer mVisualizer{ 100 };
};

TEST_F(OnProductSites, ArtworkFillsItsSquareInTheLowerLeftCorner) {
    const auto file = render::BitmapFileBytes(2, 1, 24, { 0, 0, 255, 255, 0, 0, 0, 0 });
    mVisualizer.SetArtwork(file.data(), file.size(), 13);
    const Picture picture = Panels();
    // 20 pixels from the left and from below, 64 on a side.
    EXPECT_EQ(picture.DrawnArea(), (Area{ 20, kHeight - 84, 84, kHeight - 20 }));
    EXPECT_EQ(picture.At(24, kHeight - 50), (Colour{ 255, 0, 0, 255 }));
    EXPECT_EQ(picture.At(80, kHeight - 50), (Colour{ 0, 0, 255, 255 }));
}

TEST_F(OnProductSites, TheTrackTextStandsInItsThreeRows) {
    PlayTrack();
    const Area drawn = Panels().DrawnArea();
    ASSERT_NE(drawn, (Area{})) << "no text at all";
    // The texture's lower left corner is at (20, 20); its first row begins 2 pixels and its third 42 below its
    // upper edge, 84 pixels above the view's lower one. Artist is empty.
    EXPECT_GE(drawn.left, 20);
    EXPECT_LT(drawn.left, 26);
    EXPECT_GE(drawn.top, kHeight - 84 + 2);
    EXPECT_LT(drawn.top, kHeight - 84 + 12);
    EXPECT_GT(drawn.bottom, kHeight - 84 + 42);
    EXPECT_LE(drawn.bottom, kHeight - 20);
    EXPECT_LT(drawn.right, 200);
}

TEST_F(OnProductSites, At120DpiTheTrackTextIsBlank) {
    const tests::SetDpi large(120);
    PlayTrack();
    ASSERT_NE(mVisualizer.mTrackTextTexture, nullptr);
    EXPECT_EQ(Panels().DrawnArea(), (Area{}));
}

TEST_F(OnProductSites, TheHelpStandsInTheUpperLeftCornerAndTheCounterLeftOfTheRightEdge) {
    mVisualizer.ToggleHelpDisplay();
    const Area help = Panels().DrawnArea();
    ASSERT_NE(help, (Area{})) << "no text at all";
    EXPECT_GE(help.left, 40) << "20 / 300 of 600 pixels";
    EXPECT_LT(help.left, 46);
    EXPECT_GE(help.top, 20);
    EXPECT_LT(help.top, 32);
    mVisualizer.ToggleHelpDisplay();

    mVisualizer.ToggleFPSDisplay();
    const Area counter = Panels().DrawnArea();
    ASSERT_NE(counter, (Area{})) << "no text at all";
    EXPECT_GE(counter.left, 440) << "600 * (1 - 80 / 300)";
    EXPECT_LE(counter.right, 520);
    EXPECT_GE(counter.top, kHeight - 50);
    EXPECT_LE(counter.bottom, kHeight - 30);
}

TEST_F(OnProductSites, ReshapedItDrawsInItsNewSize) {
    mWindow.Resize(300, 200);
    const double size[2] = { 300, 200 };
    mVisualizer.Reshape(size);
    const auto file = render::BitmapFileBytes(1, 1, 24, { 0, 255, 0, 0 });
    mVisualizer.SetArtwork(file.data(), file.size(), 13);
    const Picture picture = Panels();
    EXPECT_EQ(picture.Width(), 300);
    EXPECT_EQ(picture.DrawnArea(), (Area{ 20, 200 - 84, 84, 200 - 20 }));
}

TEST(PlugInOnProductSites, LivesThroughActivationsPulsesAndDraws) {
    const tests::SetDpi dpi(96);
    const tests::TestWindow window(kWidth, kHeight, tests::WindowPlace::Child);
    const auto plugIn = plugins::MakePlugIn<tests::TestVisualPlugIn>();
    const std::vector<std::uint8_t> sound(2050, 7);
    for (int activation = 0; activation < 3; ++activation) {
        ASSERT_TRUE(plugIn->ActivateInWindow(window.AsNative()));
        for (std::uint32_t stamp = 1; stamp <= 5; ++stamp) {
            plugIn->Pulse(sound.data(), sound.size(), stamp, 0);
            plugIn->Draw();
            plugIn->Reshape();
        }
        EXPECT_EQ(plugIn->Test()->mFrameCount, 10u);
    }
    EXPECT_TRUE(plugIn->Deactivate());
    EXPECT_EQ(plugIn->Test(), nullptr);
}

} // namespace
} // namespace orvane::visualizer
