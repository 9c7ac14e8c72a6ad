#include "render/direct3d/SwapChain.h"

namespace orvane::render {
namespace {

constexpr UINT kRefreshRate = 60; // Hz; asked for in full-screen modes only

DXGI_SWAP_CHAIN_DESC SwapChainDescription(std::uint32_t width, std::uint32_t height, HWND window) {
    DXGI_SWAP_CHAIN_DESC description{};
    description.BufferDesc.Width = width;
    description.BufferDesc.Height = height;
    description.BufferDesc.RefreshRate = { kRefreshRate, 1 };
    description.BufferDesc.Format = DXGI_FORMAT_R8G8B8A8_UNORM;
    description.BufferDesc.ScanlineOrdering = DXGI_MODE_SCANLINE_ORDER_UNSPECIFIED;
    description.BufferDesc.Scaling = DXGI_MODE_SCALING_UNSPECIFIED;
    description.SampleDesc.Count = 1;
    description.BufferUsage = DXGI_USAGE_RENDER_TARGET_OUTPUT;
    description.BufferCount = kBackBuffers;
    description.OutputWindow = window;
    description.Windowed = TRUE;
    description.SwapEffect = DXGI_SWAP_EFFECT_DISCARD;
    description.Flags = DXGI_SWAP_CHAIN_FLAG_ALLOW_MODE_SWITCH;
    return description;
}

} // namespace

bool CreateDeviceOnWindow(std::uint32_t width, std::uint32_t height, HWND window, DeviceParts& parts) {
    // The 2D side shares surfaces of blue-first pixels.
    constexpr UINT kFlags = D3D11_CREATE_DEVICE_SINGLETHREADED | D3D11_CREATE_DEVICE_BGRA_SUPPORT;
    const DXGI_SWAP_CHAIN_DESC description = SwapChainDescription(width, height, window);
    DeviceParts made;
    const HRESULT status = D3D11CreateDeviceAndSwapChain(
        nullptr, D3D_DRIVER_TYPE_HARDWARE, nullptr, kFlags, nullptr, 0, D3D11_SDK_VERSION, &description,
        &made.swapChain, &made.device, &made.featureLevel, &made.context);
    if (FAILED(status)) return false;
    parts = made;
    return true;
}

ComPtr<ID3D11RenderTargetView> ViewOfBackBuffer(ID3D11Device* device, IDXGISwapChain* swapChain) {
    ComPtr<ID3D11Texture2D> backBuffer;
    if (FAILED(swapChain->GetBuffer(0, IID_PPV_ARGS(&backBuffer)))) return nullptr;
    ComPtr<ID3D11RenderTargetView> view;
    if (FAILED(device->CreateRenderTargetView(backBuffer.Get(), nullptr, &view))) return nullptr;
    return view;
}

// The host has a full screen of its own, on the same keys. Were the platform's switch left on, both would act
// on one press, and the platform's would tear a child window out of its parent.
void LeaveAltEnterToProgram(ID3D11Device* device, HWND window) {
    ComPtr<IDXGIDevice> deviceAsGraphics;
    ComPtr<IDXGIAdapter> adapter;
    ComPtr<IDXGIFactory> factory;
    if (FAILED(device->QueryInterface(IID_PPV_ARGS(&deviceAsGraphics)))) return;
    if (FAILED(deviceAsGraphics->GetAdapter(&adapter))) return;
    if (FAILED(adapter->GetParent(IID_PPV_ARGS(&factory)))) return;
    factory->MakeWindowAssociation(window, DXGI_MWA_NO_ALT_ENTER);
}

} // namespace orvane::render
