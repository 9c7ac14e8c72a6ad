// What a RecordingRenderer writes down.
#pragma once

#include "render/Matrix.h"
#include "render/recording/RecordedImage.h"

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

namespace orvane::render {

class ITexture;

// Everything that decides what a draw shows.
struct DrawRecord {
    int bufferId = 0;
    std::uint32_t kind = 0;        // PipelineKind as built: 8 and 16 for the aliases
    std::uint32_t primitive = 0;   // in force: kNoValue if no draw has set any
    std::uint32_t firstVertex = 0; // as given
    std::uint32_t vertexCount = 0; // as given
    std::uint32_t floatsPerVertex = 0;
    std::vector<float> vertices; // of the range as far as the buffer holds it; empty if they aren't kept

    std::optional<Matrix> matrix;      // bound to the vertex stage
    std::uint32_t blendMode = 0;       // as the device blends
    std::array<float, 4> tint{};       // the colour last set
    bool tintBound = false;            // false: the fragment stage sees zeros, or dims
    std::array<float, 2> dims{};       // set F with a texture: its size as the fragment stage sees it, else 0
    const ITexture* texture = nullptr; // as given; it may be gone by now
    std::array<RecordedImagePtr, 2> unitImages; // at texture units 0 and 1; null where nothing is bound
    std::uint32_t samplers = 0;                 // bound from slot 0
    bool geometryStage = false;
    bool wireframe = false;
    double viewportWidth = 0, viewportHeight = 0;

    // One vertex of the kept ones, counted from firstVertex.
    [[nodiscard]] std::span<const float> Vertex(std::size_t index) const {
        return std::span(vertices).subspan(index * floatsPerVertex, floatsPerVertex);
    }

    [[nodiscard]] std::size_t KeptVertices() const {
        return floatsPerVertex == 0 ? 0 : vertices.size() / floatsPerVertex;
    }
};

using ClearRecord = std::array<float, 4>;

// What the device was told, in order. Accesses to buffers and the binding of constants are not listed: the
// draws show what came of them.
enum class DeviceCall {
    BeginFrame,
    Clear,           // value: index in Clears()
    Draw,            // value: index in Draws()
    Present,         // value: 0
    Viewport,        // value: index in Viewports()
    ResizeTarget,    // value: index in Targets()
    SetWireframe,    // value: 0 or 1
    SetBlendState,   // value: the mode
    ClearBlendState, // value: 0
    SetFullScreen,   // value: 0 or 1
};

struct DeviceCallRecord {
    DeviceCall call;
    std::size_t value = 0;

    bool operator==(const DeviceCallRecord&) const = default;
};

struct ViewportRecord {
    double x = 0, y = 0, width = 0, height = 0;

    bool operator==(const ViewportRecord&) const = default;
};

struct TargetRecord {
    std::uint32_t width = 0, height = 0;

    bool operator==(const TargetRecord&) const = default;
};

} // namespace orvane::render
