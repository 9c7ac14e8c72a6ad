// Fields of colour set against one another.
#pragma once

#include "zephor/colourmaps/GapValue.h"
#include "zephor/colourmaps/HsvColorMap.h"

namespace orvane::zephor {

class ColorGapPurityColorMap final : public HsvColorMap {
public:
    ColorGapPurityColorMap()
        : HsvColorMap("Color Gap - Purity", 21) {}

private:
    Hsv Formula(float v) const override { return { 0.56f + v * 0.1f, 0.3f * (1 - v), GapValue(v) }; }
};

class ColorGapSunshineColorMap final : public HsvColorMap {
public:
    ColorGapSunshineColorMap()
        : HsvColorMap("Color Gap - Sunshine", 22) {}

private:
    Hsv Formula(float v) const override { return { 0.07f + v * 0.1f, 1 - v * v * 0.5f, GapValue(v) }; }
};

// Grave green; what comes out of it is red.
class DTHorrorColorMap final : public HsvColorMap {
public:
    DTHorrorColorMap()
        : HsvColorMap("DT - Honor", 31) {}

private:
    Hsv Formula(float v) const override {
        const float come = Rise(0.48f, 0.7f, v);
        return { 0.3f - come * 0.31f, 0.5f + come * 0.5f - single::Pow(v, 6.0f) * 0.35f,
                 single::Pow(v, 0.9f) };
    }
};

// A blue suit, a red cape, gold on the chest.
class HeroColorMap final : public HsvColorMap {
public:
    HeroColorMap()
        : HsvColorMap("Hero", 39) {}

private:
    Hsv Formula(float v) const override {
        return { 0.62f + v * 0.52f, 1 - single::Pow(v, 4.0f) * 0.35f, single::Pow(v, 0.7f) };
    }
};

// Navy, silver, gold.
class Hero3ColorMap final : public HsvColorMap {
public:
    Hero3ColorMap()
        : HsvColorMap("Hero 3", 40) {}

private:
    Hsv Formula(float v) const override {
        const float away = single::Abs(v - 0.55f) * 2; // from silver, where the hue turns
        return { v < 0.55f ? 0.6f : 0.12f, single::Pow(away, 0.7f) * 0.95f, single::Pow(v, 0.7f) };
    }
};

// The blue field, then red and white stripes.
class OldGloryColorMap final : public HsvColorMap {
public:
    OldGloryColorMap()
        : HsvColorMap("Old Glory", 47) {}

private:
    Hsv Formula(float v) const override {
        const float stripe = 0.5f - single::Cos((v - 0.36f) * 29.452431f) * 0.5f; // three
        if (v < 0.36f) return { 0.63f, 0.95f - Rise(0.26f, 0.36f, v) * 0.95f, single::Pow(v, 0.6f) };
        return { 0.985f, stripe * 0.9f, single::Pow(v, 0.6f) };
    }
};

// Red, yellow, blue: the painter's primaries.
class PrimarilyMineColorMap final : public HsvColorMap {
public:
    PrimarilyMineColorMap()
        : HsvColorMap("Primarily Mine", 49) {}

private:
    Hsv Formula(float v) const override {
        const float lobe = single::Abs(single::Sin(v * 7.853982f)); // three, with black between them
        return { v < 0.4f ? 0.0f : v < 0.8f ? 0.155f : 0.65f, 1.0f, single::Pow(lobe, 0.8f) };
    }
};

// Blue, green, red: the screen's.
class PrimarilyMineIColorMap final : public HsvColorMap {
public:
    PrimarilyMineIColorMap()
        : HsvColorMap("Primarily Mine - I", 62) {}

private:
    Hsv Formula(float v) const override {
        return { 0.667f - Rise(0.25f, 0.42f, v) * 0.333f - Rise(0.6f, 0.78f, v) * 0.334f,
                 1 - single::Pow(v, 6.0f) * 0.4f, single::Pow(v, 0.6f) };
    }
};

} // namespace orvane::zephor
