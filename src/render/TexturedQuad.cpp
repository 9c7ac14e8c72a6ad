#include "render/TexturedQuad.h"

namespace orvane::render {
namespace {

// Depth of every panel, in clip space; nothing is tested against it.
constexpr float kQuadDepth = 0.1f;

// From the unit interval to clip space.
float ClipEdge(double edge) {
    return static_cast<float>(2 * edge - 1);
}

} // namespace

TexturedQuad MakeTexturedQuad(const double destination[4], const double source[4]) {
    const float left = ClipEdge(destination[0]), right = ClipEdge(destination[0] + destination[2]);
    const float bottom = ClipEdge(destination[1]), top = ClipEdge(destination[1] + destination[3]);
    const auto u0 = static_cast<float>(source[0]), u1 = static_cast<float>(source[0] + source[2]);
    const auto v0 = static_cast<float>(source[1]), v1 = static_cast<float>(source[1] + source[3]);
    return { {
        { right, bottom, kQuadDepth, u1, v1 },
        { right, top, kQuadDepth, u1, v0 },
        { left, bottom, kQuadDepth, u0, v1 },
        { left, top, kQuadDepth, u0, v0 },
    } };
}

} // namespace orvane::render
