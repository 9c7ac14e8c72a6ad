#include "visualizer/D3DTextureBlitter.h"

#include "render/Enumerations.h"

#include <cstdint>

namespace orvane::visualizer {

void D3DTextureBlitter::Process(void* pixels, int width, int height, int rowBytes, std::size_t) {
    if (!mTarget) return;
    const double size[2] = { double(width), double(height) };
    mTarget->UpdateContents(pixels, size, std::uint64_t(rowBytes), 0, render::kPixelFormat_BGRA8);
}

} // namespace orvane::visualizer
