#include "zephor/visualizer/TextureFunctors.h"

#include "render/Enumerations.h"

#include <cstdint>

namespace orvane::zephor {

void CreateTextureFunctor::Process(void* pixels, int width, int height, int rowBytes, std::size_t) {
    constexpr std::uint32_t kReserved = 0, kTextureUnit = 0;
    constexpr bool kDynamic = true;
    mTexture.reset(mRenderer.CreateTexture(pixels, std::uint32_t(width), std::uint32_t(height),
                                           std::uint32_t(rowBytes), kReserved, render::kPixelFormat_R8UInt,
                                           "Zephor Indexed texture", kTextureUnit, kDynamic));
}

void UpdateTextureFunctor::Process(void* pixels, int width, int height, int rowBytes, std::size_t) {
    const double size[2] = { double(width), double(height) };
    mTexture.UpdateContents(pixels, size, std::uint64_t(rowBytes), 0, render::kPixelFormat_R8UInt);
}

} // namespace orvane::zephor
