// Pinks and fruit.
#pragma once

#include "zephor/colourmaps/HsvColorMap.h"

namespace orvane::zephor {

class LustColorMap final : public HsvColorMap {
public:
    LustColorMap()
        : HsvColorMap("Lust", 42) {}

private:
    Hsv Formula(float v) const override {
        return { 0.9f + v * 0.1f, 1 - v * v * 0.4f, single::Pow(v, 0.8f) };
    }
};

// Golden seeds in the red.
class StrawberryColorMap final : public HsvColorMap {
public:
    StrawberryColorMap()
        : HsvColorMap("Strawberry", 55) {}

private:
    Hsv Formula(float v) const override {
        const float seed = single::Pow(single::Cos(v * 21.991149f), 6.0f) * Rise(0.1f, 0.4f, v);
        return { 0.985f + seed * 0.1f, 1 - v * v * v * 0.45f, single::Pow(v, 0.7f) };
    }
};

// Whipped with cream.
class StrawberryDreamsColorMap final : public HsvColorMap {
public:
    StrawberryDreamsColorMap()
        : HsvColorMap("Strawberry Dreams", 56) {}

private:
    Hsv Formula(float v) const override {
        return { 0.93f + v * 0.18f, 0.72f * (1 - v * v * 0.85f), single::Pow(v, 0.55f) };
    }
};

// Grapefruit, orange, lime.
class JuiceColorMap final : public HsvColorMap {
public:
    JuiceColorMap()
        : HsvColorMap("Juice", 60) {}

private:
    Hsv Formula(float v) const override {
        return { 0.92f + v * 0.35f, 0.95f - v * v * v * 0.3f, single::Pow(v, 0.6f) };
    }
};

} // namespace orvane::zephor
