// Makes a texture of a 2D surface's pixels.
#pragma once

#include "render/BitmapProcessingFunctor.h"
#include "render/IRenderer.h"

#include <utility>

namespace orvane::visualizer {

// A local object around one ReadPixels. The surface has four bytes a pixel.
class D3DTextureCreator final : public render::BitmapProcessingFunctor {
public:
    // Without a renderer no texture comes.
    explicit D3DTextureCreator(render::IRenderer* renderer)
        : mRenderer(renderer) {}

    void Process(void* pixels, int width, int height, int rowBytes, std::size_t byteCount) override;

    // The texture, once, or null; it can't be written later.
    [[nodiscard]] render::TexturePtr Take() { return render::TexturePtr(std::exchange(mResult, nullptr)); }

private:
    render::IRenderer* mRenderer;
    render::ITexture* mResult = nullptr;
};

} // namespace orvane::visualizer
