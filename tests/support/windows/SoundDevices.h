// The sound devices of the machine that the tests run on, as the system itself tells of them.
#pragma once

#include <mmdeviceapi.h>
#include <wrl/client.h>

namespace orvane::tests {

// `flow` is eRender or eCapture. To be asked in a COM apartment.
[[nodiscard]] inline bool HasDefaultDevice(EDataFlow flow) {
    Microsoft::WRL::ComPtr<IMMDeviceEnumerator> devices;
    Microsoft::WRL::ComPtr<IMMDevice> device;
    return SUCCEEDED(
               CoCreateInstance(__uuidof(MMDeviceEnumerator), nullptr, CLSCTX_ALL, IID_PPV_ARGS(&devices))) &&
           SUCCEEDED(devices->GetDefaultAudioEndpoint(flow, eMultimedia, &device));
}

} // namespace orvane::tests
