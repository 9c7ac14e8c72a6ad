// Surfaces in memory that nobody draws on any more, kept for the next ones that they are large enough for.
//
// A visualizer makes a surface for each text that it shows, of a handful of sizes and some that follow the window's,
// and gives it up once the text is a texture. Making one takes about a millisecond, in the middle of a frame; and of
// each that goes, Wine's component keeps 4 KB for good.
#pragma once

#include "render/draw2d/Direct2D.h"

#include <cstdint>
#include <optional>

namespace orvane::render {

// What makes up a surface.
struct LayerSurface {
    std::uint32_t width = 0, height = 0; // pixels
    Microsoft::WRL::ComPtr<IWICBitmap> bitmap;
    Microsoft::WRL::ComPtr<ID2D1RenderTarget> target; // draws into the bitmap
    Microsoft::WRL::ComPtr<ID2D1SolidColorBrush> fillBrush, strokeBrush;
};

// Both under the lock of drawing, which the caller holds.

// The smallest that has at least that size, and at most four times its pixels: all zeroes, its brushes in whatever
// colour they were. Nothing if none is kept.
[[nodiscard]] std::optional<LayerSurface> TakeSpareSurface(std::uint32_t width, std::uint32_t height);

// Keeps one that is whole, with no drawing begun. The one kept longest goes when there are too many.
void KeepSpareSurface(LayerSurface surface);

} // namespace orvane::render
