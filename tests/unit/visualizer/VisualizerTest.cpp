#include "visualizer/Visualizer.h"

#include "records/PulseEvents.h"
#include "support/LogCapture.h"
#include "unit/visualizer/VisualizerFixture.h"

#include <bit>
#include <cfloat>
#include <cstring>
#include <vector>

namespace orvane::visualizer {
namespace {

using tests::TestVisualizer;

// The base alone, with nothing but what it leaves open.
class BareVisualizer final : public Visualizer {
public:
    BareVisualizer()
        : Visualizer(0) {}

    void StartExternalVisualPlayback(const records::TrackParamObj*, const records::AudioFormatBlock*,
                                     std::uint32_t, std::uint32_t) override {}

    void DrawPanelTexture(render::ITexture*, const double*, float, std::uint32_t) override {}

    void DrawTrackInfo(std::uint32_t width, std::uint32_t height, render::IRenderer*, double scale) override {
        mDrawn = { double(width), double(height), scale };
    }

    using Visualizer::mDebugToggle;
    using Visualizer::mElapsed;
    using Visualizer::mHold;
    using Visualizer::mTrackChangeTime;
    using Visualizer::mTrackStartA;
    using Visualizer::mTrackStartB;
    std::vector<double> mDrawn;
};

TEST(Visualizer, FieldsStartWithTheirValues) {
    const TestVisualizer v(12.5, { 0, 0 });
    EXPECT_EQ(v.mTargetFrameRate, 60.0);
    EXPECT_EQ(std::bit_cast<std::uint64_t>(v.mFrameInterval), 0x3F91111111111111u);
    EXPECT_FALSE(v.mHold);
    EXPECT_EQ(v.mDisplayScale, 1.0);
    EXPECT_EQ(v.mFrameStepRate, 40.0);
    EXPECT_EQ(v.mFpsWindow, 60.0);
    EXPECT_EQ(v.mMinimumSize, (Size{ 0, 0 }));
    EXPECT_EQ(std::bit_cast<std::uint64_t>(v.mMaximumSize[0]), 0x7FEFFFFFFFFFFFFFu);
    EXPECT_EQ(v.mMaximumSize[1], DBL_MAX);
    EXPECT_EQ(v.mHelpState, 0u);
    EXPECT_EQ(std::memcmp(v.mOptionBytes, "\x02\x02\x01\x00", 4), 0);
    EXPECT_FALSE(v.mDebugToggle);
    EXPECT_TRUE(v.mSecondToggle);
    EXPECT_FALSE(v.mThirdToggle);
    EXPECT_FALSE(v.mTrackInfoAlways);
    EXPECT_EQ(v.mViewSize, (Size{ 0, 0 }));
    EXPECT_EQ(v.mTrackStartA, 0u);
    EXPECT_EQ(v.mTrackStartB, 0u);
    EXPECT_TRUE(v.mAudioValid);
    EXPECT_EQ(v.mPulseStamp, 0u);
    EXPECT_EQ(v.mPulsePosition, 0u);
    EXPECT_EQ(v.mStartTime, 12.5);
    EXPECT_EQ(v.mRenderer, nullptr);
    EXPECT_TRUE(v.mHelpStrings.empty());
    EXPECT_TRUE(v.mAlternativeHelpStrings.empty());
    EXPECT_EQ(v.mFrameDelay, v.mFrameInterval);
    EXPECT_EQ(v.mNow, 12.5);
    EXPECT_EQ(v.mLastTime, 12.5);
    EXPECT_EQ(v.mInstantaneousFps, 0.0);
    EXPECT_EQ(v.mElapsed, 12.5);
    EXPECT_EQ(v.mSmoothedFps, -1.0);
    EXPECT_EQ(v.mFrameStep, 0.0);
    EXPECT_EQ(v.mTrackChangeTime, 0.0);
    EXPECT_EQ(v.mFrameCount, 0u);
    EXPECT_EQ(v.mQuadBufferId, 0u);
}

TEST(Visualizer, TheViewSizeStartsAsTheMinimumSize) {
    const TestVisualizer v(0, { 64, 48 });
    EXPECT_EQ(v.mMinimumSize, (Size{ 64, 48 }));
    EXPECT_EQ(v.mViewSize, (Size{ 64, 48 }));
}

TEST(Visualizer, SilenceIsDrawnUntilTheFirstPulse) {
    const TestVisualizer v(0);
    for (const auto& channel : v.mAudio.waveform)
        for (const std::uint8_t sample : channel) EXPECT_EQ(sample, 127);
    for (const auto& channel : v.mAudio.spectrum)
        for (const std::uint8_t bin : channel) EXPECT_EQ(bin, 0);
}

TEST(Visualizer, TheResetOfTheAudioBlockKeepsTheTwoSingleBytes) {
    TestVisualizer v(0);
    std::memset(&v.mAudio, 9, sizeof v.mAudio);
    v.mAudioValid = false;
    v.mPulseStamp = 5;
    v.mPulsePosition = 6;
    v.ResetAudioBlock();
    EXPECT_EQ(v.mAudio.waveformChannels, 9);
    EXPECT_EQ(v.mAudio.spectrumChannels, 9);
    EXPECT_EQ(v.mAudio.waveform[1][511], 127);
    EXPECT_EQ(v.mAudio.spectrum[1][511], 0);
    EXPECT_TRUE(v.mAudioValid);
    EXPECT_EQ(v.mPulseStamp, 0u);
    EXPECT_EQ(v.mPulsePosition, 6u);
}

TEST(Visualizer, APulseLongerThan2050BytesIsCutAt2050) {
    TestVisualizer v(0);
    const std::vector<std::uint8_t> data(3000, 3);
    v.mAudioValid = false;
    v.StorePulse(data.data(), data.size(), 1, 2);
    EXPECT_EQ(v.mAudio.spectrum[1][511], 3);
    EXPECT_TRUE(v.mAudioValid);
    EXPECT_EQ(v.mPulseStamp, 1u) << "stored, and not overwritten by what lies behind 2050 bytes";
    EXPECT_EQ(v.mPulsePosition, 2u);
    EXPECT_EQ(v.mStartTime, 0.0);
}

TEST(Visualizer, AShortPulseReplacesTheFrontOfTheAudioBlock) {
    TestVisualizer v(0);
    const std::vector<std::uint8_t> data(11, 3);
    v.StorePulse(data.data(), data.size(), 1, 0);
    EXPECT_EQ(v.mAudio.waveformChannels, 3);
    EXPECT_EQ(v.mAudio.waveform[0][9], 3);
    EXPECT_EQ(v.mAudio.waveform[0][10], 127);
}

TEST(Visualizer, AStampOf0OrNoDataLeavesTheAudioBlockAndStoresTheStamp) {
    TestVisualizer v(0);
    const std::vector<std::uint8_t> data(2050, 3);
    v.mAudioValid = false;
    v.StorePulse(data.data(), data.size(), 9, 4);
    v.mAudioValid = false;
    v.StorePulse(nullptr, 2050, 10, 5);
    EXPECT_EQ(v.mPulseStamp, 10u);
    const std::vector<std::uint8_t> other(2050, 8);
    v.StorePulse(other.data(), other.size(), 0, 6);
    EXPECT_EQ(v.mPulseStamp, 0u);
    EXPECT_EQ(v.mPulsePosition, 6u);
    EXPECT_EQ(v.mAudio.waveform[0][0], 3);
    EXPECT_FALSE(v.mAudioValid);
}

TEST(Visualizer, SetRenderMode2DoublesTheFrameDelayAnd3LeavesIt) {
    TestVisualizer v(0);
    v.SetRenderMode(2);
    EXPECT_EQ(v.mFrameDelay, 1.0 / 30.0);
    v.SetRenderMode(3);
    EXPECT_EQ(v.mFrameDelay, 1.0 / 30.0);
    v.SetRenderMode(1);
    EXPECT_EQ(v.mFrameDelay, 1.0 / 60.0);
    v.SetRenderMode(2);
    v.SetRenderMode(0);
    EXPECT_EQ(v.mFrameDelay, 1.0 / 60.0);
}

TEST(Visualizer, HoldIsSetAndClearedAndBothRestartTheFade) {
    BareVisualizer v;
    records::trackInfoDirty = false;
    v.mElapsed = 3;
    v.SetHold();
    EXPECT_TRUE(v.mHold);
    EXPECT_EQ(v.mTrackChangeTime, 3);
    EXPECT_FALSE(records::trackInfoDirty);
    v.mElapsed = 4;
    v.ClearHold();
    EXPECT_FALSE(v.mHold);
    EXPECT_EQ(v.mTrackChangeTime, 4);
    EXPECT_TRUE(records::trackInfoDirty);
    records::trackInfoDirty = false;
    v.mElapsed = 5;
    v.TrackChanged();
    EXPECT_EQ(v.mTrackChangeTime, 5);
    EXPECT_TRUE(records::trackInfoDirty);
    records::trackInfoDirty = false;
}

TEST(Visualizer, TheBaseBodiesAreEmptyOrDoTheLittleThatIsToldOfThem) {
    BareVisualizer v;
    const tests::LogCapture log;
    EXPECT_FALSE(v.HandleKeyInput(1, u"F", 0, nullptr));
    EXPECT_FALSE(v.Reserved6());
    EXPECT_EQ(v.ReshapeRenderer(), 0u);
    EXPECT_EQ(v.AudioDataArrived(3), 0u);
    EXPECT_EQ(v.CreateHelpTexture("Help Strings", true), nullptr);
    v.ToggleConfigDisplay();
    EXPECT_TRUE(v.mDebugToggle);
    v.ToggleConfigDisplay();
    EXPECT_FALSE(v.mDebugToggle);
    v.mElapsed = 6;
    EXPECT_TRUE(v.CreateFPSPanelTexture());
    EXPECT_EQ(v.mTrackChangeTime, 6);
    v.mTrackStartA = v.mTrackStartB = 2;
    EXPECT_EQ(v.ClearTrackState(true), 0u);
    EXPECT_EQ(v.mTrackStartA, 0u);
    EXPECT_EQ(v.mTrackStartB, 2u) << "the panels' class clears this one";
    const double size[2] = { 320.5, 200 };
    v.Reshape(size);
    v.Draw(0);
    EXPECT_EQ(v.mDrawn, (std::vector<double>{ 320, 200, 1 })) << "the track info alone";
    EXPECT_EQ(log.Text(), "");
}

TEST(Visualizer, TheHookOfASiblingRendererOnlyPrintsItsLine) {
    BareVisualizer v;
    const tests::LogCapture log;
    EXPECT_EQ(v.CreateXelRenderer(), nullptr);
    EXPECT_EQ(log.Text(), "override CreateXelRenderer\n");
}

class RendererCreation : public VisualizerFixture {
protected:
    static constexpr double kFrame[4] = { 5, 6, 320, 200 };
    tests::ChildWindow mNativeWindow{ 320, 200 };
    TestVisualizer mBare{ kStart };
    tests::TestVisualizerDelegate mDelegate{ mNativeWindow.Window() };
};

TEST_F(RendererCreation, MakesTheRendererInTheDelegatesWindowAndTheSharedQuad) {
    auto* renderer = static_cast<render::RecordingRenderer*>(mBare.CreateRenderer(kFrame, &mDelegate));
    ASSERT_NE(renderer, nullptr);
    EXPECT_EQ(renderer, mBare.Renderer());
    EXPECT_EQ(SitesInForce().lastWindow, mNativeWindow.Window());
    double viewport[4];
    renderer->GetViewport(viewport);
    EXPECT_EQ(viewport[2], 320);
    EXPECT_EQ(viewport[3], 200);
    EXPECT_EQ(renderer->BufferNames(), std::vector<std::string>{ "TexturedQuad" });
    EXPECT_EQ(mBare.mQuadBufferId, 1u);
    EXPECT_NE(renderer->FindPipeline(5), nullptr);
    EXPECT_EQ(renderer->BufferBytes(1).size(), 4u * 20u) << "four vertices of position and coordinate";
}

TEST_F(RendererCreation, ANullDelegateLeavesNoRendererAndNothingFails) {
    EXPECT_EQ(mBare.CreateRenderer(kFrame, nullptr), nullptr);
    EXPECT_EQ(mBare.Renderer(), nullptr);
    EXPECT_FALSE(mBare.CreateFPSPanelTexture());
    mBare.CreateConfigPanelTexture();
    mBare.mHelpTexture = mBare.CreateHelpTexture("Help Strings", false);
    mBare.CreateTrackInfoTexture(1.0);
    mBare.SetArtwork("no image", 8, 13);
    for (const auto* texture : { &mBare.mFPSTexture, &mBare.mConfigTexture, &mBare.mHelpTexture,
                                 &mBare.mTrackTextTexture, &mBare.mArtworkTexture })
        EXPECT_EQ(*texture, nullptr);
    mBare.ToggleHelpDisplay();
    mBare.ToggleConfigDisplay();
    mBare.ToggleFPSDisplay();
    EXPECT_EQ(mBare.mHelpPanel, nullptr);
    mBare.PlatformVisualizer::Draw(0);
}

TEST_F(RendererCreation, ARendererThatCantBeSetUpLeavesNone) {
    SitesInForce().refuseRenderer = true;
    EXPECT_EQ(mBare.CreateRenderer(kFrame, &mDelegate), nullptr);
    EXPECT_EQ(mBare.Renderer(), nullptr);
}

TEST_F(RendererCreation, ARendererWithoutASharedQuadIsDeleted) {
    SitesInForce().refuseVertexBuffer = true;
    EXPECT_EQ(mBare.CreateRenderer(kFrame, &mDelegate), nullptr);
    EXPECT_EQ(mBare.Renderer(), nullptr);
    EXPECT_EQ(mBare.mQuadBufferId, 0u);
}

// Tells when it goes, and asks the renderer for something then: a renderer that went first would be caught.
class WatchedTexture final : public render::CTexture {
public:
    WatchedTexture(std::vector<std::string>& gone, std::string name, render::IRenderer* renderer)
        : CTexture(8, 8)
        , mGone(gone)
        , mName(std::move(name))
        , mRenderer(renderer) {}

