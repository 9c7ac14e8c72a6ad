#include "render/recording/RecordingRenderer2D.h"
#include "render/recording/RecordingTextFormat.h"
#include "visualizer/ConstructionSites.h"
#include "visualizer/recording/RecordingSites.h"

namespace orvane::visualizer {

std::unique_ptr<render::IRenderer2D> MakeSurface(std::uint32_t width, std::uint32_t height) {
    const RecordingSites& sites = SitesInForce();
    if (sites.refuseSurface) return nullptr;
    return render::RecordingRenderer2D::Create(width, height, render::SurfaceFormat::Pbgra32, sites.drawing);
}

std::unique_ptr<render::ITextFormat> MakeTextFormat(float size) {
    if (SitesInForce().refuseTextFormat) return nullptr;
    return std::make_unique<render::RecordingTextFormat>(size);
}

} // namespace orvane::visualizer
