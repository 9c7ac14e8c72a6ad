// The value that the gaps of three maps share: bright, dark and bright again, higher each time.
#pragma once

#include "zephor/math/Single.h"

namespace orvane::zephor {

inline float GapValue(float v) {
    const float c = single::Cos((1 - v) * 15.707963f); // two and a half waves
    return c * v * 0.3f + c * 0.2f + v * 0.3f + 0.2f;
}

} // namespace orvane::zephor
