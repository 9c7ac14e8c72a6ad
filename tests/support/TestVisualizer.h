// A visualizer as small as one can be, on the whole framework: a bar that wanders across the view with the
// frame clock, and the panels above it. Its own fields and those of its bases are open to tests.
#pragma once

#include "platform/NativeWindow.h"
#include "visualizer/PlatformVisualizer.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace orvane::tests {

class TestVisualizerDelegate final : public visualizer::PlatformVisualizerDelegate {
public:
    explicit TestVisualizerDelegate(platform::NativeWindow window)
        : mWindow(window) {}

    platform::NativeWindow GetWindowHandle() override { return mWindow; }

private:
    platform::NativeWindow mWindow;
};

class TestVisualizer : public visualizer::PlatformVisualizer {
public:
    static constexpr double kBarSeconds = 4.0; // from the left edge to the right one
    static constexpr double kBarWidth = 0.25;  // of the view

    // What is called, by name, while it happens; of all of them, so that a life is seen from end to end.
    inline static std::function<void(const char* operation)> sOnCall;

    explicit TestVisualizer(double startTime, visualizer::Size minimumSize = { 64, 64 })
        : PlatformVisualizer(startTime, minimumSize) {}

    ~TestVisualizer() override { Note("~TestVisualizer"); }

    // The creation step, in the order that all visualizers keep. False without a client size or a renderer, or
    // if the FPS panel's texture didn't come.
    [[nodiscard]] bool Start(platform::NativeWindow window, const records::LocalizedStrings& help);

    void Draw(std::uint32_t flag) override; // the bar, the panels, Present

    void Idle(std::uint32_t, std::uint32_t, std::uint32_t) override { Note("Idle"); }

    // Keys, of either case, count 1: H help, C config, F counter, I restarts the fade, L always.
    bool HandleKeyInput(std::uint32_t count, const char16_t* characters, std::uint32_t modifiers,
                        visualizer::IVisualizerCommandReceiver* receiver) override;
    std::uint32_t ReshapeRenderer() override;
    std::uint32_t AudioDataArrived(std::uint32_t pulseStamp) override; // steps the clock and draws
    void DrawPanelTexture(render::ITexture* texture, const double destination[4], float alpha,
                          std::uint32_t colorMode) override;

    void TrackInfoDrawn() override { Note("TrackInfoDrawn"); }

    void TrackChanged() override;
    void SetArtwork(const void* image, std::uint64_t size, std::uint32_t format) override;

    void AddHelpString(const char* key, const char* value) override;

    using Visualizer::CreateRenderer;
    using Visualizer::DrawWithSharedQuad;
    using Visualizer::ResetAudioBlock;
    using Visualizer::RestartTrackInfoFade;
    using Visualizer::TakeClientSize;

    using Visualizer::mAlternativeHelpStrings;
    using Visualizer::mAudio;
    using Visualizer::mAudioValid;
    using Visualizer::mDebugToggle;
    using Visualizer::mDisplayScale;
    using Visualizer::mElapsed;
    using Visualizer::mFpsWindow;
    using Visualizer::mFrameCount;
    using Visualizer::mFrameDelay;
    using Visualizer::mFrameInterval;
    using Visualizer::mFrameStep;
    using Visualizer::mFrameStepRate;
    using Visualizer::mHelpState;
    using Visualizer::mHelpStrings;
    using Visualizer::mHold;
    using Visualizer::mInstantaneousFps;
    using Visualizer::mLastTime;
    using Visualizer::mMaximumSize;
    using Visualizer::mMinimumSize;
    using Visualizer::mNow;
    using Visualizer::mOptionBytes;
    using Visualizer::mPulsePosition;
    using Visualizer::mPulseStamp;
    using Visualizer::mQuadBufferId;
    using Visualizer::mRenderer;
    using Visualizer::mSecondToggle;
    using Visualizer::mSmoothedFps;
    using Visualizer::mStartTime;
    using Visualizer::mTargetFrameRate;
    using Visualizer::mThirdToggle;
    using Visualizer::mTrackChangeTime;
    using Visualizer::mTrackInfoAlways;
    using Visualizer::mTrackStartA;
    using Visualizer::mTrackStartB;
    using Visualizer::mViewSize;

    using TexturePanelVisualizer::mAlternativeHelpTexture;
    using TexturePanelVisualizer::mArtworkTexture;
    using TexturePanelVisualizer::mAudioFormat;
    using TexturePanelVisualizer::mConfigPanel;
    using TexturePanelVisualizer::mConfigTexture;
    using TexturePanelVisualizer::mFPSPanel;
    using TexturePanelVisualizer::mFPSTexture;
    using TexturePanelVisualizer::mHelpPanel;
    using TexturePanelVisualizer::mHelpTexture;
    using TexturePanelVisualizer::mTrack;
    using TexturePanelVisualizer::mTrackTextTexture;

    std::vector<std::string> mCalls;         // those that it noted, in order
    std::vector<std::uint32_t> mPulseStamps; // that AudioDataArrived got
    std::string mConfigLines[3]{ "One", "Two", "Three" };

private:
    void Note(const char* operation);
    void DrawBar();

    std::uint32_t mBarBufferId = 0;
};

} // namespace orvane::tests
