// The portable canvas of the feedback images: one byte for each pixel, which is alpha and nothing else.
//
// Lines, rectangles and ellipses are drawn with exact coverage, antialiased, and make the same bytes on every
// platform. A colour counts by its alpha: coverage times alpha, rounded to a byte, goes over what is there
// (Over() in Coverage.h), so an opaque shape sets what it covers whole to 255.
//
// Strokes lie centred on their path. A segment has flat ends; the corners of a framed rectangle are mitred.
// Shapes of no extent, with a negative size, or with a coordinate that isn't finite draw nothing; the frame
// of a rectangle or ellipse of size 0 is what its pen covers. Everything is clipped at the edges.
//
// There is no text and there are no images on such a surface: DrawText and DrawBitmap draw nothing, and what
// makes a bitmap gives null.
#pragma once

#include "render/IRenderer2D.h"
#include "render/canvas/Coverage.h"
#include "render/canvas/PolygonFill.h"

#include <cstddef>
#include <cstdint>
#include <memory>

namespace orvane::render {

class CoverageCanvas final : public IRenderer2D {
public:
    static constexpr int kMostPixels = 16384; // a side

    // A canvas of zeros. Null for a side below 1 or above kMostPixels, and without memory.
    [[nodiscard]] static std::unique_ptr<CoverageCanvas> Create(int width, int height);

    void Resize(std::uint32_t width, std::uint32_t height) override; // empty
    void SetStrokeColor(double red, double green, double blue, double alpha) override;
    void SetFillColor(double red, double green, double blue, double alpha) override;
    void DrawLines(const double segments[], int count, float width) override;
    void StrokeRectangle(const double rect[4]) override;
    void FillRectangle(const double rect[4]) override;
    void FillEllipse(const double rect[4]) override;
    void StrokeEllipse(const double rect[4]) override;
    // Hands out one byte for each pixel. Between width and rowBytes a row holds zeros; at least one such byte
    // follows the last column, and CoverageSurface::kRowPadding in all. They are to stay zero.
    void ReadPixels(BitmapProcessingFunctor& functor) override;
    void BeginDraw() override; // empty
    bool EndDraw() override;   // always false: memory is never lost
    void DrawText(const char16_t* text, std::uint32_t length, ITextFormat* format,
                  const double rect[4]) override; // draws nothing
    IBitMap2D* CreateBitmapFromPackedRows(const char* const rows[], std::uint64_t rowCount) override; // null
    IBitMap2D* CreateBitmapFromImageData(const void* data, std::uint32_t size) override;              // null
    void DrawBitmap(IBitMap2D* bitmap, float opacity, const double rect[4]) override; // draws nothing

private:
    CoverageCanvas() = default;

    // One that is no SegmentLot's: long, wide or partly far away.
    void DrawLongLine(const double segment[4], double width);

    std::unique_ptr<std::uint8_t[]> mPixels;
    std::size_t mByteCount = 0;
    CoverageSurface mSurface;
    float mStrokeOpacity255 = 255, mFillOpacity255 = 255;
    float mStrokeWidth = 1; // of rectangles and ellipses; no operation changes it
    PolygonFiller mFiller;
};

} // namespace orvane::render
