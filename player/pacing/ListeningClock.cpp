#include "player/pacing/ListeningClock.h"

#include <algorithm>
#include <cmath>

namespace orvane::player {

namespace {

constexpr double kMillisecondsPerSecond = 1000;

} // namespace

void ListeningClock::Played(std::uint64_t frames, double now) {
    const double position = double(frames) / mFramesPerSecond;
    if (mReport && position == mReport->position && now >= mReport->at)
        return; // nothing new: the old step runs on
    if (position < mFurthest - kJump) mFurthest = position;
    mReport = Report{ position, now };
}

double ListeningClock::Moment(double now) {
    if (!mReport) return 0;
    const double since = std::clamp(now - mReport->at, 0.0, kLongestGap);
    mFurthest = std::max(mFurthest, mReport->position + since);
    return std::max(mFurthest - mDelay, 0.0);
}

std::int64_t ListeningClock::Frame(double now, double songRate) {
    return std::int64_t(std::llround(Moment(now) * songRate));
}

std::uint32_t ListeningClock::Milliseconds(double now) {
    return std::uint32_t(std::uint64_t(Moment(now) * kMillisecondsPerSecond));
}

} // namespace orvane::player
