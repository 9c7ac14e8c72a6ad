// The pair of functors that brings the image's bytes to the graphics processor: one byte a pixel, which never
// takes another form on the way.
#pragma once

#include "render/BitmapProcessingFunctor.h"
#include "render/IRenderer.h"

#include <cstddef>
#include <utility>

namespace orvane::zephor {

// Makes a texture of a surface's bytes. A local object around one ReadPixels.
class CreateTextureFunctor final : public render::BitmapProcessingFunctor {
public:
    explicit CreateTextureFunctor(render::IRenderer& renderer)
        : mRenderer(renderer) {}

    void Process(void* pixels, int width, int height, int rowBytes, std::size_t byteCount) override;

    // The texture, once; null if there was no lock or the renderer refused.
    [[nodiscard]] render::TexturePtr Take() { return std::move(mTexture); }

private:
    render::IRenderer& mRenderer;
    render::TexturePtr mTexture;
};

// Rewrites a texture, of the surface's size and made by the functor above, from a surface's bytes.
class UpdateTextureFunctor final : public render::BitmapProcessingFunctor {
public:
    explicit UpdateTextureFunctor(render::ITexture& texture)
        : mTexture(texture) {}

    void Process(void* pixels, int width, int height, int rowBytes, std::size_t byteCount) override;

private:
    render::ITexture& mTexture;
};

} // namespace orvane::zephor
