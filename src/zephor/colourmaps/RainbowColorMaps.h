// Maps that run through many hues.
#pragma once

#include "zephor/colourmaps/HsvColorMap.h"

namespace orvane::zephor {

class HueWheelColorMap final : public HsvColorMap {
public:
    HueWheelColorMap()
        : HsvColorMap("Hue Wheel", 13) {}

private:
    Hsv Formula(float v) const override {
        return { single::Fraction(time * 0.03f), 1 - single::Sqrt(v) * 0.6f * v * v, v };
    }
};

class SpectrologistAssistantColorMap final : public HsvColorMap {
public:
    SpectrologistAssistantColorMap()
        : HsvColorMap("Spectrologist Assistant", 14) {}

private:
    Hsv Formula(float v) const override {
        using single::Cos;
        using single::Sin;
        return { (Sin(time * 0.004f + v * 3.1456f) + Sin(time * 0.08f)) * 0.2f + 0.5f,
                 Cos(time * 0.05f + v * 12) * 0.4f + 0.6f,
                 (Sin(Cos(time * 0.01f) * v * 15 + time * 0.01f) + Cos(time * 0.1f)) * 0.2f + 0.6f };
    }
};

class MutedMiddleColorMap final : public HsvColorMap {
public:
    MutedMiddleColorMap()
        : HsvColorMap("Muted Middle", 17) {}

private:
    Hsv Formula(float v) const override {
        return { single::Fraction(time * 0.016f + v * 0.5f), single::Abs(v - 0.5f) + 0.5f,
                 single::Abs(v - 0.5f) + 0.5f };
    }
};

// Sand, sea and sand again.
class DaliColorMap final : public HsvColorMap {
public:
    DaliColorMap()
        : HsvColorMap("Dali", 25) {}

private:
    Hsv Formula(float v) const override {
        const float tide = single::Cos(v * 4.4f);
        return { 0.34f - tide * 0.25f, 0.3f + tide * tide * 0.55f, single::Pow(v, 0.65f) };
    }
};

class DarkRainbowColorMap final : public HsvColorMap {
public:
    DarkRainbowColorMap()
        : HsvColorMap("Dark Rainbow", 26) {}

private:
    Hsv Formula(float v) const override { return { single::Pow(v, 1.6f), 1.0f, v }; }
};

// Pastels.
class DaydreamColorMap final : public HsvColorMap {
public:
    DaydreamColorMap()
        : HsvColorMap("Daydream", 27) {}

private:
    Hsv Formula(float v) const override {
        return { 0.55f + v * 0.6f, 0.5f - v * 0.2f, single::Pow(v, 0.55f) };
    }
};

// Indigo that catches light: magenta, coral, yellow.
class DTGlowsColorMap final : public HsvColorMap {
public:
    DTGlowsColorMap()
        : HsvColorMap("DT - Glows", 29) {}

private:
    Hsv Formula(float v) const override {
        return { 0.72f + Rise(0, 0.85f, v) * 0.4f, 1 - Rise(0.6f, 1, v) * 0.5f, single::Pow(v, 0.95f) };
    }
};

// Tubes of light, magenta to cyan.
class DTNeonKnightsColorMap final : public HsvColorMap {
public:
    DTNeonKnightsColorMap()
        : HsvColorMap("DT - Neon Knights", 33) {}

private:
    Hsv Formula(float v) const override {
        const float tube = single::Cos((1 - v) * 21.991149f); // three and a half waves
        return { 0.88f - v * 0.4f, 1 - single::Pow(v, 3.0f) * 0.4f,
                 single::Pow(v, 0.5f) * (0.65f + tube * 0.35f) };
    }
};

// Toy blue, red and yellow, and a gloss.
class DTPlasicColorMap final : public HsvColorMap {
public:
    DTPlasicColorMap()
        : HsvColorMap("DT - Plastic", 36) {}

private:
    Hsv Formula(float v) const override {
        return { 0.58f + Rise(0.15f, 0.45f, v) * 0.42f + Rise(0.5f, 0.75f, v) * 0.14f,
                 0.95f - single::Pow(v, 10.0f) * 0.8f, single::Pow(v, 0.5f) };
    }
};

class OrangeToBlueColorMap final : public HsvColorMap {
public:
    OrangeToBlueColorMap()
        : HsvColorMap("Orange to Blue", 48) {}

private:
    Hsv Formula(float v) const override {
        return { 0.8f - v * v * single::Sqrt(v) * 0.7f, 0.99f, single::Sqrt(v) * v };
    }
};

} // namespace orvane::zephor
