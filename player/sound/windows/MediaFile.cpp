#include "player/sound/windows/MediaFile.h"

#include "player/sound/StereoMix.h"

#include <windows.h>

#include <mfapi.h>
#include <mfidl.h>
#include <mfreadwrite.h>
#include <propvarutil.h>
#include <wrl/client.h>

#include <algorithm>
#include <utility>
#include <vector>

namespace orvane::player {

namespace {

using Microsoft::WRL::ComPtr;

constexpr std::int64_t kTicksPerSecond = 10'000'000; // the decoder's time runs in steps of 100 ns
constexpr DWORD kSound = DWORD(MF_SOURCE_READER_FIRST_AUDIO_STREAM);
constexpr DWORD kAllStreams = DWORD(MF_SOURCE_READER_ALL_STREAMS);
constexpr DWORD kMediaSource = DWORD(MF_SOURCE_READER_MEDIASOURCE);

std::int64_t FramesOfTicks(std::int64_t ticks, std::uint32_t rate) {
    const std::int64_t seconds = ticks / kTicksPerSecond;
    const std::int64_t rest = ticks % kTicksPerSecond;
    return seconds * rate + (rest * rate + kTicksPerSecond / 2) / kTicksPerSecond;
}

std::int64_t TicksOfFrames(std::int64_t frames, std::uint32_t rate) {
    return frames / rate * kTicksPerSecond + frames % rate * kTicksPerSecond / rate;
}

// What the decoder makes.
struct SoundFormat {
    std::uint32_t rate = 0; // frames a second
    std::uint32_t channels = 0;
};

class MediaFile final : public ISoundSource {
public:
    MediaFile(ComPtr<IMFSourceReader> reader, const SoundFormat& format, std::int64_t length)
        : mReader(std::move(reader))
        , mFormat(format)
        , mLength(length) {}

    [[nodiscard]] std::uint32_t Rate() const override { return mFormat.rate; }

    [[nodiscard]] std::int64_t Length() const override { return mLength; }

    [[nodiscard]] bool Seek(std::int64_t frame) override;
    [[nodiscard]] std::size_t Read(std::span<StereoFrame> frames) override;

private:
    bool Decode();
    void DropFramesBefore(std::int64_t ticks);

