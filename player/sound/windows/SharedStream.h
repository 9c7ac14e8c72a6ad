// What playing and recording have in common: a shared stream of a default device.
#pragma once

#include <windows.h>

#include <audioclient.h>
#include <mmdeviceapi.h>
#include <wrl/client.h>

#include <cstdint>

namespace orvane::player {

constexpr REFERENCE_TIME kTicksPerSecond = 10'000'000; // the device's time runs in steps of 100 ns

// Floats of so many channels, at most 2.
[[nodiscard]] WAVEFORMATEXTENSIBLE FloatFormat(std::uint32_t rate, std::uint16_t channels);

// The default device of that direction (eRender, eCapture), ready to be initialised. Null if there is none.
[[nodiscard]] Microsoft::WRL::ComPtr<IAudioClient> ActivateDefaultDevice(EDataFlow flow);

} // namespace orvane::player
