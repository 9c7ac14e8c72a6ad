#include "player/sound/LiveSound.h"

#include <algorithm>
#include <array>

namespace orvane::player {

namespace {

constexpr std::size_t kChunkFrames = 1024; // taken in at once
constexpr double kHistorySeconds = 1.0;    // more than anybody looks at
constexpr double kSilentAfterSeconds = 0.2;

} // namespace

LiveSound::LiveSound(ISoundCapture& capture, Clock clock)
    : mCapture(capture)
    , mClock(std::move(clock))
    , mRate(capture.Rate())
    , mHistory(std::size_t(mRate * kHistorySeconds))
    , mLastCame(mClock()) {}

void LiveSound::Feed() {
    const std::lock_guard lock(mMutex);
    std::array<StereoFrame, kChunkFrames> chunk;
    while (const std::size_t count = mCapture.Read(chunk)) {
        mHistory.Append(std::span(chunk).first(count));
        mLastCame = mClock();
    }
    mLost = mCapture.IsLost();
}

bool LiveSound::IsLost() const {
    const std::lock_guard lock(mMutex);
    return mLost;
}

void LiveSound::CopyHeard(std::span<StereoFrame> window) const {
    const std::lock_guard lock(mMutex);
    if (mClock() - mLastCame > kSilentAfterSeconds)
        std::fill(window.begin(), window.end(), StereoFrame{});
    else
        mHistory.CopyBefore(mHistory.End(), window);
}

} // namespace orvane::player
