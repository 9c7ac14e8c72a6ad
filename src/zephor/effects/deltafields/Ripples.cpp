// Rings about the centre: balls, lenses and waves that run with the distance.
#include "zephor/deltafields/Draws.h"
#include "zephor/deltafields/PolarMember.h"
#include "zephor/effects/deltafields/MakeMember.h"

#include <algorithm>

namespace orvane::zephor::deltafields {

class SimpleSineSphereFunctor final : public PolarMember<SimpleSineSphereFunctor> {
public:
    SimpleSineSphereFunctor()
        : PolarMember("Simple Sine Sphere") {}

    template <class T>
    [[gnu::always_inline]] PolarPoint<T> Map(T r, T theta) const {
        return { single::Sin(r * 6.2831855f) * 0.02f + r, theta + 0.015f };
    }
};

class SineMultiCircFunctor final : public PolarMember<SineMultiCircFunctor> {
public:
    SineMultiCircFunctor()
        : PolarMember("Sine Multi Circ")
        , mTurn(DrawTurn())
        , mRings(Draw(5, 20)) {}

    template <class T>
    [[gnu::always_inline]] PolarPoint<T> Map(T r, T theta) const {
        return { (single::Sin(r * mRings) * 0.05f + 0.93f) * r, theta + mTurn };
    }

private:
    // Half of all do not turn.
    static float DrawTurn() {
        const float turn = std::max(DrawThrough(-0.1f, 0.1f), 0.0f);
        return turn * DrawSign();
    }

    float mTurn;
    float mRings;
};

class QuantumRippleFunctor final : public PolarMember<QuantumRippleFunctor> {
public:
    static constexpr int kDrawsPerPixel = 1;

    QuantumRippleFunctor()
        : PolarMember("Quantum Ripple")
        , mPetals(DrawWhole(2, 8) * 2.0f)
        , mSpread(Draw(1.04f, 1.44f))
        , mDepth(Draw(0, 0.02f)) {}

    template <class T>
    [[gnu::always_inline]] PolarPoint<T> Map(T r, T theta, const T* noise) const {
        return { single::Sin(theta) * mDepth * r + r * 0.97f,
                 (single::Sin(theta * mPetals) + single::Sin(r * 7.0f) + 2.0f) * noise[0] * mDepth *
                         3.051851e-05f * mSpread +
                     theta };
    }

private:
    float mPetals;
    float mSpread;
    float mDepth;
};

class GravityBallFunctor final : public PolarMember<GravityBallFunctor> {
public:
    GravityBallFunctor()
        : PolarMember("Gravity Ball") {}

    template <class T>
    [[gnu::always_inline]] PolarPoint<T> Map(T r, T theta) const {
        return { r * (single::Log(r * 15.0f) * 0.05f + 0.92f), theta };
    }
};

class RadialBreakawayFunctor final : public PolarMember<RadialBreakawayFunctor> {
public:
    RadialBreakawayFunctor()
        : PolarMember("Radial Breakaway") {}

    template <class T>
    [[gnu::always_inline]] PolarPoint<T> Map(T r, T theta) const {
        return { (single::Atan(0.55f - r) * 0.16f + 1.0f) * r, theta - 0.01f };
    }
};

class SphereFunctor final : public PolarMember<SphereFunctor> {
public:
    SphereFunctor()
        : PolarMember("Sphere")
        , mSwing(Draw(0, 0.1f))
        , mRings(Draw(3, 10))
        , mEdge(Draw(0.9f, 1.2f)) {}

    template <class T>
    [[gnu::always_inline]] PolarPoint<T> Map(T r, T theta) const {
        return { ((r - mEdge) * 0.13f + 1.0f) * r, single::Sin(r * mRings) * mSwing + theta };
    }

private:
    float mSwing;
    float mRings;
    float mEdge;
};

class ThetaDivergenceFunctor final : public PolarMember<ThetaDivergenceFunctor> {
public:
    ThetaDivergenceFunctor()
        : PolarMember("Theta Divergence")
        , mRings(Draw(2, 18))
        , mSwing(Draw(0.01f, 0.04f))
        , mStep(Draw(0.002f, 0.008f)) {}

    template <class T>
    [[gnu::always_inline]] PolarPoint<T> Map(T r, T theta) const {
        const T nearer = r - mStep;
        return { single::Select(nearer > 0.0f, nearer, single::All<T>(0)),
                 single::Sin(r * mRings) * mSwing + theta };
    }

private:
    float mRings;
    float mSwing;
    float mStep;
};

template std::unique_ptr<DeltafieldFunctor> MakeMember<SimpleSineSphereFunctor>();
template std::unique_ptr<DeltafieldFunctor> MakeMember<SineMultiCircFunctor>();
template std::unique_ptr<DeltafieldFunctor> MakeMember<QuantumRippleFunctor>();
template std::unique_ptr<DeltafieldFunctor> MakeMember<GravityBallFunctor>();
template std::unique_ptr<DeltafieldFunctor> MakeMember<RadialBreakawayFunctor>();
template std::unique_ptr<DeltafieldFunctor> MakeMember<SphereFunctor>();
template std::unique_ptr<DeltafieldFunctor> MakeMember<ThetaDivergenceFunctor>();

} // namespace orvane::zephor::deltafields
