#include "render/direct3d/Direct3DRenderer.h"
#include "visualizer/ConstructionSites.h"

namespace orvane::visualizer {

std::unique_ptr<render::IRenderer> MakeRenderer(std::uint32_t width, std::uint32_t height,
                                                platform::NativeWindow window) {
    auto renderer = std::make_unique<render::Direct3DRenderer>();
    if (!renderer->Create(width, height, window)) return nullptr;
    return renderer;
}

} // namespace orvane::visualizer
