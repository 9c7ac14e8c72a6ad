#include "platform/Display.h"

namespace orvane::platform {

int SystemDpi() {
    return 96;
}

} // namespace orvane::platform
