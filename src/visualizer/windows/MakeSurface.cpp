#include "render/draw2d/LayerBacked2DRenderer.h"
#include "render/draw2d/WTextFormat.h"
#include "visualizer/ConstructionSites.h"

namespace orvane::visualizer {

std::unique_ptr<render::IRenderer2D> MakeSurface(std::uint32_t width, std::uint32_t height) {
    auto surface = std::make_unique<render::LayerBacked2DRenderer>();
    if (surface->InitializeSurface(width, height, false) != render::kSurface_Success) return nullptr;
    return surface;
}

std::unique_ptr<render::ITextFormat> MakeTextFormat(float size) {
    return render::CreateTextFormat(size);
}

} // namespace orvane::visualizer
