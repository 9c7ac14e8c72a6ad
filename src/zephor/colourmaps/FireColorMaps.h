// Reds, oranges and golds: what burns, and what grows in the sun.
#pragma once

#include "zephor/colourmaps/HsvColorMap.h"

namespace orvane::zephor {

// Dusk over the desert: plum shadows, burnt orange, sand.
class DTWildWestEndColorMap final : public HsvColorMap {
public:
    DTWildWestEndColorMap()
        : HsvColorMap("DT - Wild West End", 16) {}

private:
    Hsv Formula(float v) const override {
        return { 0.86f + single::Sqrt(v) * 0.24f, 0.85f - v * v * v * 0.45f, single::Pow(v, 0.8f) };
    }
};

class FirestormColorMap final : public HsvColorMap {
public:
    FirestormColorMap()
        : HsvColorMap("Firestorm", 18) {}

private:
    Hsv Formula(float v) const override {
        return { single::Pow(v, 1.9f) * 0.166f, 1.0f, single::Pow(v, 0.9f) };
    }
};

// Ripples of light on red water.
class DTLakeOfFireColorMap final : public HsvColorMap {
public:
    DTLakeOfFireColorMap()
        : HsvColorMap("DT - Lake of Fire", 20) {}

private:
    Hsv Formula(float v) const override {
        const float ripple = single::Sin(v * 31.4f) * (1 - v);
        return { v * 0.09f + ripple * 0.03f, 1 - single::Pow(v, 5.0f) * 0.6f,
                 single::Pow(v, 0.7f) * (0.88f - ripple * 0.22f + v * 0.12f) };
    }
};

class BloodColorMap final : public HsvColorMap {
public:
    BloodColorMap()
        : HsvColorMap("Brood", 24) {}

private:
    Hsv Formula(float v) const override {
        return { 0.985f + v * 0.02f, 1 - v * v * v * 0.2f, single::Pow(v, 1.15f) };
    }
};

// A green stem in the shadows, then all pumpkin.
class PunkinColorMap final : public HsvColorMap {
public:
    PunkinColorMap()
        : HsvColorMap("Punkin'", 50) {}

private:
    Hsv Formula(float v) const override {
        return { 0.33f - Rise(0.05f, 0.3f, v) * 0.27f + v * v * 0.06f, 0.95f - single::Pow(v, 5.0f) * 0.6f,
                 single::Pow(v, 0.75f) };
    }
};

// From the corona to the polar light.
class SolarWindsColorMap final : public HsvColorMap {
public:
    SolarWindsColorMap()
        : HsvColorMap("Solar Winds", 54) {}

private:
    Hsv Formula(float v) const override {
        return { 0.05f + v * single::Sqrt(v) * 0.42f, 1 - v * v * v * 0.45f, single::Pow(v, 0.6f) };
    }
};

// Honey between dark stripes.
class SunchemicalsColorMap final : public HsvColorMap {
public:
    SunchemicalsColorMap()
        : HsvColorMap("Sunchemicals From A Queen Bee", 57) {}

private:
    Hsv Formula(float v) const override {
        const float stripe = single::Cos((1 - v) * 34.557519f); // five and a half waves
        return { 0.13f + stripe * 0.025f, 1 - v * v * 0.45f,
                 single::Pow(v, 0.6f) * (0.62f + stripe * 0.38f) };
    }
};

// Olive groves, brick, marble.
class LatiumColorMap final : public HsvColorMap {
public:
    LatiumColorMap()
        : HsvColorMap("Latium", 61) {}

private:
    Hsv Formula(float v) const override {
        return { 0.21f - Rise(0.1f, 0.55f, v) * 0.16f + v * v * v * 0.07f,
                 0.75f - single::Pow(v, 1.6f) * 0.62f, single::Pow(v, 0.85f) };
    }
};

} // namespace orvane::zephor