    ~WatchedTexture() override {
        double viewport[4];
        mRenderer->GetViewport(viewport);
        EXPECT_EQ(viewport[2], 1000);
        mGone.push_back(mName);
    }

    void Bind() override {}

    void Unbind() override {}

protected:
    bool HasResource() const override { return false; }

    bool Map(render::TextureMapping&) override { return false; }

    void Unmap() override {}

private:
    std::vector<std::string>& mGone;
    std::string mName;
    render::IRenderer* mRenderer;
};

TEST_F(VisualizerFixture, DestructionReleasesTheTexturesInOrderAndTheRendererLast) {
    Start();
    std::vector<std::string> gone;
    const auto watch = [&](render::TexturePtr& texture, const char* name) {
        texture.reset(new WatchedTexture(gone, name, mVisualizer->Renderer()));
    };
    watch(mVisualizer->mArtworkTexture, "artwork");
    watch(mVisualizer->mHelpTexture, "help");
    watch(mVisualizer->mAlternativeHelpTexture, "alternative help");
    watch(mVisualizer->mTrackTextTexture, "track text");
    watch(mVisualizer->mConfigTexture, "config");
    watch(mVisualizer->mFPSTexture, "fps");
    mVisualizer.reset();
    EXPECT_EQ(gone, (std::vector<std::string>{ "fps", "config", "help", "alternative help", "track text",
                                               "artwork" }));
}

TEST_F(VisualizerFixture, ReshapeTakesTheViewSizeAndTheTargetFollows) {
    Start();
    const double size[2] = { 640, 360 };
    mVisualizer->Reshape(size);
    EXPECT_EQ(mVisualizer->mViewSize, (Size{ 640, 360 }));
    EXPECT_EQ(Recorder().Targets(), (std::vector<render::TargetRecord>{ { 640, 360 } }));
}

} // namespace
} // namespace orvane::visualizer
