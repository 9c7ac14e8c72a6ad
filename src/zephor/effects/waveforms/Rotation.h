// A turn about the middle of the screen.
#pragma once

#include "zephor/math/Single.h"
#include "zephor/waveforms/WaveFormContext.h"

namespace orvane::zephor {

struct Rotation {
    float c = 1, s = 0; // cosine and sine of the angle

    // `size` scales what is turned.
    [[nodiscard]] static Rotation By(float angle, float size = 1) {
        return { single::Cos(angle) * size, single::Sin(angle) * size };
    }

    void Place(WaveFormPoint& point, float x, float y) const {
        point.x = x * c - y * s;
        point.y = x * s + y * c;
    }
};

} // namespace orvane::zephor
