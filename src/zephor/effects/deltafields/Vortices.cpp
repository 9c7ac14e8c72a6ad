// Whirls.
#include "zephor/deltafields/CartesianMember.h"
#include "zephor/deltafields/Draws.h"
#include "zephor/deltafields/PolarMember.h"
#include "zephor/effects/deltafields/MakeMember.h"

namespace orvane::zephor::deltafields {

class TheMAWFunctor final : public PolarMember<TheMAWFunctor> {
public:
    TheMAWFunctor()
        : PolarMember("The MAW") {}

    template <class T>
    [[gnu::always_inline]] PolarPoint<T> Map(T r, T theta) const {
        return { r + 0.0119f, theta - (r - 0.324f) * 0.055f * (r + 0.279f) };
    }
};

class DTSwirlFunctor final : public PolarMember<DTSwirlFunctor> {
public:
    DTSwirlFunctor()
        : PolarMember("DT - Swirl")
        , mSign(DrawSign())
        , mSteepness(Draw(7, 20))
        , mStrength(Draw(0.05f, 0.85f)) {}

    template <class T>
    [[gnu::always_inline]] PolarPoint<T> Map(T r, T theta) const {
        const T inner = 1.0f - r * 0.7f;
        return { (inner * inner * inner * 0.006f + 0.005f) * mStrength + r,
                 (single::Pow(inner, mSteepness) * (mSteepness * 0.03f + 0.4f) - 0.02f) * mStrength * mSign +
                     theta };
    }

private:
    float mSign;
    float mSteepness;
    float mStrength;
};

class SwirlyFunctor final : public CartesianMember<SwirlyFunctor> {
public:
    SwirlyFunctor()
        : CartesianMember("Swirly")
        , mVortices{ Vortex(1, 1), Vortex(1, -1), Vortex(-1, 1), Vortex(-1, -1) } {}

    template <class T>
    [[gnu::always_inline]] CartesianPoint<T> Map(T x, T y) const {
        const Vortex &v1 = mVortices[0], &v2 = mVortices[1];
        const T m1 = x + v1.x, n1 = y + v1.y;
        const T s1 = v1.strength / ((n1 * n1 + m1 * m1) * v1.falloff + 10.0f);
        const T m2 = x + v2.x, n2 = y + v2.y;
        const T s2 = v2.strength / ((n2 * n2 + m2 * m2) * v2.falloff + 10.0f);
        return { n2 * s2 + n1 * s1 + x, y - (m2 * s2 + m1 * s1) };
    }

private:
    struct Vortex {
        float strength, falloff;
        float x, y; // from the centre to the middle of the plane

        Vortex(float signX, float signY)
            : strength(DrawSigned(6, 8))
            , falloff(Draw(1000, 2000))
            , x(Draw(0, 1) * signX)
            , y(Draw(0, 1) * signY) {}
    };

    // KEEP: two of the four do nothing. Their parameters are drawn all the same, and whoever draws next relies on
    // the number of draws. Pinned by Swirly.DrawsForFourVorticesAndUsesTwo.
    Vortex mVortices[4];
};

template std::unique_ptr<DeltafieldFunctor> MakeMember<TheMAWFunctor>();
template std::unique_ptr<DeltafieldFunctor> MakeMember<DTSwirlFunctor>();
template std::unique_ptr<DeltafieldFunctor> MakeMember<SwirlyFunctor>();

} // namespace orvane::zephor::deltafields
