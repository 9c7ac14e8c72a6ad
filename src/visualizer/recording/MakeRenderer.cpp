#include "visualizer/ConstructionSites.h"
#include "visualizer/recording/RecordingSites.h"

namespace orvane::visualizer {

RecordingSites& SitesInForce() {
    static RecordingSites sSites;
    return sSites;
}

std::unique_ptr<render::IRenderer> MakeRenderer(std::uint32_t width, std::uint32_t height,
                                                platform::NativeWindow window) {
    RecordingSites& sites = SitesInForce();
    sites.lastWindow = window;
    if (sites.refuseRenderer) return nullptr;
    render::RecordingOptions options = sites.options;
    options.width = width;
    options.height = height;
    auto renderer = std::make_unique<render::RecordingRenderer>(options);
    renderer->Refuse(render::Refusal::VertexBuffer, sites.refuseVertexBuffer);
    return renderer;
}

} // namespace orvane::visualizer
