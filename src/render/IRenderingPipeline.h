// A vertex layout, shader stages and a blend mode under one kind. Made only by IRenderer::GetPipeline and
// owned by that renderer; its users pass it on to CreateVertexBuffer and ask nothing of it.
#pragma once

#include "render/IRenderingFunction.h"

#include <cstdint>

namespace orvane::render {

class IRenderer;

class IRenderingPipeline {
public:
    IRenderingPipeline(const IRenderingPipeline&) = delete;
    IRenderingPipeline& operator=(const IRenderingPipeline&) = delete;

    // Slot 0. Takes ownership of the stages; `geometry` may be null. True.
    virtual bool AttachFunctions(IRenderer* renderer, IVertexFunction* vertex, IFragmentFunction* fragment,
                                 IGeometryFunction* geometry) = 0;

    // Slots 1 to 10. Reserved: false.
    virtual bool Reserved1() { return false; }

    virtual bool Reserved2() { return false; }

    virtual bool Reserved3() { return false; }

    virtual bool Reserved4() { return false; }

    virtual bool Reserved5() { return false; }

    virtual bool Reserved6() { return false; }

    virtual bool Reserved7() { return false; }

    virtual bool Reserved8() { return false; }

    virtual bool Reserved9() { return false; }

    virtual bool Reserved10() { return false; }

    // Slot 11. Reserved: the argument.
    virtual std::uint32_t Reserved11(std::uint32_t value) { return value; }

    // Slots 12 to 15. Reserved: ~0.
    virtual std::uint32_t Reserved12() { return ~0u; }

    virtual std::uint32_t Reserved13() { return ~0u; }

    virtual std::uint32_t Reserved14() { return ~0u; }

    virtual std::uint32_t Reserved15() { return ~0u; }

    // Slots 16 to 18. The attached stages, null before AttachFunctions; the geometry stage is mostly null.
    virtual IVertexFunction* GetVertexFunction() = 0;
    virtual IFragmentFunction* GetFragmentFunction() = 0;
    virtual IGeometryFunction* GetGeometryFunction() = 0;

    // Slot 19. Reserved: ~0.
    virtual std::uint32_t Reserved19() { return ~0u; }

    // Slot 20. Deletes the attached stages.
    virtual ~IRenderingPipeline() = default;

    // The kind that this pipeline was built as, never one of the aliases 9 and 17.
    [[nodiscard]] std::uint32_t Kind() const { return mKind; }

protected:
    explicit IRenderingPipeline(std::uint32_t kind)
        : mKind(kind) {}

private:
    std::uint32_t mKind;
};

} // namespace orvane::render
