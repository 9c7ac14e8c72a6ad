// Blues and what lies in them.
#pragma once

#include "zephor/colourmaps/HsvColorMap.h"

namespace orvane::zephor {

class AquaColorMap final : public HsvColorMap {
public:
    AquaColorMap()
        : HsvColorMap("Aqua", 11) {}

private:
    Hsv Formula(float v) const override { return { 0.45f, single::Pow(1 - v, 0.3f), single::Pow(v, 0.7f) }; }
};

class DTAntarctisColorMap final : public HsvColorMap {
public:
    DTAntarctisColorMap()
        : HsvColorMap("DT - Antarctis", 28) {}

private:
    Hsv Formula(float v) const override {
        return { 0.63f - v * 0.1f, 0.9f * single::Pow(1 - v, 0.8f), single::Pow(v, 0.65f) };
    }
};

// Grey threads of rain before slate.
class DTNovemberRainColorMap final : public HsvColorMap {
public:
    DTNovemberRainColorMap()
        : HsvColorMap("DT - November Rain", 34) {}

private:
    Hsv Formula(float v) const override {
        const float thread = single::Cos((1 - v) * 50.265482f) * 0.1f * (1 - v);
        return { 0.6f + single::Sin(v * 12) * 0.03f, 0.5f - v * 0.38f,
                 single::Pow(v, 0.9f) * (0.9f + v * 0.1f + thread) };
    }
};

// The lagoon at night, with a pink sign above the door.
class DTOceanClubColorMap final : public HsvColorMap {
public:
    DTOceanClubColorMap()
        : HsvColorMap("DT - Ocean Club", 35) {}

private:
    Hsv Formula(float v) const override {
        return { 0.62f - Rise(0, 0.6f, v) * 0.15f + Rise(0.62f, 0.9f, v) * 0.42f,
                 0.95f - Rise(0.45f, 0.7f, v) * 0.65f + Rise(0.75f, 1, v) * 0.2f, single::Pow(v, 0.65f) };
    }
};

class MidnightDreamColorMap final : public HsvColorMap {
public:
    MidnightDreamColorMap()
        : HsvColorMap("Midnight Dream", 43) {}

private:
    Hsv Formula(float v) const override {
        return { 0.63f + v * 0.12f, 0.95f - v * v * v * 0.6f, single::Pow(v, 1.5f) };
    }
};

class TealColorMap final : public HsvColorMap {
public:
    TealColorMap()
        : HsvColorMap("Teal", 58) {}

private:
    Hsv Formula(float v) const override {
        return { 0.505f, single::Pow(1 - v, 0.5f), single::Pow(v, 1.05f) };
    }
};

} // namespace orvane::zephor
