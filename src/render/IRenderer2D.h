// The small 2D canvas of the system: lines, rectangles, ellipses, text and images, on a window or on a bitmap
// in memory. Everything above draws through this contract; what stands below it is one class for each
// platform or pixel format.
//
// Coordinates are in pixels, y down; pixel (i, j) covers the square from (i, j) to (i + 1, j + 1).
// A rectangle is four doubles: x, y, width, height. A colour is four doubles from 0 to 1: red, green, blue,
// alpha, held as floats. Strokes lie centred on their path.
//
// A canvas without a surface to draw on does nothing in every operation. Nothing is printed on failure: what
// creates returns null, what draws leaves the surface as it was.
//
// No locks: a canvas is used by one thread at a time, whichever draws the frame.
#pragma once

#include "render/BitmapProcessingFunctor.h"
#include "render/IBitMap2D.h"
#include "render/ITextFormat.h"

#include <cstdint>

// The Windows headers turn this name into another one, and a class would then override nothing.
#ifdef DrawText
#    undef DrawText
#endif

namespace orvane::render {

// The order of the operations is part of the contract.
class IRenderer2D {
public:
    // Releases the surface and everything held for it.
    virtual ~IRenderer2D() = default;

    // Fits the canvas to a new window size in pixels. Empty for a canvas in memory, which keeps its size.
    virtual void Resize(std::uint32_t width, std::uint32_t height) = 0;

    // The colour of lines and outlines from now on. It starts as opaque black.
    virtual void SetStrokeColor(double red, double green, double blue, double alpha) = 0;

    // The colour of fills and of text from now on. It starts as opaque white.
    virtual void SetFillColor(double red, double green, double blue, double alpha) = 0;

    // Draws `count` segments of four doubles each (x0, y0, x1, y1), `width` pixels wide with flat ends, in
    // the stroke colour, each over what the ones before it left. Nothing is joined: a connected trace repeats
    // its points. Nothing is drawn unless `count` is at least 1 and `width` above 0.
    virtual void DrawLines(const double segments[], int count, float width) = 0;

    // The outline of the rectangle, 1 pixel wide, in the stroke colour.
    virtual void StrokeRectangle(const double rect[4]) = 0;

    // The rectangle, in the fill colour.
    virtual void FillRectangle(const double rect[4]) = 0;

    // The ellipse within the rectangle, in the fill colour: its centre is the rectangle's centre, its radii
    // are half the sides.
    virtual void FillEllipse(const double rect[4]) = 0;

    // The outline of that ellipse, 1 pixel wide, in the stroke colour.
    virtual void StrokeEllipse(const double rect[4]) = 0;

    // Locks the surface, calls the functor once with its bytes and unlocks it. The functor isn't called if a
    // step fails, nor for a window, which keeps its pixels to itself.
    virtual void ReadPixels(BitmapProcessingFunctor& functor) = 0;

    // Starts a drawing. What was drawn before stays. Every drawing operation stands between this and EndDraw.
    virtual void BeginDraw() = 0;

    // Ends it. True means that the surface was lost and must be made again; false is anything else, failures
    // included.
    virtual bool EndDraw() = 0;

    // Sets `length` UTF-16 units of text within the rectangle, in the fill colour. Text isn't clipped to the
    // rectangle. Nothing if the text or the format is null or the length 0.
    virtual void DrawText(const char16_t* text, std::uint32_t length, ITextFormat* format,
                          const double rect[4]) = 0;

    // An image from packed text rows (see render/PackedRows.h): four strings for each row of pixels, all
    // zero-terminated. Null without rows, for fewer than four strings, for a width below 1 and on failure.
    // The caller owns the result.
    virtual IBitMap2D* CreateBitmapFromPackedRows(const char* const rows[], std::uint64_t rowCount) = 0;

    // An image from the bytes of an image file of any format that the platform decodes. Null without data and
    // if any step fails. The data isn't needed afterwards. The caller owns the result.
    virtual IBitMap2D* CreateBitmapFromImageData(const void* data, std::uint32_t size) = 0;

    // Scales the whole image into the rectangle, with linear interpolation, over what is there. Nothing for a
    // null image or an opacity of 0 or less; an opacity above 1 counts as 1.
    virtual void DrawBitmap(IBitMap2D* bitmap, float opacity, const double rect[4]) = 0;
};

} // namespace orvane::render
