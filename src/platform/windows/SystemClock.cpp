#include "platform/Clock.h"

#include <windows.h>

#include <timeapi.h>

namespace orvane::platform {

double SystemSeconds() {
    return double(timeGetTime()) * 0.001;
}

} // namespace orvane::platform
