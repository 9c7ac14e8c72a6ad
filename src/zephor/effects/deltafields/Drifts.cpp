// The whole plane drifts: away, down, over hills.
#include "zephor/deltafields/CartesianMember.h"
#include "zephor/deltafields/Draws.h"
#include "zephor/effects/deltafields/MakeMember.h"

namespace orvane::zephor::deltafields {

class ContrailFunctor final : public CartesianMember<ContrailFunctor> {
public:
    ContrailFunctor()
        : CartesianMember("Contrail")
        , mDirection(Draw(0, 6.2831855f))
        , mDistance(Draw(0.002f, 0.03f))
        , mStepX(single::Cos(mDirection) * mDistance)
        , mStepY(single::Sin(mDirection) * mDistance) {}

    template <class T>
    [[gnu::always_inline]] CartesianPoint<T> Map(T x, T y) const {
        return { x + mStepX, y + mStepY };
    }

private:
    float mDirection, mDistance;
    float mStepX, mStepY;
};

class OnceUponATimeFunctor final : public CartesianMember<OnceUponATimeFunctor> {
public:
    OnceUponATimeFunctor()
        : CartesianMember("Once Upon A Time") {}

    template <class T>
    [[gnu::always_inline]] CartesianPoint<T> Map(T x, T y) const {
        return { x - single::Sin(x * 3.1415925f) * 0.008f * single::Cos(y * 3.1415925f),
                 y - y * y * (y * 0.05f) };
    }
};

class SOLsBaseFunctor final : public CartesianMember<SOLsBaseFunctor> {
public:
    SOLsBaseFunctor()
        : CartesianMember("SOLs Base") {}

    template <class T>
    [[gnu::always_inline]] CartesianPoint<T> Map(T x, T y) const {
        return { (y * 0.13125f + 0.9187499f) * x, y - (y - 1.2f) * 0.03f };
    }
};

class WeierstraussSpreadFunctor final : public CartesianMember<WeierstraussSpreadFunctor> {
public:
    WeierstraussSpreadFunctor()
        : CartesianMember("Weierstrauss Spread") {}

    template <class T>
    [[gnu::always_inline]] CartesianPoint<T> Map(T x, T y) const {
        T sum{};
        for (const Wave& wave : kWaves) sum = sum + single::Cos(x * wave.frequency) * wave.height;
        return { x * 0.993f, y + sum };
    }

private:
    struct Wave {
        float frequency, height;
    };

    static constexpr Wave kWaves[] = {
        { 6, 0.005f },     { 12, 0.0025f },    { 24, 0.00125f },
        { 48, 0.000625f }, { 96, 0.0003125f }, { 192, 0.00015625f },
    };
};

template std::unique_ptr<DeltafieldFunctor> MakeMember<ContrailFunctor>();
template std::unique_ptr<DeltafieldFunctor> MakeMember<OnceUponATimeFunctor>();
template std::unique_ptr<DeltafieldFunctor> MakeMember<SOLsBaseFunctor>();
template std::unique_ptr<DeltafieldFunctor> MakeMember<WeierstraussSpreadFunctor>();

} // namespace orvane::zephor::deltafields
