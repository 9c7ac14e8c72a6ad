// A vertex buffer as every realisation knows it; a realisation adds the buffer itself.
#pragma once

#include "render/CRenderingPipeline.h"
#include "render/IVAO.h"

#include <cstdint>

namespace orvane::render {

struct VertexDescription {
    CRenderingPipeline* pipeline; // the renderer's; never null
    std::uint32_t stride;         // bytes of a vertex
    std::uint32_t vertexCount;
    std::uint32_t sizeInBytes;
    std::uint32_t primitive; // PrimitiveKind
    bool usesMatrices;       // false: the vertices are in clip space and no matrix is written for a draw
    const char* name;        // for people; good during the making of the object
};

class VertexObject : public IVAO {
public:
    explicit VertexObject(const VertexDescription& description)
        : mDescription(description) {}

    [[nodiscard]] const VertexDescription& Description() const { return mDescription; }

private:
    const VertexDescription mDescription;
};

} // namespace orvane::render
