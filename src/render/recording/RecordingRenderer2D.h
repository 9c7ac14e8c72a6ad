// A canvas in memory that draws shapes and images in earnest and writes down the texts and images that it was
// given.
//
// Shapes have the coverage that the coverage canvas gives them, so their pixels are the same on every
// platform. There are no fonts here: a text is drawn as a row of solid boxes, one for each UTF-16 unit that
// is no space, each within a cell half as wide as the font size, on one line at the top of the rectangle.
// That shows where text is and which way it is aligned. Images are read from bitmap files and packed rows.
#pragma once

#include "render/IRenderer2D.h"
#include "render/PackedRows.h"
#include "render/canvas/CoverageCanvas.h"
#include "render/recording/DrawingLog.h"

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

namespace orvane::render {

enum class SurfaceFormat : std::uint8_t {
    Pbgra32, // four bytes, premultiplied: blue, green, red, alpha
    Alpha8,
};

class RecordingRenderer2D final : public IRenderer2D {
public:
    // A surface of zeros. Null for a side below 1 or above 16384. Without a log it has one of its own.
    [[nodiscard]] static std::unique_ptr<RecordingRenderer2D> Create(std::uint32_t width,
                                                                     std::uint32_t height,
                                                                     SurfaceFormat format,
                                                                     std::shared_ptr<DrawingLog> log = {});
    ~RecordingRenderer2D() override;

    [[nodiscard]] const DrawingLog& Log() const { return *mLog; }

    // One pixel in memory order, the first byte lowest.
    [[nodiscard]] std::uint32_t Pixel(std::uint32_t x, std::uint32_t y) const;

    // What a test decides: the next EndDraw tells that the surface is lost; the surface can't be locked.
    void LoseSurface() { mLost = true; }

    void RefuseLock(bool refuse) { mRefusesLock = refuse; }

    void Resize(std::uint32_t width, std::uint32_t height) override; // empty
    void SetStrokeColor(double red, double green, double blue, double alpha) override;
    void SetFillColor(double red, double green, double blue, double alpha) override;
    void DrawLines(const double segments[], int count, float width) override;
    void StrokeRectangle(const double rect[4]) override;
    void FillRectangle(const double rect[4]) override;
    void FillEllipse(const double rect[4]) override;
    void StrokeEllipse(const double rect[4]) override;
    void ReadPixels(BitmapProcessingFunctor& functor) override;
    void BeginDraw() override;
    bool EndDraw() override;

    // The format is a RecordingTextFormat.
    void DrawText(const char16_t* text, std::uint32_t length, ITextFormat* format,
                  const double rect[4]) override;
    IBitMap2D* CreateBitmapFromPackedRows(const char* const rows[], std::uint64_t rowCount) override;
    IBitMap2D* CreateBitmapFromImageData(const void* data, std::uint32_t size) override;
    void DrawBitmap(IBitMap2D* bitmap, float opacity, const double rect[4]) override;

private:
    using Colour = std::array<float, 4>; // red, green, blue, alpha
    using Source = std::array<float, 4>; // blue, green, red, alpha in 255ths, premultiplied

    RecordingRenderer2D(std::uint32_t width, std::uint32_t height, SurfaceFormat format,
                        std::shared_ptr<DrawingLog> log, std::unique_ptr<CoverageCanvas> mask);

    void PaintMask(const Colour& colour);
    void BlendPixel(std::size_t x, std::size_t y, const Source& source, float coverage);
    void DrawGlyphBoxes(const DrawnText& text);

    const std::uint32_t mWidth, mHeight;
    const std::size_t mPixelBytes;
    std::vector<std::uint8_t> mPixels;
    Colour mStroke{ 0, 0, 0, 1 }, mFill{ 1, 1, 1, 1 };
    const std::shared_ptr<DrawingLog> mLog;
    const std::unique_ptr<CoverageCanvas> mMask; // zeros between two shapes
    bool mLost = false, mRefusesLock = false;
};

} // namespace orvane::render
