#include "zephor/layers/TextureFunctors.h"

#include "render/Enumerations.h"

#include <cstdint>

namespace orvane::zephor {

void CreateTextureFunctor::Process(void* pixels, int width, int height, int rowBytes, std::size_t) {
    constexpr std::uint32_t kUnit = 0;
    constexpr bool kDynamic = true;
    mTexture.reset(mRenderer.CreateTexture(pixels, std::uint32_t(width), std::uint32_t(height),
                                           std::uint32_t(rowBytes), 0, render::kPixelFormat_R8UInt,
                                           "Zephor Indexed texture", kUnit, kDynamic));
}

void UpdateTextureFunctor::Process(void* pixels, int width, int height, int rowBytes, std::size_t) {
    const double size[2] = { double(width), double(height) };
    mTexture.UpdateContents(pixels, size, std::uint64_t(rowBytes), 0, render::kPixelFormat_R8UInt);
}

void UploadIndexImage(ZephorIndexLayer& layer, render::IRenderer& renderer, render::TexturePtr& texture) {
    if (!layer.Surface()) return;
    if (texture) {
        UpdateTextureFunctor update(*texture);
        layer.Surface()->ReadPixels(update);
        return;
    }
    CreateTextureFunctor create(renderer);
    layer.Surface()->ReadPixels(create);
    texture = create.Take();
}

} // namespace orvane::zephor
