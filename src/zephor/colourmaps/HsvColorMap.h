// Maps of one formula: hue, saturation and value of an intensity. All functions in single precision.
//
// How a map is made: value is 0 at intensity 0, so that what has faded away is black, and reaches 1 at the
// bright end; hue and saturation move slowly enough that a trail that fades runs through neighbouring colours.
// Most of an image is dim, so the first third of a map is what a viewer sees most of; a power of value below
// 1 brings it forward.
#pragma once

#include "zephor/colours/CLUTProc.h"
#include "zephor/colours/HSVToRGB.h"
#include "zephor/math/Single.h"

#include <cstdint>
#include <string>
#include <utility>

namespace orvane::zephor {

// As HSVToRGB takes them: any hue, of which the fraction counts; the others are held within 0 to 1.
struct Hsv {
    float hue, saturation, value;
};

template <typename Base>
class FormulaColorMap : public Base {
public:
    FormulaColorMap(std::string displayName, std::int32_t mapId, bool isInRotation)
        : Base(std::move(displayName), mapId, isInRotation) {}

    void Map(float v, std::uint8_t rgb[3]) const final {
        const Hsv colour = Formula(v);
        HSVToRGB(colour.hue, colour.saturation, colour.value, rgb);
    }

private:
    [[nodiscard]] virtual Hsv Formula(float v) const = 0;
};

class HsvColorMap : public FormulaColorMap<CLUTProc> {
public:
    HsvColorMap(std::string displayName, std::int32_t mapId)
        : FormulaColorMap(std::move(displayName), mapId, true) {}
};

// With a hue that each load of the map draws anew.
class RandomHueColorMap : public FormulaColorMap<ClutWithReset> {
public:
    RandomHueColorMap(std::string displayName, std::int32_t mapId)
        : FormulaColorMap(std::move(displayName), mapId, false) {}

    float hue = 0.0f; // 0 to 1

protected:
    void DrawParameters() override;
};

// 0 up to `from`, 1 beyond `to`, and a smooth way between them.
inline float Rise(float from, float to, float v) {
    const float t = (v - from) / (to - from);
    if (!(t > 0.0f)) return 0.0f;
    return t < 1.0f ? t * t * (3 - 2 * t) : 1.0f;
}

} // namespace orvane::zephor
