// A callback that receives the bytes of a 2D surface while the surface keeps them locked.
#pragma once

#include <cstddef>

namespace orvane::render {

class BitmapProcessingFunctor {
public:
    virtual ~BitmapProcessingFunctor() = default;

    // Called once by IRenderer2D::ReadPixels, with the lock held until it returns.
    // `pixels` is the first byte of the top row and may be written; `width` and `height` are in pixels;
    // `rowBytes` is the distance from row to row; `byteCount` is the size of the whole block. Whether a pixel
    // has one byte (alpha) or four (premultiplied blue, green, red, alpha) is known to whoever made the
    // surface.
    virtual void Process(void* pixels, int width, int height, int rowBytes, std::size_t byteCount) = 0;
};

// The common base of the functors that render from one surface into another; adds no operation.
class BaseBitmapProcessingFunctor : public BitmapProcessingFunctor {};

} // namespace orvane::render
