// Stands in for the platform's D3D11CreateDeviceAndSwapChain in this program, to see how it is called or to
// make it fail.
#pragma once

#include "render/direct3d/Platform.h"

#include <optional>
#include <vector>

namespace orvane::tests {

struct DeviceCreation {
    IDXGIAdapter* adapter;
    D3D_DRIVER_TYPE driverType;
    HMODULE software;
    UINT flags;
    UINT featureLevels;
    bool hasFeatureLevels; // whether a list was given
    UINT sdkVersion;
    DXGI_SWAP_CHAIN_DESC swapChain;
};

class DeviceCreationHook {
public:
    // Answers with `failure`, or goes on to the platform. One at a time.
    explicit DeviceCreationHook(std::optional<HRESULT> failure = {});
    ~DeviceCreationHook();
    DeviceCreationHook(const DeviceCreationHook&) = delete;
    DeviceCreationHook& operator=(const DeviceCreationHook&) = delete;

    [[nodiscard]] const std::vector<DeviceCreation>& Calls() const;
};

} // namespace orvane::tests
