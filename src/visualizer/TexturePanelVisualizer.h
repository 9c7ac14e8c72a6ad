// The overlays above the picture: the track panel with artwork and three lines of text, the help, config and
// FPS panels. Each is a texture with a rectangle; all drawing goes through the renderer.
//
// A panel whose texture couldn't be made doesn't show, and its toggle does nothing; nobody is told.
#pragma once

#include "visualizer/PanelText.h"
#include "visualizer/Panels.h"
#include "visualizer/WVisualizer.h"

#include <cstdint>
#include <memory>

namespace orvane::visualizer {

class TexturePanelVisualizer : public WVisualizer {
public:
    ~TexturePanelVisualizer() override;

    void StartExternalVisualPlayback(const records::TrackParamObj* trackParam,
                                     const records::AudioFormatBlock* audioFormat, std::uint32_t trackStartA,
                                     std::uint32_t trackStartB) override; // 2

    // Slot 3. The overlay part of a frame, which a derived class calls between its own drawing and Present:
    // the track panel, the help, the FPS counter. The config panel is drawn by whoever wants it.
    //
    // KEEP: no projection is pushed for the track panel, only an identity modelview: a derived class must have
    // popped its own before, or the panel comes out through it. Help and counter push both. It stays so: a
    // frame in which the panel is out of place has a projection too many, and that shows at once. Pinned by
    // TrackPanel.IsDrawnThroughWhateverProjectionTheFrameLeft.
    void Draw(std::uint32_t flag) override;

    void ToggleHelpDisplay() override;   // 10
    void ToggleConfigDisplay() override; // 11
    void ToggleFPSDisplay() override;    // 12
    bool CreateFPSPanelTexture() override;
    void CreateConfigPanelTexture() override;
    void TrackChanged() override;
    std::uint32_t ClearTrackState(bool keepTextures) override;

    // Slot 25. `name` is the texture's. What the texture has no room for is cut; the text is that of the
    // primary or the alternative help list as it is now.
    render::TexturePtr CreateHelpTexture(const char* name, bool alternative) override;

    void DrawTrackInfo(std::uint32_t width, std::uint32_t height, render::IRenderer* renderer,
                       double scale) override;
    void ShowHelp() override; // 29: shows what the help state says

    // ---- The slots that this class adds.

    // Slot 30. Replaces the texture's contents by white text on nothing. With columns of equal length the rows
    // of both, the first column from firstX to secondX and the second one from there to the texture's right
    // edge; otherwise the first column alone. Lengths in pixels. Nothing for a null texture.
    virtual void DrawTextLines(const TextColumn& firstColumn, double firstX, const TextColumn& secondColumn,
                               double secondX, double y, double fontSize, double lineHeight,
                               render::ITexture* texture, bool unused1, bool unused2, bool rightAligned) = 0;

    // Slot 31. `image` holds `size` bytes of an encoded picture, or is null; the format isn't looked at.
    // Here only lets the artwork go.
    virtual void SetArtwork(const void* image, std::uint64_t size, std::uint32_t format);

    virtual void AddHelpString(const char* /*key*/, const char* /*value*/) {} // 32: empty

    // ---- What isn't virtual.

    // Empties both help lists and hands each entry to AddHelpString. The help textures stay as they are.
    void ReplaceHelpStrings(const records::LocalizedStrings& list);

protected:
    using WVisualizer::WVisualizer;

    records::TrackParamObj mTrack{}; // only what stands in front of mAudioFormat is filled
    records::AudioFormatBlock mAudioFormat{};
    std::unique_ptr<HelpPanel> mHelpPanel; // panels are there while they show
    std::unique_ptr<Panel> mConfigPanel;
    std::unique_ptr<Panel> mFPSPanel;
    render::TexturePtr mFPSTexture;
    render::TexturePtr mConfigTexture;
    render::TexturePtr mTrackTextTexture;
    render::TexturePtr mArtworkTexture;
    render::TexturePtr mHelpTexture;
    render::TexturePtr mAlternativeHelpTexture;

private:
    [[nodiscard]] render::TexturePtr MakeBlankTexture(std::uint32_t width, std::uint32_t height,
                                                      const char* label);
    void MakeHelpPanel(render::ITexture* texture);
    void DrawShownHelp();
};

} // namespace orvane::visualizer
