// The screen as a test sets it, while it lives.
#pragma once

#include "platform/Display.h"

namespace orvane::tests {

// One at a time. 0 is a screen that can't be asked.
class SetDpi {
public:
    explicit SetDpi(int dpi) {
        sDpi = dpi;
        platform::SetDpiSource([] { return sDpi; });
    }

    SetDpi(const SetDpi&) = delete;
    SetDpi& operator=(const SetDpi&) = delete;

    ~SetDpi() { platform::SetDpiSource(nullptr); }

private:
    inline static int sDpi = 0;
};

} // namespace orvane::tests
