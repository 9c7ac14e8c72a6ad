// The pipeline that every realisation uses: a row of the table, the stages built from compiled code, and the
// blend mode around each draw. What differs from one graphics interface to the next is the code alone.
#pragma once

#include "render/IRenderingPipeline.h"
#include "render/Pipelines.h"

#include <cstddef>
#include <memory>
#include <span>

namespace orvane::render {

// Compiled code of one shader set; empty where the set has no such stage. It is only referred to.
struct ShaderSetCode {
    std::span<const std::byte> vertex, fragment, geometry;
};

class CRenderingPipeline : public IRenderingPipeline {
public:
    // `row` stays where it is: it is one of PipelineRows().
    CRenderingPipeline(const PipelineRow& row, const ShaderSetCode& code);

    bool AttachFunctions(IRenderer* renderer, IVertexFunction* vertex, IFragmentFunction* fragment,
                         IGeometryFunction* geometry) override;

    IVertexFunction* GetVertexFunction() override { return mVertex.get(); }

    IFragmentFunction* GetFragmentFunction() override { return mFragment.get(); }

    IGeometryFunction* GetGeometryFunction() override { return mGeometry.get(); }

    // Slot 21. Makes the stages by `renderer` and attaches them. False for null, or if a stage that the set
    // has can't be made; those made before it are gone then. A missing sampler is no failure.
    virtual bool BuildFunctions(IRenderer* renderer);

    // Slots 22 and 23. Set this pipeline's blend mode, remembering the old one, and set that one again.
    virtual void BeginPipeline(IRenderer* renderer);
    virtual void EndPipeline(IRenderer* renderer);

    [[nodiscard]] const PipelineRow& Row() const { return mRow; }

private:
    const PipelineRow& mRow;
    const ShaderSetCode mCode;
    std::unique_ptr<IVertexFunction> mVertex;
    std::unique_ptr<IFragmentFunction> mFragment;
    std::unique_ptr<IGeometryFunction> mGeometry;
    std::uint32_t mRememberedBlendMode;
};

} // namespace orvane::render
