#include "render/draw2d/WBitMap2D.h"

#include <utility>

namespace orvane::render {

WBitMap2D::WBitMap2D(Microsoft::WRL::ComPtr<ID2D1Bitmap> bitmap)
    : mBitmap(std::move(bitmap)) {}

// In pixels, not in the units of the image's own resolution.
void WBitMap2D::GetSize(double out[2]) {
    const D2D1_SIZE_U size = mBitmap ? mBitmap->GetPixelSize() : D2D1_SIZE_U{};
    out[0] = size.width;
    out[1] = size.height;
}

} // namespace orvane::render
