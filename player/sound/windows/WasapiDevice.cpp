#include "player/sound/windows/WasapiDevice.h"

#include "player/sound/windows/SharedStream.h"

#include <algorithm>
#include <cstring>

namespace orvane::player {

namespace {

using Microsoft::WRL::ComPtr;

// What may be waiting unheard: long enough that a busy machine doesn't interrupt the music.
constexpr REFERENCE_TIME kBufferTicks = kTicksPerSecond * 2 / 5;

class WasapiDevice final : public ISoundDevice {
public:
    [[nodiscard]] bool Open(std::uint32_t rate) override;

    [[nodiscard]] std::size_t Room() override { return mCapacity - Waiting(); }

    void Write(std::span<const StereoFrame> frames) override;
    void Run(bool running) override;
    void Drop() override;
    [[nodiscard]] std::int64_t Heard() override;

    [[nodiscard]] bool IsEmpty() override { return Waiting() == 0; }

    [[nodiscard]] bool IsLost() const override { return mLost; }

private:
    bool Good(HRESULT result);
    std::uint32_t Waiting();

    ComPtr<IAudioClient> mClient;
    ComPtr<IAudioRenderClient> mRender;
    ComPtr<IAudioClock> mClock;
    std::uint32_t mRate = 0;
    std::uint32_t mCapacity = 0; // frames
    UINT64 mClockFrequency = 1;  // the clock's units in a second
    std::int64_t mWritten = 0;   // frames since Open or Drop, as the next one
    std::int64_t mHeard = 0;
    bool mRunning = false;
    bool mLost = false;
};

// Notes when the device is gone: after that nothing works but opening another.
bool WasapiDevice::Good(HRESULT result) {
    if (result == AUDCLNT_E_DEVICE_INVALIDATED || result == AUDCLNT_E_SERVICE_NOT_RUNNING) mLost = true;
    return SUCCEEDED(result);
}

bool WasapiDevice::Open(std::uint32_t rate) {
    *this = WasapiDevice();
    mClient = ActivateDefaultDevice(eRender);
    if (!mClient) return false;
    const WAVEFORMATEXTENSIBLE format = FloatFormat(rate, 2);
    // The system converts what the device itself takes otherwise.
    constexpr DWORD kFlags = AUDCLNT_STREAMFLAGS_AUTOCONVERTPCM | AUDCLNT_STREAMFLAGS_SRC_DEFAULT_QUALITY;
    UINT32 capacity = 0;
    if (FAILED(
            mClient->Initialize(AUDCLNT_SHAREMODE_SHARED, kFlags, kBufferTicks, 0, &format.Format, nullptr)))
        return false;
    if (FAILED(mClient->GetBufferSize(&capacity))) return false;
    if (FAILED(mClient->GetService(IID_PPV_ARGS(&mRender)))) return false;
    if (FAILED(mClient->GetService(IID_PPV_ARGS(&mClock)))) return false;
    if (FAILED(mClock->GetFrequency(&mClockFrequency)) || mClockFrequency == 0) return false;
    mRate = rate;
    mCapacity = capacity;
    return true;
}

std::uint32_t WasapiDevice::Waiting() {
    UINT32 waiting = 0;
    return Good(mClient->GetCurrentPadding(&waiting)) ? std::min<std::uint32_t>(waiting, mCapacity) : 0;
}

void WasapiDevice::Write(std::span<const StereoFrame> frames) {
    static_assert(sizeof(StereoFrame) == 2 * sizeof(float), "frames go out as they lie in memory");
    if (frames.empty()) return;
    BYTE* room = nullptr;
    if (!Good(mRender->GetBuffer(UINT32(frames.size()), &room))) return;
    std::memcpy(room, frames.data(), frames.size_bytes());
    if (Good(mRender->ReleaseBuffer(UINT32(frames.size()), 0))) mWritten += std::int64_t(frames.size());
}

void WasapiDevice::Run(bool running) {
    if (running == mRunning) return;
    Good(running ? mClient->Start() : mClient->Stop());
    mRunning = running;
}

void WasapiDevice::Drop() {
    Run(false);
    Good(mClient->Reset());
    mWritten = 0;
    mHeard = 0;
}

std::int64_t WasapiDevice::Heard() {
    UINT64 position = 0;
    if (Good(mClock->GetPosition(&position, nullptr))) {
        const auto frames = std::int64_t(double(position) / double(mClockFrequency) * mRate);
        mHeard = std::clamp(frames, mHeard, std::max(mWritten, mHeard)); // never goes back
    }
    return mHeard;
}

} // namespace

std::unique_ptr<ISoundDevice> MakeWasapiDevice() {
    return std::make_unique<WasapiDevice>();
}

} // namespace orvane::player
