#include "player/sound/SilentDevice.h"

#include <algorithm>

namespace orvane::player {

namespace {

constexpr double kBufferSeconds = 0.25; // as much as is written ahead of what is heard

} // namespace

bool SilentDevice::Open(std::uint32_t rate) {
    mRate = rate;
    Drop();
    return true;
}

std::size_t SilentDevice::Room() {
    const auto capacity = std::int64_t(mRate * kBufferSeconds);
    return std::size_t(std::max<std::int64_t>(capacity - (mWritten - Heard()), 0));
}

void SilentDevice::Write(std::span<const StereoFrame> frames) {
    Advance(); // an empty device doesn't play ahead what comes now
    mWritten += std::int64_t(frames.size());
}

void SilentDevice::Run(bool running) {
    Advance();
    mRunning = running;
}

void SilentDevice::Drop() {
    mWritten = 0;
    mHeard = 0;
    mSince = mClock();
    mRunning = false;
}

void SilentDevice::Advance() {
    const double now = mClock();
    if (mRunning) mHeard = std::min(mHeard + (now - mSince) * mRate, double(mWritten));
    mSince = now;
}

std::int64_t SilentDevice::Heard() {
    Advance();
    return std::int64_t(mHeard);
}

} // namespace orvane::player
