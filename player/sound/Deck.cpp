#include "player/sound/Deck.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace orvane::player {

namespace {

constexpr std::size_t kChunkFrames = 1024;  // decoded at once
constexpr double kHistorySeconds = 4.0;     // what a device holds unheard, a window and the longest delay
constexpr std::uint32_t kUsualRate = 44100; // frames a second, while there is no track

} // namespace

Deck::Deck(ISoundDevice& device, ISoundDevice& spare, Clock clock, double delaySeconds)
    : mDevice(&device)
    , mSpare(&spare)
    , mClock(std::move(clock))
    , mDelaySeconds(delaySeconds)
    , mHistory(1) {}

void Deck::Load(std::unique_ptr<ISoundSource> source, double seconds) {
    const std::lock_guard lock(mMutex);
    mSource = std::move(source);
    mPaused = false;
    const std::uint32_t rate = mSource->Rate();
    mHistory = SoundHistory(std::size_t(rate * kHistorySeconds));
    if (!mDevice->Open(rate)) SwitchToSpare();
    BeginAt(0);
    if (seconds > 0) Restart(std::llround(seconds * rate));
    FillDevice();
}

void Deck::SwitchToSpare() {
    mDevice = mSpare;
    (void)mDevice->Open(mSource->Rate()); // it always opens
}

void Deck::Restart(std::int64_t frame) {
    if (!mSource->Seek(frame)) return;
    mDevice->Drop();
    const std::int64_t length = mSource->Length();
    BeginAt(length > 0 ? std::min(frame, length) : frame);
}

// What is written from now on is the track from that frame.
void Deck::BeginAt(std::int64_t frame) {
    mFirstFrame = frame;
    mHistory.Restart(frame);
    mListening.emplace(mSource->Rate(), mDelaySeconds);
    mSourceEnded = false;
}

void Deck::Feed() {
    const std::lock_guard lock(mMutex);
    if (!mSource) return;
    if (mDevice->IsLost()) {
        const std::int64_t heard = HeardFrame();
        SwitchToSpare();
        Restart(heard);
    }
    FillDevice();
}

void Deck::FillDevice() {
    std::array<StereoFrame, kChunkFrames> chunk;
    while (!mSourceEnded) {
        const std::size_t room = std::min(mDevice->Room(), chunk.size());
        if (room == 0) break;
        const auto frames = std::span(chunk).first(mSource->Read(std::span(chunk).first(room)));
        mSourceEnded = frames.empty();
        mDevice->Write(frames);
        mHistory.Append(frames);
    }
    mDevice->Run(!mPaused);
}

void Deck::Pause(bool paused) {
    const std::lock_guard lock(mMutex);
    if (paused && !mPaused) mPausedAt = mClock();
    mPaused = paused;
    if (mSource) mDevice->Run(!mPaused);
}

bool Deck::IsPaused() const {
    const std::lock_guard lock(mMutex);
    return mPaused;
}

void Deck::Seek(double seconds) {
    const std::lock_guard lock(mMutex);
    if (!mSource) return;
    Restart(std::max<std::int64_t>(std::llround(seconds * mSource->Rate()), 0));
    FillDevice();
}

std::int64_t Deck::HeardFrame() const {
    return mSource ? std::min(mFirstFrame + mDevice->Heard(), mHistory.End()) : 0;
}

double Deck::Position() const {
    const std::lock_guard lock(mMutex);
    return mSource ? double(HeardFrame()) / mSource->Rate() : 0;
}

double Deck::Duration() const {
    const std::lock_guard lock(mMutex);
    return mSource ? double(mSource->Length()) / mSource->Rate() : 0;
}

bool Deck::IsOver() const {
    const std::lock_guard lock(mMutex);
    return mSource && mSourceEnded && mDevice->IsEmpty();
}

bool Deck::IsOnSpare() const {
    const std::lock_guard lock(mMutex);
    return mDevice == mSpare;
}

std::uint32_t Deck::Rate() const {
    const std::lock_guard lock(mMutex);
    return mSource ? mSource->Rate() : kUsualRate;
}

// The clock as the music sees it: it stands still while the music does.
double Deck::Now() const {
    return mPaused ? mPausedAt : mClock();
}

void Deck::CopyHeard(std::span<StereoFrame> window) const {
    const std::lock_guard lock(mMutex);
    if (!mSource) {
        std::fill(window.begin(), window.end(), StereoFrame{});
        return;
    }
    mListening->Played(std::uint64_t(HeardFrame()), Now());
    const std::int64_t middle = mListening->Frame(Now(), mSource->Rate());
    mHistory.CopyBefore(middle + std::int64_t(window.size() - window.size() / 2), window);
}

} // namespace orvane::player
