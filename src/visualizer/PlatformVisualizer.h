// The panels bound to 2D drawing: text and images become textures. Written against the neutral 2D interface;
// only the making of a surface is somebody else's (ConstructionSites.h).
//
// What fails is silent: the texture stays as it is, or away.
#pragma once

#include "visualizer/TexturePanelVisualizer.h"

#include <cstdint>

namespace orvane::visualizer {

class PlatformVisualizer : public TexturePanelVisualizer {
public:
    // Slot 24. Album, artist and name of the track, one below the other.
    void CreateTrackInfoTexture(double scale) override;

    void DrawTextLines(const TextColumn& firstColumn, double firstX, const TextColumn& secondColumn,
                       double secondX, double y, double fontSize, double lineHeight,
                       render::ITexture* texture, bool unused1, bool unused2, bool rightAligned) override;

    // Slot 31. Any picture fills the square, whatever its proportions.
    void SetArtwork(const void* image, std::uint64_t size, std::uint32_t format) override;

    virtual double GetScaleFactor() { return 1.0; } // 33

protected:
    using TexturePanelVisualizer::TexturePanelVisualizer;
};

} // namespace orvane::visualizer