    const ComPtr<IMFSourceReader> mReader;
    const SoundFormat mFormat;
    const std::int64_t mLength;
    std::vector<StereoFrame> mDecoded; // the last piece
    std::size_t mTaken = 0;            // of it
    std::int64_t mWanted = -1;         // frame that was sought and hasn't come yet; -1 none
};

bool MediaFile::Seek(std::int64_t frame) {
    const std::int64_t wanted =
        mLength > 0 ? std::clamp<std::int64_t>(frame, 0, mLength) : std::max<std::int64_t>(frame, 0);
    PROPVARIANT position = {};
    position.vt = VT_I8;
    position.hVal.QuadPart = TicksOfFrames(wanted, mFormat.rate);
    if (FAILED(mReader->SetCurrentPosition(GUID_NULL, position))) return false;
    mDecoded.clear();
    mTaken = 0;
    mWanted = wanted;
    return true;
}

std::size_t MediaFile::Read(std::span<StereoFrame> frames) {
    while (mTaken == mDecoded.size())
        if (!Decode()) return 0;
    const std::size_t count = std::min(frames.size(), mDecoded.size() - mTaken);
    std::copy_n(mDecoded.begin() + std::ptrdiff_t(mTaken), count, frames.begin());
    mTaken += count;
    return count;
}

// Takes the next piece, which may hold nothing. False at the end.
bool MediaFile::Decode() {
    mDecoded.clear();
    mTaken = 0;
    DWORD flags = 0;
    LONGLONG ticks = 0;
    ComPtr<IMFSample> sample;
    if (FAILED(mReader->ReadSample(kSound, 0, nullptr, &flags, &ticks, &sample))) return false;
    if (flags & (MF_SOURCE_READERF_ENDOFSTREAM | MF_SOURCE_READERF_ERROR)) return false;
    ComPtr<IMFMediaBuffer> buffer;
    BYTE* bytes = nullptr;
    DWORD length = 0;
    if (!sample || FAILED(sample->ConvertToContiguousBuffer(&buffer)) ||
        FAILED(buffer->Lock(&bytes, nullptr, &length)))
        return true;
    const std::span samples(reinterpret_cast<const float*>(bytes), length / sizeof(float));
    mDecoded.resize(samples.size() / mFormat.channels);
    MixToStereo(samples, mFormat.channels, mDecoded);
    buffer->Unlock();
    DropFramesBefore(ticks);
    return true;
}

// A decoder goes to the beginning of the packet that holds the frame sought. What stands in front of the frame is
// passed over.
void MediaFile::DropFramesBefore(std::int64_t ticks) {
    if (mWanted < 0) return;
    const std::int64_t ahead = mWanted - FramesOfTicks(ticks, mFormat.rate);
    mTaken = std::size_t(std::clamp<std::int64_t>(ahead, 0, std::int64_t(mDecoded.size())));
    if (mTaken < mDecoded.size()) mWanted = -1;
}

// Asks for floats, and reads what the decoder then makes.
SoundFormat ChooseFormat(IMFSourceReader& reader) {
    ComPtr<IMFMediaType> wanted;
    if (FAILED(MFCreateMediaType(&wanted))) return {};
    wanted->SetGUID(MF_MT_MAJOR_TYPE, MFMediaType_Audio);
    wanted->SetGUID(MF_MT_SUBTYPE, MFAudioFormat_Float);
    (void)reader.SetStreamSelection(kAllStreams, FALSE);
    if (FAILED(reader.SetStreamSelection(kSound, TRUE))) return {};
    if (FAILED(reader.SetCurrentMediaType(kSound, nullptr, wanted.Get()))) return {};
    ComPtr<IMFMediaType> chosen;
    SoundFormat format;
    if (FAILED(reader.GetCurrentMediaType(kSound, &chosen))) return {};
    if (FAILED(chosen->GetUINT32(MF_MT_AUDIO_SAMPLES_PER_SECOND, &format.rate))) return {};
    if (FAILED(chosen->GetUINT32(MF_MT_AUDIO_NUM_CHANNELS, &format.channels))) return {};
    return format;
}

std::int64_t LengthOf(IMFSourceReader& reader, std::uint32_t rate) {
    PROPVARIANT duration = {};
    if (FAILED(reader.GetPresentationAttribute(kMediaSource, MF_PD_DURATION, &duration))) return 0;
    return duration.vt == VT_UI8 ? FramesOfTicks(std::int64_t(duration.uhVal.QuadPart), rate) : 0;
}

bool StartDecoding() {
    static const bool sStarted = SUCCEEDED(MFStartup(MF_VERSION, MFSTARTUP_LITE));
    return sStarted;
}

bool IsReadable(const std::filesystem::path& path) {
    const HANDLE file =
        CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                    nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return false;
    CloseHandle(file);
    return true;
}

} // namespace

OpenedMediaFile OpenMediaFile(const std::filesystem::path& path) {
    if (!IsReadable(path)) return { nullptr, MediaFileProblem::kNoFile };
    ComPtr<IMFSourceReader> reader;
    std::error_code unknown;
    const std::filesystem::path whole =
        std::filesystem::absolute(path, unknown); // it wants more than a bare name
    if (!StartDecoding() || FAILED(MFCreateSourceReaderFromURL(whole.c_str(), nullptr, &reader)))
        return { nullptr, MediaFileProblem::kNoSound };
    const SoundFormat format = ChooseFormat(*reader.Get());
    if (format.rate == 0 || format.channels == 0) return { nullptr, MediaFileProblem::kNoSound };
    const std::int64_t length = LengthOf(*reader.Get(), format.rate);
    return { std::make_unique<MediaFile>(std::move(reader), format, length), MediaFileProblem::kNone };
}

} // namespace orvane::player
