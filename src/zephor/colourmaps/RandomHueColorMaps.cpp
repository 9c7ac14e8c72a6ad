#include "zephor/colourmaps/RandomHueColorMaps.h"

#include "zephor/colourmaps/GapValue.h"
#include "zephor/registry/Selection.h"

namespace orvane::zephor {

void RandomHueColorMap::DrawParameters() {
    hue = DrawUnit();
}

void ColorGapColorMap::DrawParameters() {
    RandomHueColorMap::DrawParameters();
    saturation = float(platform::Rand()) * 9.155553e-06f + 0.5f;
}

Hsv ColorGapColorMap::Formula(float v) const {
    return { hue, saturation, GapValue(v) };
}

} // namespace orvane::zephor
