// The index image as a texture, one byte a texel, for the stage that looks up the colours.
#pragma once

#include "render/BitmapProcessingFunctor.h"
#include "render/IRenderer.h"
#include "zephor/layers/ZephorIndexLayer.h"

#include <utility>

namespace orvane::zephor {

// Makes a texture, which can be rewritten, of a surface's bytes. A local object around one ReadPixels.
class CreateTextureFunctor final : public render::BitmapProcessingFunctor {
public:
    explicit CreateTextureFunctor(render::IRenderer& renderer)
        : mRenderer(renderer) {}

    void Process(void* pixels, int width, int height, int rowBytes, std::size_t byteCount) override;

    // The texture, once, or null.
    [[nodiscard]] render::TexturePtr Take() { return std::move(mTexture); }

private:
    render::TexturePtr mTexture;
    render::IRenderer& mRenderer;
};

// Rewrites the texture from a surface's bytes.
class UpdateTextureFunctor final : public render::BitmapProcessingFunctor {
public:
    explicit UpdateTextureFunctor(render::ITexture& texture)
        : mTexture(texture) {}

    void Process(void* pixels, int width, int height, int rowBytes, std::size_t byteCount) override;

private:
    render::ITexture& mTexture;
};

// Brings the layer's image into `texture`, which is made if it is null; whoever changes the layer's size releases
// it. Without a surface nothing happens, and a texture that can't be had is tried again with the next call.
void UploadIndexImage(ZephorIndexLayer& layer, render::IRenderer& renderer, render::TexturePtr& texture);

} // namespace orvane::zephor
