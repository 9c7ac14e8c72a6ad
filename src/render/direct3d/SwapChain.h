// The device with its swap chain on a window, and the view of the back buffer that everything is drawn into.
#pragma once

#include "render/direct3d/Platform.h"

#include <cstdint>

namespace orvane::render {

constexpr UINT kBackBuffers = 1;

struct DeviceParts {
    ComPtr<ID3D11Device> device;
    ComPtr<IDXGISwapChain> swapChain;
    ComPtr<ID3D11DeviceContext> context; // the immediate one
    D3D_FEATURE_LEVEL featureLevel = D3D_FEATURE_LEVEL_11_0;
};

// A device on the default adapter with back buffers of that many pixels for `window`. The device takes no
// lock of its own: its calls have to come one at a time. False, with no parts, if it can't be made.
[[nodiscard]] bool CreateDeviceOnWindow(std::uint32_t width, std::uint32_t height, HWND window,
                                        DeviceParts& parts);

// Null if the back buffer can't be had or viewed.
[[nodiscard]] ComPtr<ID3D11RenderTargetView> ViewOfBackBuffer(ID3D11Device* device,
                                                              IDXGISwapChain* swapChain);

// Takes Alt+Enter at `window` out of the platform's hands. A failure has no effect.
void LeaveAltEnterToProgram(ID3D11Device* device, HWND window);

} // namespace orvane::render
