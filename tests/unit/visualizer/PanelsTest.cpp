#include "visualizer/Panels.h"

#include "unit/visualizer/VisualizerFixture.h"

namespace orvane::visualizer {
namespace {

class Panels : public VisualizerFixture {
protected:
    // Every panel shown, one frame drawn.
    void ShowAll(int width, int height) {
        StartAndDraw(width, height);
        mVisualizer->ToggleHelpDisplay();
        mVisualizer->ToggleFPSDisplay();
        mVisualizer->ToggleConfigDisplay();
        Frame();
    }

    Rect RectOf(const render::TexturePtr& texture) {
        const auto* const draw = DrawOf(texture);
        EXPECT_NE(draw, nullptr);
        return draw ? DestinationOf(*draw) : Rect{};
    }

    void ExpectTexture(const char* name, std::uint32_t width, std::uint32_t height) {
        const auto resource = Recorder().FindResource(name);
        ASSERT_NE(resource, nullptr) << name;
        EXPECT_EQ(resource->image->width, width) << name;
        EXPECT_EQ(resource->image->height, height) << name;
        EXPECT_EQ(resource->image->pixelFormat, render::kPixelFormat_BGRA8) << name;
        EXPECT_EQ(resource->textureUnit, 0u) << name;
        EXPECT_TRUE(resource->dynamic) << name;
    }
};

TEST_F(Panels, TexturesHaveTheirSizesAt96AndAt120Dpi) {
    Start();
    ExpectTexture("FPSTexture", 80, 20);      // 12 * 1.7 = 20.4
    ExpectTexture("Config texture", 200, 61); // 12 * 5.1 = 61.2
    ExpectTexture("Help Strings", 256, 183);  // 12 * 15.3 = 183.6
    ExpectTexture("Alternative Help Strings", 256, 183);
    mVisualizer.reset();

    const tests::SetDpi large(120); // a text size of 15
    Start();
    ExpectTexture("FPSTexture", 80, 25);      // 25.5, and the width isn't scaled
    ExpectTexture("Config texture", 250, 76); // 76.5
    ExpectTexture("Help Strings", 320, 229);  // 229.5
}

// At a text size of 20, 1.7f as a double is just above 1.7, so the three rows make 102.00000286 and the nine
// 306.0000086: whole heights, where 1.7 taken a little short would lose a pixel.
TEST_F(Panels, TheFloatRowHeightKeepsWholeHeightsWhole) {
    const tests::SetDpi large(160);
    Start();
    ExpectTexture("FPSTexture", 80, 34);
    ExpectTexture("Config texture", 333, 102); // 200 * 160 / 96 = 333.3
    ExpectTexture("Help Strings", 427, 306);   // 426.7
}

TEST_F(Panels, TheHelpsLeftMarginRestsOnTheViewsHeight) {
    ShowAll(1000, 500); // wide: 20 / 500 of 1000 pixels are 40 pixels
    ExpectRect(RectOf(mVisualizer->mHelpTexture), { 0.04, 1 - 183 / 500.0 - 0.04, 0.256, 0.366 });
    mVisualizer.reset();
    ShowAll(500, 1000); // tall: 20 / 1000 of 500 pixels are 10 pixels
    ExpectRect(RectOf(mVisualizer->mHelpTexture), { 0.02, 1 - 0.183 - 0.02, 0.512, 0.183 });
}

TEST_F(Panels, TheFpsCountersRightEdgeRestsOnTheViewsHeight) {
    ShowAll(1000, 500); // wide: x is 1 - 80 / 500, so it ends at 0.92
    ExpectRect(RectOf(mVisualizer->mFPSTexture), { 0.84, 0.06, 0.08, 0.04 });
    mVisualizer.reset();
    ShowAll(500, 1000); // tall: it hangs over the right edge by 0.08
    ExpectRect(RectOf(mVisualizer->mFPSTexture), { 0.92, 0.03, 0.16, 0.02 });
}

TEST_F(Panels, TheConfigPanelStands20PixelsFromTheSideAnd30FromTheTop) {
    ShowAll(1000, 500);
    ExpectRect(RectOf(mVisualizer->mConfigTexture), { 0.78, 1 - 91 / 500.0, 0.2, 0.122 });
    mVisualizer.reset();
    ShowAll(500, 1000);
    ExpectRect(RectOf(mVisualizer->mConfigTexture), { 0.56, 1 - 91 / 1000.0, 0.4, 0.061 });
}

TEST_F(Panels, EachIsDrawnWhiteUnderIdentityMatricesAndLeavesTheStacks) {
    ShowAll(1000, 500);
    for (const auto* texture :
         { &mVisualizer->mHelpTexture, &mVisualizer->mFPSTexture, &mVisualizer->mConfigTexture }) {
        const auto* const draw = DrawOf(*texture);
        ASSERT_NE(draw, nullptr);
        EXPECT_EQ(draw->bufferId, int(mVisualizer->mQuadBufferId));
        EXPECT_EQ(draw->tint, (std::array<float, 4>{ 1, 1, 1, 1 }));
        EXPECT_EQ(draw->matrix, render::kIdentityMatrix);
        EXPECT_EQ(draw->blendMode, render::kBlendMode_Additive);
        EXPECT_EQ(draw->Vertex(0)[3], 1.0f) << "right edge of the source";
        EXPECT_EQ(draw->Vertex(0)[4], 1.0f) << "lower edge";
        EXPECT_EQ(draw->Vertex(3)[3], 0.0f);
        EXPECT_EQ(draw->Vertex(3)[4], 0.0f);
    }
    EXPECT_EQ(Recorder().ModelViewDepth(), 1u);
    EXPECT_EQ(Recorder().ProjectionDepth(), 1u);
}

TEST_F(Panels, TheHelpFadesFrom18To20SecondsAndThenGoesByItself) {
    StartAndDraw();
    mVisualizer->ToggleHelpDisplay();
    const auto alphaAt = [&](double seconds) {
        FrameAt(seconds);
        const auto* const draw = DrawOf(mVisualizer->mHelpTexture);
        return draw ? draw->tint[3] : -1.0f;
    };
    EXPECT_EQ(alphaAt(0), 1.0f);
    EXPECT_EQ(alphaAt(18), 1.0f);
    EXPECT_EQ(alphaAt(19), 0.5f);
    EXPECT_EQ(alphaAt(19.5), 0.25f);
    EXPECT_EQ(alphaAt(20), 0.0f);
    EXPECT_NE(mVisualizer->mHelpPanel, nullptr);
    EXPECT_EQ(alphaAt(20.125), -1.0f) << "not drawn";
    EXPECT_EQ(mVisualizer->mHelpPanel, nullptr) << "its record is freed";
    mVisualizer->ToggleHelpDisplay();
    EXPECT_EQ(alphaAt(20.25), 1.0f) << "one key press brings it back";
}

TEST_F(Panels, TogglingTheHelpOffAndOnRestartsIts20Seconds) {
    StartAndDraw();
    mVisualizer->ToggleHelpDisplay();
    FrameAt(19);
    mVisualizer->ToggleHelpDisplay();
    EXPECT_EQ(mVisualizer->mHelpPanel, nullptr);
    Frame();
    EXPECT_EQ(DrawOf(mVisualizer->mHelpTexture), nullptr);
    mVisualizer->ToggleHelpDisplay();
    FrameAt(37);
    const auto* const draw = DrawOf(mVisualizer->mHelpTexture);
    ASSERT_NE(draw, nullptr);
    EXPECT_EQ(draw->tint[3], 1.0f);
}

TEST_F(Panels, ShowHelpShowsWhatTheHelpStateSays) {
    StartAndDraw();
    mVisualizer->mHelpState = 1;
    mVisualizer->ShowHelp();
    ASSERT_NE(mVisualizer->mHelpPanel, nullptr);
    EXPECT_EQ(mVisualizer->mHelpPanel->texture, mVisualizer->mHelpTexture.get());
    EXPECT_EQ(mVisualizer->mHelpPanel->textSize, 12.0f);
    EXPECT_EQ(mVisualizer->mHelpPanel->startTime, kStart);
    mVisualizer->mHelpState = 2;
    mVisualizer->ShowHelp();
    ASSERT_NE(mVisualizer->mHelpPanel, nullptr);
    EXPECT_EQ(mVisualizer->mHelpPanel->texture, mVisualizer->mAlternativeHelpTexture.get());
    for (const std::uint32_t state : { 0u, 3u }) {
        mVisualizer->mHelpState = 1;
        mVisualizer->ShowHelp();
        mVisualizer->mHelpState = state;
        mVisualizer->ShowHelp();
        EXPECT_EQ(mVisualizer->mHelpPanel, nullptr) << state;
    }
    mVisualizer->mHelpTexture.reset();
    mVisualizer->mHelpState = 1;
    mVisualizer->ShowHelp();
    EXPECT_EQ(mVisualizer->mHelpPanel, nullptr) << "no texture, no panel";
}

TEST_F(Panels, AnFpsOf59Point9ShowsAs59) {
    StartAndDraw();
    mVisualizer->ToggleFPSDisplay();
    mVisualizer->mSmoothedFps = 59.9;
    SitesInForce().drawing->texts.clear();
    mVisualizer->PlatformVisualizer::Draw(0);
    ASSERT_EQ(Drawn().texts.size(), 1u);
    EXPECT_EQ(Drawn().texts[0].text, u"59 FPS");
    EXPECT_EQ(Drawn().texts[0].fontSize, 12.0f);
    EXPECT_EQ(Drawn().texts[0].alignment, render::kTextAlignmentLeading);
    EXPECT_EQ(Drawn().texts[0].rect, (Rect{ 0, 0, 80, 18 }));
    EXPECT_EQ(Drawn().texts[0].colour, (std::array<float, 4>{ 1, 1, 1, 1 }));
    mVisualizer->PlatformVisualizer::Draw(0);
    EXPECT_EQ(Drawn().texts.size(), 2u) << "set anew on every frame";
}

TEST_F(Panels, TheConfigPanelHasThreeLinesFlushRightAndLeavesOutWhatIsNoText) {
    StartAndDraw();
    mVisualizer->ToggleConfigDisplay();
    mVisualizer->mConfigLines[0] = "Wave \xC3\xA9";
    mVisualizer->mConfigLines[1] = "\xFF";
    mVisualizer->mConfigLines[2] = std::string(2047, 'x');
    SitesInForce().drawing->texts.clear();
    Frame();
    ASSERT_EQ(Drawn().texts.size(), 2u);
    EXPECT_EQ(Drawn().texts[0].text, u"Wave \u00E9");
    EXPECT_EQ(Drawn().texts[0].rect, (Rect{ 0, 0, 200, 18 }));
    EXPECT_EQ(Drawn().texts[0].alignment, render::kTextAlignmentTrailing);
    EXPECT_EQ(Drawn().texts[1].text.size(), 2047u);
    EXPECT_EQ(Drawn().texts[1].rect, (Rect{ 0, 18, 200, 18 })) << "no gap";

    mVisualizer->mConfigLines[2] += 'x';
    SitesInForce().drawing->texts.clear();
    Frame();
    EXPECT_EQ(Drawn().texts.size(), 1u) << "2048 units have no room for the terminator";
}

TEST_F(Panels, TheTogglesNeedATexture) {
    StartAndDraw();
    mVisualizer->ToggleFPSDisplay();
    mVisualizer->ToggleConfigDisplay();
    EXPECT_NE(mVisualizer->mFPSPanel, nullptr);
    EXPECT_NE(mVisualizer->mConfigPanel, nullptr);
    EXPECT_FALSE(mVisualizer->mDebugToggle) << "the base's toggle is replaced";
    mVisualizer->ToggleFPSDisplay();
    mVisualizer->ToggleConfigDisplay();
    EXPECT_EQ(mVisualizer->mFPSPanel, nullptr);
    EXPECT_EQ(mVisualizer->mConfigPanel, nullptr);
    mVisualizer->mFPSTexture.reset();
    mVisualizer->mConfigTexture.reset();
    mVisualizer->ToggleFPSDisplay();
    mVisualizer->ToggleConfigDisplay();
    EXPECT_EQ(mVisualizer->mFPSPanel, nullptr);
    EXPECT_EQ(mVisualizer->mConfigPanel, nullptr);
}

TEST_F(Panels, AFailedTextureIsNullAndTold) {
    Start();
    Recorder().Refuse(render::Refusal::Texture);
    mVisualizer->mElapsed = 3;
    EXPECT_FALSE(mVisualizer->CreateFPSPanelTexture());
    EXPECT_EQ(mVisualizer->mFPSTexture, nullptr);
    EXPECT_EQ(mVisualizer->mTrackChangeTime, 3) << "the fade is restarted first";
    EXPECT_EQ(mVisualizer->CreateHelpTexture("Help Strings", false), nullptr);
}

} // namespace
} // namespace orvane::visualizer
