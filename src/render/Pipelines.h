// The table of all pipelines: what each kind is called, which shader set it runs and how it blends; and of
// each shader set the vertex layout, the names of its stages and its sampler. Every realisation reads these.
#pragma once

#include <cstdint>
#include <span>

namespace orvane::render {

enum class ShaderSet : std::uint8_t { A, B, C, D, E, F };

constexpr std::size_t kShaderSets = 6;

struct PipelineRow {
    std::uint32_t kind; // PipelineKind
    const char* label;
    const char* className;
    ShaderSet set;
    std::uint32_t blendMode; // BlendMode of every draw
};

// One element of a vertex: `components` 32-bit floats at `offset` bytes.
struct VertexElement {
    const char* semantic;
    std::uint32_t components;
    std::uint32_t offset;
};

// The name of a missing stage or sampler is null. Samplers are linear, in sampler slot 0.
struct ShaderSetRow {
    ShaderSet set;
    std::uint32_t stride; // bytes of a vertex
    std::span<const VertexElement> elements;
    const char* vertexName;
    const char* fragmentName;
    const char* geometryName;
    const char* samplerName;
    bool usesMatrices; // false: vertices are in clip space already
};

[[nodiscard]] std::span<const PipelineRow> PipelineRows();

// The row of a kind as GetPipeline takes it: 9 finds the row of 8 and 17 that of 16. Null above 19.
[[nodiscard]] const PipelineRow* FindPipelineRow(std::uint32_t kind);

[[nodiscard]] const ShaderSetRow& ShaderSetRowOf(ShaderSet set);

} // namespace orvane::render
