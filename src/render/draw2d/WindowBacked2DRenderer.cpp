#include "render/draw2d/WindowBacked2DRenderer.h"

#include "render/draw2d/DrawingLock.h"
#include "render/draw2d/Factories.h"

#include <utility>

namespace orvane::render {

using Microsoft::WRL::ComPtr;

SurfaceStatus WindowBacked2DRenderer::InitializeSurface(std::uint32_t width, std::uint32_t height,
                                                        HWND window) {
    const DrawingLock lock;
    ReleaseTarget();
    mWindowTarget.Reset();
    ID2D1Factory* const factory = Direct2DFactory();
    if (!factory) return kSurface_NoDirect2DFactory;
    ComPtr<ID2D1HwndRenderTarget> target;
    if (FAILED(factory->CreateHwndRenderTarget(D2D1::RenderTargetProperties(),
                                               D2D1::HwndRenderTargetProperties(window, { width, height }),
                                               &target)))
        return kSurface_NoRenderTarget;
    const SurfaceStatus status = TakeTarget(target, width, height);
    if (status == kSurface_Success) mWindowTarget = std::move(target);
    return status;
}

void WindowBacked2DRenderer::Resize(std::uint32_t width, std::uint32_t height) {
    if (!mWindowTarget || width == 0 || height == 0) return;
    const DrawingLock lock;
    // What a failure leaves undrawn, the next EndDraw reports.
    static_cast<void>(mWindowTarget->Resize({ width, height }));
    mWidth = width;
    mHeight = height;
}

std::unique_ptr<IRenderer2D> CreateWindowBacked2DRenderer(std::uint32_t width, std::uint32_t height,
                                                          HWND window, std::uint32_t* status) {
    auto canvas = std::make_unique<WindowBacked2DRenderer>();
    const SurfaceStatus result = canvas->InitializeSurface(width, height, window);
    if (status) *status = result;
    if (result != kSurface_Success) return nullptr;
    return canvas;
}

} // namespace orvane::render
