#include "player/pacing/PulseClock.h"

#include <algorithm>
#include <cmath>

namespace orvane::player {

namespace {

constexpr double kLongestWait = 1.001; // slots; the hair above one is rounding, more is a step of the clock

} // namespace

double PulseClock::TimeOf(std::int64_t slot) const {
    return mSchedule->start + double(slot) / mPulsesPerSecond;
}

double PulseClock::SecondsUntilDue(double now) {
    if (!mSchedule) mSchedule = Schedule{ .start = now };
    const double wait = TimeOf(mSchedule->next) - now;
    if (wait <= 0) return 0;
    if (wait * mPulsesPerSecond <= kLongestWait) return wait;
    mSchedule = Schedule{ .start = now };
    return 0;
}

void PulseClock::Sent(double now) {
    if (!mSchedule) mSchedule = Schedule{ .start = now };
    const auto current = std::int64_t(std::floor((now - mSchedule->start) * mPulsesPerSecond));
    // Rounding may put a pulse that is sent on time into the slot before its own.
    const std::int64_t used = std::max(current, mSchedule->next);
    mMissed += std::uint64_t(used - mSchedule->next);
    mSchedule->next = used + 1;
}

} // namespace orvane::player
