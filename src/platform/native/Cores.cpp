#include "platform/Cores.h"

#include <thread>

namespace orvane::platform {

unsigned ProcessorCores() {
    return std::thread::hardware_concurrency();
}

} // namespace orvane::platform
