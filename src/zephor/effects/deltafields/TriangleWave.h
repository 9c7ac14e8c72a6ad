// A wave of period 2 between 0, at 0, and 1, at 1.
#pragma once

#include "zephor/math/Single.h"

namespace orvane::zephor {

template <class T>
[[gnu::always_inline]] inline T TriangleWave(T v) {
    const T twice = single::Fraction(single::Abs(v) * 0.5f) * 2.0f;
    return single::Select(twice <= 1.0f, twice, 2.0f - twice);
}

} // namespace orvane::zephor
