#include "platform/Display.h"

#include <atomic>

namespace orvane::platform {

namespace {

constexpr double kLifeSizeDpi = 96.0;
constexpr double kNotAsked = 0.0;

std::atomic<DpiSource> sSource = nullptr;
std::atomic<double> sFactor = kNotAsked; // two threads that ask at once get the same answer

} // namespace

double DisplayFactor() {
    double factor = sFactor.load(std::memory_order_acquire);
    if (factor != kNotAsked) return factor;
    const DpiSource source = sSource.load(std::memory_order_acquire);
    const int dpi = source ? source() : SystemDpi();
    factor = dpi > 0 ? dpi / kLifeSizeDpi : 1.0;
    sFactor.store(factor, std::memory_order_release);
    return factor;
}

DpiSource SetDpiSource(DpiSource source) {
    const DpiSource old = sSource.exchange(source, std::memory_order_acq_rel);
    sFactor.store(kNotAsked, std::memory_order_release);
    return old;
}

} // namespace orvane::platform
