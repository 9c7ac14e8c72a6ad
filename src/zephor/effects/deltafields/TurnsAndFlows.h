// Polar effects that scale the distance from the centre and turn the angle, evenly over the plane.
#pragma once

#include "zephor/deltafields/PolarMember.h"

namespace orvane::zephor {

class TrippingHardFunctor final : public PolarMember<TrippingHardFunctor> {
public:
    TrippingHardFunctor()
        : PolarMember("Tripping Hard") {}

    template <class T>
    [[gnu::always_inline]] PolarPoint<T> Map(T r, T theta) const {
        return { r * 0.66f, theta - 0.201f };
    }
};

class ScatteredFlowOutFunctor final : public PolarMember<ScatteredFlowOutFunctor> {
public:
    static constexpr int kDrawsPerPixel = 1;

    ScatteredFlowOutFunctor()
        : PolarMember("Scattered Flow out") {}

    template <class T>
    [[gnu::always_inline]] PolarPoint<T> Map(T r, T theta, const T* noise) const {
        return { r * (noise[0] * 1.5259255e-06f + 0.93f), theta + 0.003f };
    }
};

} // namespace orvane::zephor
