// The 2D canvas on a bitmap in memory, from which panel textures are made.
#pragma once

#include "render/draw2d/WRenderer2D.h"

namespace orvane::render {

class LayerBacked2DRenderer final : public WRenderer2D {
public:
    // The surface is kept for one to come (SpareSurfaces.h), unless a drawing was left open or failed.
    ~LayerBacked2DRenderer() override;

    // Makes the surface, of that size in pixels and all zeroes, drawn on by the processor. Pixels are 32 bits,
    // premultiplied blue, green, red, alpha; with `alphaOnly` they are the 8 bits of the imaging component's
    // alpha format, where that is granted: a system that refuses it gives status 4. A surface that was there
    // is given up first, and a failure leaves none.
    SurfaceStatus InitializeSurface(std::uint32_t width, std::uint32_t height, bool alphaOnly);

    // The functor gets the bytes for writing; the whole bitmap stays locked until it returns.
    void ReadPixels(BitmapProcessingFunctor& functor) override;

private:
    SurfaceStatus MakeSurface(std::uint32_t width, std::uint32_t height, bool alphaOnly);

    // Takes a surface that was kept and is large enough, if there is one.
    bool TakeSpare(std::uint32_t width, std::uint32_t height);

    bool mAlphaOnly = false;
    std::uint32_t mBitmapWidth = 0, mBitmapHeight = 0; // pixels; at least the surface's own
    Microsoft::WRL::ComPtr<IWICBitmap> mBitmap;
};

} // namespace orvane::render
