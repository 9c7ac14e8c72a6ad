#include "visualizer/Pixels.h"

#include "platform/Display.h"

#include <algorithm>
#include <cmath>

namespace orvane::visualizer {

int ScaleForDisplay(double pixels) {
    return int(std::floor(platform::DisplayFactor() * pixels + 0.5));
}

std::uint32_t WholePixels(double length) {
    return length > 0 ? std::uint32_t(std::min(length, double(UINT32_MAX))) : 0;
}

} // namespace orvane::visualizer
