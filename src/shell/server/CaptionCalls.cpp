#include "shell/server/CaptionCalls.h"

#include "render/draw2d/SurfaceStatus.h"
#include "render/draw2d/WTextFormat.h"
#include "render/draw2d/WindowBacked2DRenderer.h"

namespace orvane::shell {

static_assert(kRenderTargetMade == render::kSurface_Success);

constinit const CaptionCalls kPlatformCaptionCalls = {
    &render::CreateWindowBacked2DRenderer,
    &render::CreateTextFormat,
};

} // namespace orvane::shell
