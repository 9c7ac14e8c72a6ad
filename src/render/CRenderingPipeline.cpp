#include "render/CRenderingPipeline.h"

#include "render/IRenderer.h"

namespace orvane::render {

CRenderingPipeline::CRenderingPipeline(const PipelineRow& row, const ShaderSetCode& code)
    : IRenderingPipeline(row.kind)
    , mRow(row)
    , mCode(code)
    , mRememberedBlendMode(kBlendMode_Off) {}

bool CRenderingPipeline::AttachFunctions(IRenderer* /*renderer*/, IVertexFunction* vertex,
                                         IFragmentFunction* fragment, IGeometryFunction* geometry) {
    mVertex.reset(vertex);
    mFragment.reset(fragment);
    mGeometry.reset(geometry);
    return true;
}

bool CRenderingPipeline::BuildFunctions(IRenderer* renderer) {
    if (renderer == nullptr) return false;
    const ShaderSetRow& set = ShaderSetRowOf(mRow.set);
    std::unique_ptr<IVertexFunction> vertex(
        renderer->CreateVertexFunction(mCode.vertex.data(), mCode.vertex.size(), set.vertexName));
    if (!vertex) return false;
    std::unique_ptr<IFragmentFunction> fragment(
        renderer->CreateFragmentFunction(mCode.fragment.data(), mCode.fragment.size(), set.fragmentName));
    if (!fragment) return false;
    if (set.samplerName != nullptr) {
        if (ISamplerState* const sampler = renderer->CreateLinearSamplerState(set.samplerName))
            fragment->AddSamplerState(sampler);
    }
    std::unique_ptr<IGeometryFunction> geometry;
    if (set.geometryName != nullptr) {
        geometry.reset(
            renderer->CreateGeometryFunction(mCode.geometry.data(), mCode.geometry.size(), set.geometryName));
        if (!geometry) return false;
    }
    return AttachFunctions(renderer, vertex.release(), fragment.release(), geometry.release());
}

void CRenderingPipeline::BeginPipeline(IRenderer* renderer) {
    mRememberedBlendMode = renderer->SetBlendMode(mRow.blendMode);
}

void CRenderingPipeline::EndPipeline(IRenderer* renderer) {
    renderer->SetBlendMode(mRememberedBlendMode);
}

} // namespace orvane::render
