#include "platform/Clock.h"

#include <atomic>

namespace orvane::platform {

namespace {
std::atomic<ClockSource> sSource = nullptr;
}

double NowSeconds() {
    const ClockSource source = sSource.load(std::memory_order_acquire);
    return source ? source() : SystemSeconds();
}

ClockSource SetClockSource(ClockSource source) {
    return sSource.exchange(source, std::memory_order_acq_rel);
}

} // namespace orvane::platform
