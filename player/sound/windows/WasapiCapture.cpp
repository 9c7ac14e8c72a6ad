#include "player/sound/windows/WasapiCapture.h"

#include "player/sound/StereoMix.h"
#include "player/sound/windows/SharedStream.h"

#include <ksmedia.h>

#include <algorithm>
#include <vector>

namespace orvane::player {

namespace {

using Microsoft::WRL::ComPtr;

constexpr REFERENCE_TIME kBufferTicks = kTicksPerSecond / 2;

class WasapiCapture final : public ISoundCapture {
public:
    bool Open(CaptureFrom from);

    [[nodiscard]] std::uint32_t Rate() const override { return mRate; }

    [[nodiscard]] std::size_t Read(std::span<StereoFrame> frames) override;

    [[nodiscard]] bool IsDeaf() const override { return !mCapture; }

    [[nodiscard]] bool IsLost() const override { return mLost; }

private:
    bool TakePacket();

    ComPtr<IAudioClient> mClient;
    ComPtr<IAudioCaptureClient> mCapture; // none: nothing comes in
    std::uint32_t mRate = 0;
    std::uint32_t mChannels = 0;
    std::vector<StereoFrame> mPacket; // the last one
    std::size_t mTaken = 0;           // of it
    bool mLost = false;
};

bool IsFloat(const WAVEFORMATEX& format) {
    if (format.wBitsPerSample != 8 * sizeof(float)) return false;
    if (format.wFormatTag != WAVE_FORMAT_EXTENSIBLE) return format.wFormatTag == WAVE_FORMAT_IEEE_FLOAT;
    return reinterpret_cast<const WAVEFORMATEXTENSIBLE&>(format).SubFormat == KSDATAFORMAT_SUBTYPE_IEEE_FLOAT;
}

// Takes the sound as the device mixes it. That is floats as a rule; where it isn't, the system converts it.
bool WasapiCapture::Open(CaptureFrom from) {
    const bool loopback = from == CaptureFrom::kOutput;
    mClient = ActivateDefaultDevice(loopback ? eRender : eCapture);
    WAVEFORMATEX* mix = nullptr;
    if (!mClient || FAILED(mClient->GetMixFormat(&mix)) || !mix) return false;
    const std::unique_ptr<WAVEFORMATEX, decltype(&CoTaskMemFree)> owner(mix, &CoTaskMemFree);
    const bool asItIs = IsFloat(*mix);
    const WAVEFORMATEXTENSIBLE converted = FloatFormat(mix->nSamplesPerSec, 2);
    const WAVEFORMATEX& format = asItIs ? *mix : converted.Format;
    mRate = format.nSamplesPerSec;
    mChannels = format.nChannels;
    constexpr DWORD kConvert = AUDCLNT_STREAMFLAGS_AUTOCONVERTPCM | AUDCLNT_STREAMFLAGS_SRC_DEFAULT_QUALITY;
    const DWORD flags = (asItIs ? 0 : kConvert) | (loopback ? DWORD(AUDCLNT_STREAMFLAGS_LOOPBACK) : 0);
    if (mRate == 0 ||
        FAILED(mClient->Initialize(AUDCLNT_SHAREMODE_SHARED, flags, kBufferTicks, 0, &format, nullptr)))
        return false;
    const HRESULT service = mClient->GetService(IID_PPV_ARGS(&mCapture));
    // Wine lets the output be opened for listening, and then has nothing that hands its sound out. So no packet comes,
    // which is what happens elsewhere while nothing plays.
    if (loopback && service == AUDCLNT_E_WRONG_ENDPOINT_TYPE) return true;
    return SUCCEEDED(service) && SUCCEEDED(mClient->Start());
}

std::size_t WasapiCapture::Read(std::span<StereoFrame> frames) {
    if (mTaken == mPacket.size() && !TakePacket()) return 0;
    const std::size_t count = std::min(frames.size(), mPacket.size() - mTaken);
    std::copy_n(mPacket.begin() + std::ptrdiff_t(mTaken), count, frames.begin());
    mTaken += count;
    return count;
}

bool WasapiCapture::TakePacket() {
    mPacket.clear();
    mTaken = 0;
    if (!mCapture) return false;
    BYTE* bytes = nullptr;
    UINT32 count = 0;
    DWORD flags = 0;
    const HRESULT result = mCapture->GetBuffer(&bytes, &count, &flags, nullptr, nullptr);
    if (result == AUDCLNT_E_DEVICE_INVALIDATED || result == AUDCLNT_E_SERVICE_NOT_RUNNING) mLost = true;
    if (result != S_OK) return false; // AUDCLNT_S_BUFFER_EMPTY is a success
    mPacket.resize(count);
    if (!(flags & AUDCLNT_BUFFERFLAGS_SILENT))
        MixToStereo({ reinterpret_cast<const float*>(bytes), std::size_t(count) * mChannels }, mChannels,
                    mPacket);
    mCapture->ReleaseBuffer(count);
    return count != 0;
}

} // namespace

std::unique_ptr<ISoundCapture> OpenWasapiCapture(CaptureFrom from) {
    auto capture = std::make_unique<WasapiCapture>();
    if (!capture->Open(from)) return nullptr;
    return capture;
}

} // namespace orvane::player
