// Maps whose hue is another one each time they are loaded.
#pragma once

#include "zephor/colourmaps/HsvColorMap.h"

namespace orvane::zephor {

class ColorGapColorMap final : public RandomHueColorMap {
public:
    ColorGapColorMap()
        : RandomHueColorMap("Color Gap", 12) {}

    float saturation = 0.0f; // 0.5 to 0.8

private:
    void DrawParameters() override;
    Hsv Formula(float v) const override;
};

class BizzaroColorMap final : public RandomHueColorMap {
public:
    BizzaroColorMap()
        : RandomHueColorMap("Bizzaro", 15) {}

private:
    Hsv Formula(float v) const override { return { hue, single::Pow(v, 2.9f), single::Pow(v, 0.9f) }; }
};

// By the clock rather than by chance, and across a third of the wheel.
class BizzaroByClockColorMap final : public HsvColorMap {
public:
    BizzaroByClockColorMap()
        : HsvColorMap("Bizzaro", 23) {}

private:
    Hsv Formula(float v) const override {
        return { single::Fraction(time * 0.07f) + v * 0.35f, single::Pow(v, 1.3f), single::Pow(v, 0.8f) };
    }
};

class MysteryUnveiledDimColorMap final : public RandomHueColorMap {
public:
    MysteryUnveiledDimColorMap()
        : RandomHueColorMap("Mystery Unveiled - Dim", 45) {}

private:
    Hsv Formula(float v) const override {
        return { hue, single::Sqrt(1 - v) * (1 - v), single::Pow(v, 1.3f) };
    }
};

// A white line at intensity 14 of 255: the edge of the jellyfish.
class MysteryUnveiledJellyfishColorMap final : public RandomHueColorMap {
public:
    MysteryUnveiledJellyfishColorMap()
        : RandomHueColorMap("Mystery Unveiled - Jellyfish", 46) {}

private:
    Hsv Formula(float v) const override {
        const float h = v * 2550;
        const float line = h >= 139 && h <= 141 ? 1.0f : 0.0f;
        return { hue, single::Pow(1 - v, 0.7f) - line, single::Pow(v, 0.7f) + line };
    }
};

} // namespace orvane::zephor
