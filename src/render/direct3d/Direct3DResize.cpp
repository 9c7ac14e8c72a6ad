// Direct3DRenderer: the target rebuilt to another size.
#include "render/direct3d/Direct3DRenderer.h"

#include <limits>

namespace orvane::render {
namespace {

// Whole pixels, cut; 0 for what is no size.
UINT PixelsOf(double length) {
    constexpr auto kMost = std::numeric_limits<UINT>::max();
    if (!(length > 0)) return 0;
    return length < double(kMost) ? static_cast<UINT>(length) : kMost;
}

} // namespace

// KEEP: clearing the context unbinds the blend state, yet the blend mode and the note that a state is set
// stay as they are, and the states are not set again. So a mode that was selected across a resize is told but
// not in force until another is selected.
// By design: each draw selects its pipeline's mode, and visualizers leave the mode as they found it, off.
// Pinned by ResizeRenderTarget.KeepsTheBlendModeButNotTheStateOnTheDevice.
//
// A size of 0 is passed on as it stands: the platform then takes the window's own.
void Direct3DRenderer::ResizeRenderTarget(const double rect[4]) {
    if (!mParts.context) return;
    mParts.context->ClearState();
    mParts.context->OMSetRenderTargets(0, nullptr, nullptr);
    mRenderTarget.Reset(); // the platform resizes only what nobody holds
    constexpr UINT kNoFlags = 0;
    const HRESULT status = mParts.swapChain->ResizeBuffers(kBackBuffers, PixelsOf(rect[2]), PixelsOf(rect[3]),
                                                           DXGI_FORMAT_UNKNOWN /* as it is */, kNoFlags);
    if (FAILED(status) || !TakeBackBufferAsTarget()) return; // no target until the next resize
    SetWireframe(false);
    SetViewport(rect);
}

} // namespace orvane::render
