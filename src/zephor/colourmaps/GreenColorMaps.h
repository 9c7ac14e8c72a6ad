// Greens: leaves, scales, acid.
#pragma once

#include "zephor/colourmaps/HsvColorMap.h"

namespace orvane::zephor {

class GreenColorMap final : public HsvColorMap {
public:
    GreenColorMap()
        : HsvColorMap("Green", 19) {}

private:
    Hsv Formula(float v) const override { return { 0.369f, single::Pow(1 - v, 0.3f), single::Pow(v, 0.7f) }; }
};

// Scales that glitter.
class DTGreenPoisonColorMap final : public HsvColorMap {
public:
    DTGreenPoisonColorMap()
        : HsvColorMap("DT - Green Fish", 30) {}

private:
    Hsv Formula(float v) const override {
        const float scale = single::Sin(v * 44.0f);
        return { 0.42f - v * 0.2f, 1 - single::Pow(v, 4.0f) * 0.6f,
                 v * (0.82f + scale * 0.18f * (1 - v)) + single::Pow(v, 3.0f) * 0.18f };
    }
};

// Acid, and the blue of the sparks in it.
class ElectricAcidColorMap final : public HsvColorMap {
public:
    ElectricAcidColorMap()
        : HsvColorMap("Electric Acid", 38) {}

private:
    Hsv Formula(float v) const override {
        const float spark = single::Cos((1 - v) * 15.707963f); // two and a half waves
        return { 0.43f - spark * 0.21f, 1 - single::Pow(v, 6.0f) * 0.4f, single::Pow(v, 0.6f) };
    }
};

// Moss under the trees; the moon.
class MononokeColorMap final : public HsvColorMap {
public:
    MononokeColorMap()
        : HsvColorMap("Mononoke", 44) {}

private:
    Hsv Formula(float v) const override {
        return { 0.42f - v * 0.17f, 0.75f * single::Pow(1 - v, 0.7f),
                 v * 0.7f + single::Pow(v, 3.0f) * 0.3f };
    }
};

// The blue light in the pool, and green above it.
class RadioactiveColorMap final : public HsvColorMap {
public:
    RadioactiveColorMap()
        : HsvColorMap("Radioactive", 65) {}

private:
    Hsv Formula(float v) const override {
        return { 0.24f + single::Pow(1 - v, 3.0f) * 0.34f, 1 - single::Pow(v, 4.0f) * 0.75f,
                 single::Pow(v, 0.6f) };
    }
};

} // namespace orvane::zephor
