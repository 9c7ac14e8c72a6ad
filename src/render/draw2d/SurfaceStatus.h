// What came of making a surface to draw on.
#pragma once

#include <cstdint>

namespace orvane::render {

enum SurfaceStatus : std::uint32_t {
    kSurface_Success = 1,
    kSurface_NoDirect2DFactory = 2,
    kSurface_NoImagingFactory = 3,
    kSurface_NoBitmap = 4,
    kSurface_NoRenderTarget = 5,
    kSurface_NoFillBrush = 6,
    kSurface_NoStrokeBrush = 7,
    kSurface_NoTextFactory = 8,
};

} // namespace orvane::render
