// The four vertices of DrawTexturedQuad.
#pragma once

#include <array>

namespace orvane::render {

// A vertex of shader set B.
struct TexturedVertex {
    float x, y, z, u, v;
};

static_assert(sizeof(TexturedVertex) == 20, "the stride of set B");

using TexturedQuad = std::array<TexturedVertex, 4>;

// A triangle strip that shows the `source` rectangle of a texture in the `destination` rectangle of clip
// space. Both are x, y, width, height in the unit square; y grows upward in the destination and downward in
// the source.
[[nodiscard]] TexturedQuad MakeTexturedQuad(const double destination[4], const double source[4]);

} // namespace orvane::render
