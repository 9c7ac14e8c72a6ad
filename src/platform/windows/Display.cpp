#include "platform/Display.h"

#include <windows.h>

namespace orvane::platform {

int SystemDpi() {
    const HDC screen = GetDC(nullptr);
    if (!screen) return 0;
    const int dpi = GetDeviceCaps(screen, LOGPIXELSX);
    ReleaseDC(nullptr, screen);
    return dpi;
}

} // namespace orvane::platform
