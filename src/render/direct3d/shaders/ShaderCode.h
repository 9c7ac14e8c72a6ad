// The compiled shaders, as tools/bake-shaders makes them from the sources beside this file.
#pragma once

#include "render/CRenderingPipeline.h"

namespace orvane::render {

// Shader model 4.0 code of a set's stages.
[[nodiscard]] ShaderSetCode ShaderCodeOf(ShaderSet set);

} // namespace orvane::render
