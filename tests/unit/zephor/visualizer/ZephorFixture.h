// The classic visualizer in a window of a set size, on a recording renderer, with its fields open and a set clock.
#pragma once

#include "unit/visualizer/VisualizerFixture.h"
#include "zephor/visualizer/ZephorVisualizer.h"

#include "platform/Random.h"

#include <functional>
#include <limits>
#include <memory>
#include <string>
#include <vector>

namespace orvane::zephor {

using visualizer::kStart;
using visualizer::SitesInForce;

constexpr double kNever = std::numeric_limits<double>::infinity(); // of a timer

class OpenZephor : public ZephorVisualizer {
public:
    using ZephorVisualizer::ZephorVisualizer;

    // Called before the image is sized, in the creation too: the renderer is there then with its shared quad, and
    // nothing else.
    std::function<void(render::RecordingRenderer&)> onReshape;

    std::uint32_t ReshapeRenderer() override {
        if (onReshape) onReshape(Recorder());
        return ZephorVisualizer::ReshapeRenderer();
    }

    render::RecordingRenderer& Recorder() { return static_cast<render::RecordingRenderer&>(*Renderer()); }

    using ZephorVisualizer::SelectColorMap;
    using ZephorVisualizer::SelectDeltaField;
    using ZephorVisualizer::SelectWaveform;

    using Visualizer::mAlternativeHelpStrings;
    using Visualizer::mAudio;
    using Visualizer::mElapsed;
    using Visualizer::mFrameDelay;
    using Visualizer::mHelpState;
    using Visualizer::mHelpStrings;
    using Visualizer::mHold;
    using Visualizer::mMinimumSize;
    using Visualizer::mNow;
    using Visualizer::mPulsePosition;
    using Visualizer::mQuadBufferId;
    using Visualizer::mStartTime;
    using Visualizer::mTrackChangeTime;
    using Visualizer::mTrackInfoAlways;
    using Visualizer::mViewSize;

    using TexturePanelVisualizer::mAlternativeHelpTexture;
    using TexturePanelVisualizer::mConfigPanel;
    using TexturePanelVisualizer::mConfigTexture;
    using TexturePanelVisualizer::mFPSPanel;
    using TexturePanelVisualizer::mFPSTexture;
    using TexturePanelVisualizer::mHelpPanel;
    using TexturePanelVisualizer::mHelpTexture;
    using TexturePanelVisualizer::mTrackTextTexture;

    using ZephorVisualizer::mChangeMode;
    using ZephorVisualizer::mClut;
    using ZephorVisualizer::mConditioned;
    using ZephorVisualizer::mDeltaChangeTime;
    using ZephorVisualizer::mDeltaFade;
    using ZephorVisualizer::mDeltaFunctor;
    using ZephorVisualizer::mDeltaIndex;
    using ZephorVisualizer::mDeltaPeriod;
    using ZephorVisualizer::mDeltaRequest;
    using ZephorVisualizer::mDrawRect;
    using ZephorVisualizer::mImageQuadId;
    using ZephorVisualizer::mIndexTexture;
    using ZephorVisualizer::mLayers;
    using ZephorVisualizer::mLogoPending;
    using ZephorVisualizer::mLogoShownAt;
    using ZephorVisualizer::mLogoTexture;
    using ZephorVisualizer::mOptionFlag;
    using ZephorVisualizer::mOverlays;
    using ZephorVisualizer::mStage;
    using ZephorVisualizer::mStepFlag;
    using ZephorVisualizer::mThemeFlag;
    using ZephorVisualizer::mWaveformChangeTime;
    using ZephorVisualizer::mWaveformPeriod;
    using ZephorVisualizer::mWaveformRequest;
};

// What the key handler tells.
class RecordingReceiver final : public visualizer::IVisualizerCommandReceiver {
public:
    void ResetTrackChangeTime() override { mCalls.emplace_back("ResetTrackChangeTime"); }

    void SetTrackInfoToDisplayAlways(bool always) override {
        mCalls.emplace_back(always ? "Always" : "NotAlways");
    }

    void HelpToggled(bool shown) override { mCalls.emplace_back(shown ? "HelpShown" : "HelpHidden"); }

    void ToggleConfigDisplay() override { mCalls.emplace_back("ToggleConfigDisplay"); }

    void FPSToggled() override { mCalls.emplace_back("FPSToggled"); }

    std::vector<std::string> mCalls;
};

class ZephorFixture : public testing::Test {
protected:
    ZephorFixture() {
        SitesInForce() = visualizer::RecordingSites();
        platform::SeedRand(1);
    }

    ~ZephorFixture() override { SitesInForce() = visualizer::RecordingSites(); }

    // At kStart.
    void Make(int width = 64, int height = 48) {
        mClock.SetTo(kStart);
        mWindow = std::make_unique<tests::ChildWindow>(width, height);
        mZephor = std::make_unique<OpenZephor>(mClock.Now());
    }

    void Start(int width = 64, int height = 48) {
        Make(width, height);
        ASSERT_TRUE(mZephor->Start(mWindow->Window(), mStrings));
    }

    // The same behind its first frame: field, waveform and colours are those of the first preset's row.
    void StartAndDraw(int width = 64, int height = 48) {
        Start(width, height);
        Frame();
    }

    void Frame() {
        Recorder().ForgetRecords();
        mZephor->StepFrameClock();
        mZephor->Draw(0);
    }

    // `seconds` after kStart.
    void FrameAt(double seconds) {
        mClock.SetTo(kStart + seconds);
        Frame();
    }

    // Sound that is there at once, for the frames until it has died away.
    void MakeSound() {
        for (auto& channel : mZephor->mConditioned.waveform)
            for (int i = 0; i < kAudioPoints; ++i) channel[i] = float(i % 16 - 8) / 16;
        for (auto& channel : mZephor->mConditioned.spectrum)
            for (int i = 0; i < kAudioPoints; ++i) channel[i] = float(kAudioPoints - i) / 256;
    }

    // Neither waveforms nor overlays from now on.
    void DrawNoMore() {
        mZephor->mStage.waveform = nullptr;
        mZephor->mWaveformChangeTime = kNever;
        mZephor->mOverlays.activeCount = 0;
        mZephor->mOverlays.nextCheckTime = kNever;
    }

    bool Press(char16_t key) { return mZephor->HandleKeyInput(1, &key, 0, &mReceiver); }

    [[nodiscard]] render::RecordingRenderer& Recorder() { return mZephor->Recorder(); }

    [[nodiscard]] const render::DrawRecord* DrawOf(const render::TexturePtr& texture) {
        for (const auto& draw : Recorder().Draws())
            if (texture && draw.texture == texture.get()) return &draw;
        return nullptr;
    }

    tests::SetClock mClock{ kStart };
    tests::SetDpi mDpi{ 96 };
    records::LocalizedStrings mStrings;
    RecordingReceiver mReceiver;
    std::unique_ptr<tests::ChildWindow> mWindow;
    std::unique_ptr<OpenZephor> mZephor;
};

} // namespace orvane::zephor
