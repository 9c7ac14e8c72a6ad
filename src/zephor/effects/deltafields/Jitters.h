// Cartesian effects that live on noise of their own.
#pragma once

#include "zephor/deltafields/CartesianMember.h"

namespace orvane::zephor {

class FleeFunctor final : public CartesianMember<FleeFunctor> {
public:
    static constexpr int kDrawsPerPixel = 1;
    static constexpr bool kReseeds = true;

    FleeFunctor()
        : CartesianMember("Flee")
        , mReach(Draw(0.001f, 0.021f)) {}

    template <class T>
    [[gnu::always_inline]] CartesianPoint<T> Map(T x, T y, const T* noise) const {
        return { noise[0] * mReach * 6.103702e-05f + x - mReach, y };
    }

private:
    float mReach;
};

} // namespace orvane::zephor
