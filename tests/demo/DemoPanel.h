// The 2D canvas's share of the demonstration: text, an image from a file, an image from packed rows, lines and
// round shapes, drawn once into a surface in memory and shown as a texture.
#pragma once

#include "render/IRenderer.h"

#include <cstdint>

namespace orvane::demo {

// Pixels: six squares of 200 in a row.
constexpr std::uint32_t kPanelWidth = 1200, kPanelHeight = 200;

// The panel, white and coloured on transparent. Null if the surface or the texture can't be made.
[[nodiscard]] render::TexturePtr MakePanel(render::IRenderer& renderer);

} // namespace orvane::demo
