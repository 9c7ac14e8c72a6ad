// The clock as a test sets it, while it lives.
#pragma once

#include "platform/Clock.h"

namespace orvane::tests {

// One at a time.
class SetClock {
public:
    explicit SetClock(double now) {
        sNow = now;
        platform::SetClockSource([] { return sNow; });
    }

    SetClock(const SetClock&) = delete;
    SetClock& operator=(const SetClock&) = delete;

    ~SetClock() { platform::SetClockSource(nullptr); }

    void SetTo(double now) { sNow = now; }

    void Advance(double seconds) { sNow += seconds; }

    [[nodiscard]] double Now() const { return sNow; }

private:
    inline static double sNow = 0;
};

} // namespace orvane::tests
