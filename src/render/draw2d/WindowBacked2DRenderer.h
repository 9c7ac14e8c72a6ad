// The 2D canvas on a window, through which the caption is painted.
#pragma once

#include "render/draw2d/WRenderer2D.h"

#include <memory>

namespace orvane::render {

class WindowBacked2DRenderer final : public WRenderer2D {
public:
    // Makes the surface on that window, of that size in pixels.
    SurfaceStatus InitializeSurface(std::uint32_t width, std::uint32_t height, HWND window);

    // A size without area, which a minimised window has, leaves the surface as it is: a platform may refuse it,
    // and then crash in the next drawing on the target that it left without pixels.
    void Resize(std::uint32_t width, std::uint32_t height) override;

private:
    Microsoft::WRL::ComPtr<ID2D1HwndRenderTarget> mWindowTarget; // the same object as the target
};

// A canvas on that window, of that size in pixels. Null on failure; `status` gets a SurfaceStatus in any case.
[[nodiscard]] std::unique_ptr<IRenderer2D>
CreateWindowBacked2DRenderer(std::uint32_t width, std::uint32_t height, HWND window, std::uint32_t* status);

} // namespace orvane::render
