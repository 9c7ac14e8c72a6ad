// Rewrites a texture from a 2D surface's pixels.
#pragma once

#include "render/BitmapProcessingFunctor.h"
#include "render/ITexture.h"

namespace orvane::visualizer {

// A local object around one ReadPixels. The surface has four bytes a pixel; a null target stays unwritten.
class D3DTextureBlitter final : public render::BitmapProcessingFunctor {
public:
    explicit D3DTextureBlitter(render::ITexture* target)
        : mTarget(target) {}

    void Process(void* pixels, int width, int height, int rowBytes, std::size_t byteCount) override;

private:
    render::ITexture* mTarget;
};

} // namespace orvane::visualizer
