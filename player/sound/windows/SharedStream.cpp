#include "player/sound/windows/SharedStream.h"

#include <ksmedia.h>

namespace orvane::player {

using Microsoft::WRL::ComPtr;

WAVEFORMATEXTENSIBLE FloatFormat(std::uint32_t rate, std::uint16_t channels) {
    constexpr WORD kBits = 8 * sizeof(float);
    WAVEFORMATEXTENSIBLE format = {};
    format.Format.wFormatTag = WAVE_FORMAT_EXTENSIBLE;
    format.Format.nChannels = channels;
    format.Format.nSamplesPerSec = rate;
    format.Format.wBitsPerSample = kBits;
    format.Format.nBlockAlign = WORD(channels * sizeof(float));
    format.Format.nAvgBytesPerSec = rate * format.Format.nBlockAlign;
    format.Format.cbSize = sizeof(format) - sizeof(format.Format);
    format.Samples.wValidBitsPerSample = kBits;
    format.dwChannelMask =
        channels == 1 ? DWORD(SPEAKER_FRONT_CENTER) : DWORD(SPEAKER_FRONT_LEFT | SPEAKER_FRONT_RIGHT);
    format.SubFormat = KSDATAFORMAT_SUBTYPE_IEEE_FLOAT;
    return format;
}

ComPtr<IAudioClient> ActivateDefaultDevice(EDataFlow flow) {
    ComPtr<IMMDeviceEnumerator> devices;
    ComPtr<IMMDevice> device;
    ComPtr<IAudioClient> client;
    if (FAILED(CoCreateInstance(__uuidof(MMDeviceEnumerator), nullptr, CLSCTX_ALL, IID_PPV_ARGS(&devices))))
        return {};
    if (FAILED(devices->GetDefaultAudioEndpoint(flow, eMultimedia, &device))) return {};
    if (FAILED(device->Activate(__uuidof(IAudioClient), CLSCTX_ALL, nullptr,
                                reinterpret_cast<void**>(client.GetAddressOf()))))
        return {};
    return client;
}

} // namespace orvane::player
