// The classic visualizer: an 8-bit feedback image, waveforms drawn into it, and a colour table through which
// the fragment stage shows it.
//
// A frame is driven by sound: each pulse is conditioned and draws one frame. Three ingredients change, each on
// a timer of its own: the delta field (where the image flows), the waveform (what is drawn into it) and the
// colour map. Keys step them, hold them or draw new ones.
//
// Where the platform refuses something, the frame does without: no pipeline, no image; no colour table, no
// upload; no logo texture, no logo. Nothing is reported.
//
// Locks and threads: none here (see InternalVisualPlugIn). The process's rand() is shared, and reseeded by each
// frame's waveforms.
#pragma once

#include "platform/NativeWindow.h"
#include "records/LocalizedString.h"
#include "visualizer/PlatformVisualizer.h"
#include "zephor/colourmaps/AllColourMaps.h"
#include "zephor/colours/WCLUTManager.h"
#include "zephor/deltafields/DeltafieldFunctor.h"
#include "zephor/layers/ConditionAudio.h"
#include "zephor/layers/DeltaFieldFade.h"
#include "zephor/layers/ZephorLayerSet.h"
#include "zephor/registry/Selection.h"
#include "zephor/waveforms/Overlays.h"
#include "zephor/waveforms/WaveformStage.h"

#include <array>
#include <cstdint>
#include <memory>

namespace orvane::zephor {

class ZephorVisualizer : public visualizer::PlatformVisualizer {
public:
    // The plug-in's minimum size, in pixels.
    static constexpr double kMinimumSide = 64;

    // `startTime` is the clock's.
    explicit ZephorVisualizer(double startTime);
    ~ZephorVisualizer() override; // slot 0

    // The creation step: renderer, colour table, image, first selection, help, config panel and logo, FPS
    // panel. False without a window, its client size or a renderer; otherwise whether the FPS panel came.
    // Of the strings, entries 0 to 4 are the primary help, 0, 5, 6 and 7 the alternative one; a list that is
    // shorter gives what it has.
    [[nodiscard]] bool Start(platform::NativeWindow window, const records::LocalizedStrings& strings);

    void Draw(std::uint32_t flag) override; // 3
    bool HandleKeyInput(std::uint32_t count, const char16_t* characters, std::uint32_t modifiers,
                        visualizer::IVisualizerCommandReceiver* receiver) override; // 5
    void SetRenderMode(std::uint32_t mode) override;                                // 7
    void CreateConfigPanelTexture() override;                                       // 14: and the logo
    std::uint32_t ReshapeRenderer() override;                                       // 16: Resize
    std::uint32_t AudioDataArrived(std::uint32_t pulseStamp) override;              // 20: a whole frame
    void Reserved21() override; // restarts the track info's fade while the pulse position is 0
    void DrawPanelTexture(render::ITexture* texture, const double destination[4], float alpha,
                          std::uint32_t colorMode) override; // 27

protected:
    // Seconds between two changes, from the end of the fade for the waveform and the colours and from the
    // change itself for the delta field. Set by the first resize.
    static constexpr double kWaveformPeriod = 11.0, kDeltaPeriod = 15.0, kColourPeriod = 17.0;
    static constexpr double kLogoFadeSeconds = 10.0;

    // Change modes besides kChangeMode_Held: each ingredient on its own timer; by presets, which is the same today
    // (see PresetIsDue).
    static constexpr std::int32_t kChangeMode_Random = 1, kChangeMode_Presets = 2, kChangeModes = 3;

    void SelectDeltaField(double now, std::uint32_t flags);
    void SelectWaveform(double now, std::uint32_t flags);
    void SelectColorMap(double now, std::uint32_t flags);

    render::TexturePtr mIndexTexture; // the target layer's bytes; away from a resize to the next frame
    std::uint32_t mImageQuadId = render::kNoVertexBuffer;
    render::TexturePtr mLogoTexture;
    bool mLogoPending = true; // yet to be shown at full strength
    double mLogoShownAt;
    std::unique_ptr<ZephorLayerSet> mLayers;
    std::array<double, 4> mDrawRect{}; // x, y, width, height of the image, 2 more than the view's each way
    ZephorAudioState mConditioned{};
    double mWaveformChangeTime = 0;
    double mWaveformPeriod = 0;
    WaveformStage mStage; // the waveforms in force and fading out
    double mDeltaChangeTime = 0;
    double mDeltaPeriod = 0;
    std::int32_t mDeltaIndex = 0; // stored index, which needn't be the functor's
    DeltaFieldFade mDeltaFade;
    std::unique_ptr<DeltafieldFunctor> mDeltaFunctor;
    std::int32_t mDeltaRequest = kFirstPreset;
    std::int32_t mWaveformRequest = kFirstPreset;
    std::int32_t mChangeMode = kChangeMode_Random;
    ZephorOverlaySet mOverlays;
    bool mStepFlag = false, mThemeFlag = true, mOptionFlag = false; // kept for hosts; nothing reads them
    WCLUTManager mClut{ AllColourMaps() };

private:
    struct Key;
    static const Key kKeys[];

    void SelectAll(double now, std::uint32_t flags);
    void ChooseDelta();
    bool ComputeFieldIfReady();
    [[nodiscard]] bool PresetIsDue() const;
    void StartPreset();

    void StepImage();
    void DrawSound();
    void DrawImage();
    void ResizeImage();
    void ShowLogo();
    bool DrawLogo(double alpha);
    void DrawConfig();

    void NextHelp(visualizer::IVisualizerCommandReceiver& receiver);
    void StepDelta(std::int32_t step);
    void StepWaveform(std::int32_t step);
    void StepColour(std::int32_t step);
    void NextChangeMode();
    void DrawAllAnew();
};

} // namespace orvane::zephor
