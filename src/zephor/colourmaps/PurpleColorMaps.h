// Purples, on their own and with blue.
#pragma once

#include "zephor/colourmaps/HsvColorMap.h"

namespace orvane::zephor {

class DTPurpleHazeColorMap final : public HsvColorMap {
public:
    DTPurpleHazeColorMap()
        : HsvColorMap("DT - Purple Haze", 37) {}

private:
    Hsv Formula(float v) const override {
        return { 0.77f + single::Sin(v * 9) * 0.035f, 0.85f - v * v * 0.55f, single::Pow(v, 0.65f) };
    }
};

// The flower and the frost on it.
class IceNightshadeColorMap final : public HsvColorMap {
public:
    IceNightshadeColorMap()
        : HsvColorMap("Ice Nightshade", 41) {}

private:
    Hsv Formula(float v) const override {
        return { 0.8f - v * 0.27f, 0.92f - v * v * 0.8f, single::Pow(v, 0.9f) };
    }
};

class PurpleAndBluesColorMap final : public HsvColorMap {
public:
    PurpleAndBluesColorMap()
        : HsvColorMap("Purple and Blues", 51) {}

private:
    Hsv Formula(float v) const override {
        return { 0.8f - v * 0.22f, 0.95f - v * v * v * 0.4f, single::Pow(v, 0.7f) };
    }
};

// The two by turns.
class PurpleAndBluesIIColorMap final : public HsvColorMap {
public:
    PurpleAndBluesIIColorMap()
        : HsvColorMap("Purple and Blues II", 52) {}

private:
    Hsv Formula(float v) const override {
        return { 0.7f - single::Cos(v * 12.566371f) * 0.09f, 0.9f - v * v * 0.4f, single::Pow(v, 0.75f) };
    }
};

// Hardly there.
class PurpleGhostColorMap final : public HsvColorMap {
public:
    PurpleGhostColorMap()
        : HsvColorMap("Purple Ghost", 63) {}

private:
    Hsv Formula(float v) const override {
        const float veil = single::Sin(v * 3.1415927f);
        return { 0.74f + v * 0.05f, 0.35f + veil * veil * 0.3f - v * 0.3f, single::Pow(v, 1.25f) };
    }
};

} // namespace orvane::zephor
