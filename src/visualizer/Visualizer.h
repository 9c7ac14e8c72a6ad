// The base of every built-in visualizer: it owns the renderer, the frame clock, the sound of the current
// frame and the help texts, and has the operations by which a hosting plug-in drives it.
//
// The chain is Visualizer, WVisualizer, TexturePanelVisualizer, PlatformVisualizer, and then the visualizer
// itself. A life fits into one activation in a window: nothing of it is kept.
//
// Nothing here locks. The plug-in that owns a visualizer lets one call in at a time, from whichever thread.
// Times are seconds of platform::NowSeconds; a frame step of 1 is 1/40 s.
#pragma once

#include "platform/NativeWindow.h"
#include "records/AudioRenderData.h"
#include "records/LocalizedString.h"
#include "records/TrackParam.h"
#include "render/IRenderer.h"
#include "visualizer/IVisualizerCommandReceiver.h"
#include "visualizer/PlatformVisualizerDelegate.h"

#include <array>
#include <cfloat>
#include <cstddef>
#include <cstdint>
#include <memory>

namespace orvane::visualizer {

using Size = std::array<double, 2>; // width, height in pixels

class Visualizer {
public:
    Visualizer(const Visualizer&) = delete;
    Visualizer& operator=(const Visualizer&) = delete;

    // ---- The operations, in slot order; the order is part of the contract. Slots 30 to 33 follow in the
    // derived classes. What is marked empty does nothing here.

    virtual ~Visualizer(); // 0: the renderer goes last, behind all that derived classes hold of it

    virtual void Reshape(const double size[2]); // 1: takes the view size, in pixels, and calls slot 16

    // Slot 2. Neither pointer is null; both are the caller's.
    virtual void StartExternalVisualPlayback(const records::TrackParamObj* trackParam,
                                             const records::AudioFormatBlock* audioFormat,
                                             std::uint32_t trackStartA, std::uint32_t trackStartB) = 0;

    virtual void Draw(std::uint32_t flag); // 3: here slot 26 alone

    virtual void Idle(std::uint32_t, std::uint32_t, std::uint32_t) {} // 4: empty

    // Slot 5. True if the key was taken. The receiver may not be kept.
    virtual bool HandleKeyInput(std::uint32_t count, const char16_t* characters, std::uint32_t modifiers,
                                IVisualizerCommandReceiver* receiver);

    virtual bool Reserved6() { return false; }

    // Slot 7. 0 and 1 aim at the full frame rate, 2 at half of it; others change nothing.
    virtual void SetRenderMode(std::uint32_t mode);

    virtual void Reserved8() {}

    virtual void Reserved9() {}

    virtual void ToggleHelpDisplay() {} // 10: empty

    virtual void ToggleConfigDisplay(); // 11: here flips the debug toggle

    virtual void ToggleFPSDisplay() {} // 12: empty

    virtual bool CreateFPSPanelTexture(); // 13: true if it came. Here only restarts the track info's fade

    virtual void CreateConfigPanelTexture() {} // 14: empty

    virtual void ReleaseResources() {} // 15: empty

    virtual std::uint32_t ReshapeRenderer() { return 0; } // 16: empty

    // Slots 17 to 19 restart the track info's fade. The first two also tell the player of a changed track
    // display. Nothing in the framework calls 17 and 19.
    virtual void ClearHold();
    virtual void TrackChanged();
    virtual void SetHold();

    // Slot 20. New sound is in the audio block, or at a stamp of 0 none. Returns 0.
    virtual std::uint32_t AudioDataArrived(std::uint32_t /*pulseStamp*/) { return 0; }

    virtual void Reserved21() {}

    virtual std::uint32_t ClearTrackState(bool keepTextures); // 22: returns 0

    // Slot 23. For a renderer of another graphics interface. Here prints its line and returns null.
    virtual render::IRenderer* CreateXelRenderer();

    virtual void CreateTrackInfoTexture(double /*scale*/) {} // 24: empty

    // Slot 25. Null if it can't be made.
    virtual render::TexturePtr CreateHelpTexture(const char* name, bool alternative);

