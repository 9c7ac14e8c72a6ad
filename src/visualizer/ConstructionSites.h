// The only places where an upper layer makes an object of a lower one: everything above draws through the
// interfaces and never names a class that is bound to the platform.
//
// Each is one small file, and every program links the ones that it runs on: visualizer/windows (Direct3D,
// Direct2D) in the product, visualizer/recording in native programs and in tests on either platform.
#pragma once

#include "platform/NativeWindow.h"
#include "render/IRenderer.h"
#include "render/IRenderer2D.h"
#include "render/ITextFormat.h"

#include <cstdint>
#include <memory>

namespace orvane::visualizer {

// A renderer that draws in `window`, with a target of that many pixels; null if it can't be set up.
[[nodiscard]] std::unique_ptr<render::IRenderer> MakeRenderer(std::uint32_t width, std::uint32_t height,
                                                              platform::NativeWindow window);

// A canvas in memory, zeroed: four bytes a pixel, premultiplied blue, green, red, alpha. Null if it can't be
// set up.
[[nodiscard]] std::unique_ptr<render::IRenderer2D> MakeSurface(std::uint32_t width, std::uint32_t height);

// Plain Arial (or what the platform has in its place) of `size` pixels, leading. For such canvases alone;
// null on failure.
[[nodiscard]] std::unique_ptr<render::ITextFormat> MakeTextFormat(float size);

} // namespace orvane::visualizer
