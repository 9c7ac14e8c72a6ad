// An 8-bit image of intensities, which are indices into the colour table, with a canvas to draw on.
//
// The pixels live in the canvas; the layer's own cells stay empty.
#pragma once

#include "render/IRenderer2D.h"
#include "zephor/layers/ZephorLayer.h"

namespace orvane::zephor {

class ZephorIndexLayer final : public ZephorLayer {
public:
    // The storage kind whose rows are plain bytes.
    static constexpr int kPlainRows = 4;
    static constexpr int kBytesPerCell = 4;

    explicit ZephorIndexLayer(int storageKind);

    void BeginDraw() override;
    void EndDraw() override;
    // The image doesn't survive. Unlike the base's, the new size stands even if the surface can't be had.
    bool Resize(int width, int height) override;
    void FillEllipse(const double rect[4]) override;
    void StrokeRectangle(const double rect[4]) override;
    void SetFillColor(const float rgb[3]) override;
    void SetStrokeColor(const float rgb[3]) override;
    void StrokeEllipse(const double rect[4]) override;
    void DrawLines(const double points[], int count, float width) override;
    [[nodiscard]] int GetRowBytes() const override;
    bool AllocateSurface() override;
    // The width for plain rows, otherwise the smallest power of two that holds it, at least 64. The pixels don't
    // lie by it: the canvas has its own distance between rows.
    int ComputeRowBytes(int width) override;

    // Null before the first size and without memory.
    [[nodiscard]] render::IRenderer2D* Surface() const { return mSurface.get(); }

private:
    std::unique_ptr<render::IRenderer2D> mSurface;
};

} // namespace orvane::zephor
