#include "platform/Clock.h"

#include <chrono>

namespace orvane::platform {

double SystemSeconds() {
    using namespace std::chrono;
    const auto sinceStart = steady_clock::now().time_since_epoch();
    return double(duration_cast<milliseconds>(sinceStart).count()) * 0.001;
}

} // namespace orvane::platform
