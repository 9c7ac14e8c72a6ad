#include "support/direct3d/DeviceCreationHook.h"

// Where the linker keeps the address of the imported function.
extern "C" PFN_D3D11_CREATE_DEVICE_AND_SWAP_CHAIN __imp_D3D11CreateDeviceAndSwapChain;

namespace orvane::tests {
namespace {

PFN_D3D11_CREATE_DEVICE_AND_SWAP_CHAIN sOriginal = nullptr;
std::optional<HRESULT> sFailure;
std::vector<DeviceCreation> sCalls;

void Import(PFN_D3D11_CREATE_DEVICE_AND_SWAP_CHAIN function) {
    auto* const entry = &__imp_D3D11CreateDeviceAndSwapChain;
    DWORD protection = 0;
    VirtualProtect(entry, sizeof *entry, PAGE_READWRITE, &protection);
    *entry = function;
    VirtualProtect(entry, sizeof *entry, protection, &protection);
}

HRESULT WINAPI Stand(IDXGIAdapter* adapter, D3D_DRIVER_TYPE driverType, HMODULE software, UINT flags,
                     const D3D_FEATURE_LEVEL* levels, UINT levelCount, UINT sdkVersion,
                     const DXGI_SWAP_CHAIN_DESC* description, IDXGISwapChain** swapChain,
                     ID3D11Device** device, D3D_FEATURE_LEVEL* level, ID3D11DeviceContext** context) {
    sCalls.push_back(
        { adapter, driverType, software, flags, levelCount, levels != nullptr, sdkVersion, *description });
    if (sFailure) return *sFailure;
    return sOriginal(adapter, driverType, software, flags, levels, levelCount, sdkVersion, description,
                     swapChain, device, level, context);
}

} // namespace

DeviceCreationHook::DeviceCreationHook(std::optional<HRESULT> failure) {
    sFailure = failure;
    sCalls.clear();
    sOriginal = __imp_D3D11CreateDeviceAndSwapChain;
    Import(&Stand);
}

DeviceCreationHook::~DeviceCreationHook() {
    Import(sOriginal);
}

const std::vector<DeviceCreation>& DeviceCreationHook::Calls() const {
    return sCalls;
}

} // namespace orvane::tests
