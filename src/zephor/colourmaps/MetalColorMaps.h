// Greys that shine.
#pragma once

#include "zephor/colourmaps/HsvColorMap.h"

namespace orvane::zephor {

// Brushed steel in three reflections.
class DTMetalColorMap final : public HsvColorMap {
public:
    DTMetalColorMap()
        : HsvColorMap("DT - Metal", 32) {}

private:
    Hsv Formula(float v) const override {
        return { 0.6f, 0.3f * (1 - v), v + single::Sin(v * 18.849556f) * 0.13f * (1 - v * v) };
    }
};

// A blade's edge in green dusk.
class ScytheColorMap final : public HsvColorMap {
public:
    ScytheColorMap()
        : HsvColorMap("Scythe", 53) {}

private:
    Hsv Formula(float v) const override {
        const float edge = Rise(0.5f, 0.62f, v) - Rise(0.62f, 0.9f, v);
        return { 0.5f - v * 0.08f, 0.6f - edge * 0.5f - v * 0.1f,
                 v * 0.75f + edge * 0.35f + single::Pow(v, 6.0f) * 0.25f };
    }
};

// The teeth of its wheels, in warm light.
class SilverMachineColorMap final : public HsvColorMap {
public:
    SilverMachineColorMap()
        : HsvColorMap("Silver Machine", 59) {}

private:
    Hsv Formula(float v) const override {
        return { 0.09f, 0.1f + v * (1 - v) * 0.2f,
                 single::Pow(v, 0.8f) * (0.86f + single::Cos((1 - v) * 62.831853f) * 0.14f) };
    }
};

// A mirror that runs.
class QuickSilverColorMap final : public HsvColorMap {
public:
    QuickSilverColorMap()
        : HsvColorMap("QuickSilver", 64) {}

private:
    Hsv Formula(float v) const override {
        return { 0.56f + v * 0.25f, 0.3f * single::Sin(v * 3.1415927f),
                 v - single::Sin(v * 12.566371f) * 0.13f };
    }
};

} // namespace orvane::zephor
