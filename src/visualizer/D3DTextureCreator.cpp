#include "visualizer/D3DTextureCreator.h"

#include <cstdint>

namespace orvane::visualizer {

void D3DTextureCreator::Process(void* pixels, int width, int height, int rowBytes, std::size_t) {
    if (!mRenderer) return;
    mResult =
        mRenderer->CreateTexture(pixels, std::uint32_t(width), std::uint32_t(height), std::uint32_t(rowBytes),
                                 0, render::kPixelFormat_BGRA8, "Track Info", 0, false);
}

} // namespace orvane::visualizer
