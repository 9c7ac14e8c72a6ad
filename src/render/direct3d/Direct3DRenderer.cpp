#include "render/direct3d/Direct3DRenderer.h"

#include "render/direct3d/DeviceBuffers.h"

namespace orvane::render {
namespace {

constexpr std::uint32_t kColourBytes = 4 * sizeof(float);
constexpr std::uint32_t kMatrixBytes = sizeof(Matrix);
constexpr UINT kAllSamples = ~0u;

} // namespace

Direct3DRenderer::Direct3DRenderer() = default;

bool Direct3DRenderer::Create(std::uint32_t width, std::uint32_t height, platform::NativeWindow window) {
    if (!window) return false;
    Reset();
    const auto handle = static_cast<HWND>(window.handle);
    if (!CreateDeviceOnWindow(width, height, handle, mParts)) return false;
    if (!TakeBackBufferAsTarget()) return false;
    // From here on the renderer stands, whatever may be missing.
    const double wholeTarget[] = { 0, 0, double(width), double(height) };
    SetViewport(wholeTarget);
    if (!CreateConstants()) return true;
    SetWireframe(false);
    CreateBlendStates();
    LeaveAltEnterToProgram(mParts.device.Get(), handle);
    if (NeedsWindowCopy(handle)) mWindowCopy.emplace(mParts.device, handle);
    return true;
}

// The order counts: the platform wants a swap chain to be windowed when it goes, and pipelines and buffers
// go while the device is there.
Direct3DRenderer::~Direct3DRenderer() {
    if (mParts.swapChain) mParts.swapChain->SetFullscreenState(FALSE, nullptr);
    ReleasePipelines();
    mColourConstant.Reset();
    mMatrixConstant.Reset();
    ReleaseVertexObjects();
    mWindowCopy.reset();
    mRenderTarget.Reset();
    mParts.swapChain.Reset();
    mParts.context.Reset();
    for (auto& state : mBlendStates) state.Reset();
    mParts.device.Reset();
}

bool Direct3DRenderer::TakeBackBufferAsTarget() {
    mRenderTarget = ViewOfBackBuffer(mParts.device.Get(), mParts.swapChain.Get());
    if (!mRenderTarget) return false;
    mParts.context->OMSetRenderTargets(1, mRenderTarget.GetAddressOf(), nullptr);
    return true;
}

bool Direct3DRenderer::CreateConstants() {
    ID3D11Device* const device = mParts.device.Get();
    constexpr UINT kBind = D3D11_BIND_CONSTANT_BUFFER;
    return SUCCEEDED(CreateDynamicBuffer(device, kColourBytes, kBind, nullptr, mColourConstant)) &&
           SUCCEEDED(CreateDynamicBuffer(device, kMatrixBytes, kBind, nullptr, mMatrixConstant));
}

// The first that can't be made is the last that is tried.
void Direct3DRenderer::CreateBlendStates() {
    for (const BlendState state : { BlendState::Opaque, BlendState::Alpha, BlendState::Additive }) {
        auto& made = mBlendStates[static_cast<std::size_t>(state)];
        made = orvane::render::CreateBlendState(mParts.device.Get(), state);
        if (!made) return;
    }
}

void Direct3DRenderer::Present() {
    if (!mParts.swapChain) return;
    if (mWindowCopy && mWindowCopy->Show(mParts.context.Get(), mParts.swapChain.Get())) return;
    mParts.swapChain->Present(0, 0);
}

void Direct3DRenderer::Clear(const float colour[4]) {
    if (!mRenderTarget) return;
    const float opaque[] = { colour[0], colour[1], colour[2], 1.0f };
    mParts.context->ClearRenderTargetView(mRenderTarget.Get(), opaque);
}

void Direct3DRenderer::SetFullScreen(bool on) {
    mFullScreen = on;
    if (mParts.swapChain) mParts.swapChain->SetFullscreenState(on, nullptr);
}

// The context holds the only reference to the state.
void Direct3DRenderer::SetWireframe(bool on) {
    if (!mParts.device) return;
    mRasteriser.FillMode = on ? D3D11_FILL_WIREFRAME : D3D11_FILL_SOLID;
    ComPtr<ID3D11RasterizerState> state;
    if (SUCCEEDED(mParts.device->CreateRasterizerState(&mRasteriser, &state)))
        mParts.context->RSSetState(state.Get());
}

void Direct3DRenderer::ApplyBlendState(std::uint32_t mode) {
    if (!mParts.context) return;
    const BlendState state = mode == kBlendMode_Alpha ? BlendState::Alpha : BlendState::Additive;
    mParts.context->OMSetBlendState(mBlendStates[static_cast<std::size_t>(state)].Get(), nullptr,
                                    kAllSamples);
}

void Direct3DRenderer::ClearBlendState() {
    if (mParts.context) mParts.context->OMSetBlendState(nullptr, nullptr, kAllSamples);
}

void Direct3DRenderer::ApplyViewport(double width, double height) {
    if (!mParts.context) return;
    const D3D11_VIEWPORT viewport{ 0, 0, static_cast<float>(width), static_cast<float>(height), 0, 1 };
    mParts.context->RSSetViewports(1, &viewport);
}

} // namespace orvane::render