    // Slot 26. Sizes of the view in pixels; `scale` in pixels for each pixel of the layout.
    virtual void DrawTrackInfo(std::uint32_t /*width*/, std::uint32_t /*height*/,
                               render::IRenderer* /*renderer*/, double /*scale*/) {}

    // Slot 27. Draws the whole texture with the shared quad.
    virtual void DrawPanelTexture(render::ITexture* texture, const double destination[4], float alpha,
                                  std::uint32_t colorMode) = 0;

    virtual void TrackInfoDrawn() {} // 28: empty

    virtual void ShowHelp() {} // 29: empty

    // ---- What isn't virtual.

    // Before every Draw: takes the time and works out the step of this frame. True.
    bool StepFrameClock();

    // Takes a pulse: `length` bytes of sound, of which at most an audio block's are used. A stamp of 0 or a
    // null pointer leaves the sound as it is.
    void StorePulse(const std::uint8_t* renderData, std::size_t length, std::uint32_t pulseStamp,
                    std::uint32_t pulsePosition);

    [[nodiscard]] render::IRenderer* Renderer() const { return mRenderer.get(); }

protected:
    // `startTime` is the clock's.
    explicit Visualizer(double startTime, Size minimumSize = { 0, 0 });

    // Makes the renderer in the delegate's window, with the width and height of `frame` (x, y, width,
    // height), and the shared quad. Null, with no renderer there, if one of them fails or the delegate is
    // null.
    render::IRenderer* CreateRenderer(const double frame[4], PlatformVisualizerDelegate* delegate);

    // Takes the window's client size as the view size; false if it can't be had.
    bool TakeClientSize(platform::NativeWindow window);

    // Silence on both channels, valid and without a stamp.
    void ResetAudioBlock();

    void RestartTrackInfoFade() { mTrackChangeTime = mElapsed; }

    // Slot 27 for whoever has no other wish.
    void DrawWithSharedQuad(render::ITexture* texture, const double destination[4], float alpha,
                            std::uint32_t colorMode);

    double mTargetFrameRate = 60.0;     // frames a second
    double mFrameInterval = 1.0 / 60.0; // seconds
    bool mHold = false;
    double mDisplayScale = 1.0;   // the renderer's content scale and the track panel's
    double mFrameStepRate = 40.0; // frame steps a second
    double mFpsWindow = 60.0;     // frames that the running average weighs
    Size mMinimumSize;            // that the visualizer wants
    Size mMaximumSize{ DBL_MAX, DBL_MAX };
    std::uint32_t mHelpState = 0;               // 0 none, 1 the primary help, 2 the alternative help
    std::uint8_t mOptionBytes[4]{ 2, 2, 1, 0 }; // for derived classes
    bool mDebugToggle = false;
    bool mSecondToggle = true; // for derived classes
    bool mThirdToggle = false; // for derived classes
    bool mTrackInfoAlways = false;
    Size mViewSize;
    std::uint32_t mTrackStartA = 0;
    std::uint32_t mTrackStartB = 0;
    records::AudioRenderData mAudio{};
    bool mAudioValid = true;
    std::uint32_t mPulseStamp = 0;
    std::uint32_t mPulsePosition = 0;
    double mStartTime;
    std::unique_ptr<render::IRenderer> mRenderer;
    records::LocalizedStrings mHelpStrings;
    records::LocalizedStrings mAlternativeHelpStrings;
    double mFrameDelay;       // seconds; the frame interval, or twice that
    double mNow;              // of this frame
    double mLastTime;         // of the frame before
    double mInstantaneousFps; // frames a second
    double mElapsed;          // since construction, at this frame; see the constructor
    double mSmoothedFps = -1.0;
    double mFrameStep = 0.0;
    double mTrackChangeTime = 0.0; // in the terms of mElapsed: when the track info's fade was last restarted
    std::uint32_t mFrameCount = 0;
    std::uint32_t mQuadBufferId = render::kNoVertexBuffer; // the shared quad
};

} // namespace orvane::visualizer
