// Flowers, suns and balls of light: waves that run around the centre.
#include "zephor/deltafields/Draws.h"
#include "zephor/deltafields/PolarMember.h"
#include "zephor/effects/deltafields/MakeMember.h"

namespace orvane::zephor::deltafields {

class FlowerPowerFunctor final : public PolarMember<FlowerPowerFunctor> {
public:
    FlowerPowerFunctor()
        : PolarMember("Flower Power")
        , mPetals(DrawWhole(0, 10) + 2.0f)
        , mDepth(Draw(-0.01f, 0.01f)) {}

    template <class T>
    [[gnu::always_inline]] PolarPoint<T> Map(T r, T theta) const {
        return { single::Sin(theta * mPetals + 1.571f) * mDepth + r,
                 single::Sin(theta * mPetals) * mDepth + theta };
    }

private:
    float mPetals;
    float mDepth;
};

class SunburntFunctor final : public PolarMember<SunburntFunctor> {
public:
    SunburntFunctor()
        : PolarMember("Sunburnt")
        , mRays(DrawWhole(1, 3.1f) * 3.1415925f) {}

    template <class T>
    [[gnu::always_inline]] PolarPoint<T> Map(T r, T theta) const {
        return { (single::Cos(theta * mRays) * 0.05f + 0.94f) * r, theta + 0.005f };
    }

private:
    float mRays;
};

class DreamscapeFunctor final : public PolarMember<DreamscapeFunctor> {
public:
    DreamscapeFunctor()
        : PolarMember("Dreamscape")
        , mRays(DrawWhole(10, 45) * 3.1415925f) {}

    template <class T>
    [[gnu::always_inline]] PolarPoint<T> Map(T r, T theta) const {
        return { ((single::Sin(theta * mRays) + 1.0f) * 0.03f + 0.95f) * r, theta - 0.0095f };
    }

private:
    float mRays;
};

class PoinsettiaFunctor final : public PolarMember<PoinsettiaFunctor> {
public:
    PoinsettiaFunctor()
        : PolarMember("Poinsettia") {}

    template <class T>
    [[gnu::always_inline]] PolarPoint<T> Map(T r, T theta) const {
        return { r * 0.97f, single::Cos(single::Pow(r + 1.0f, 2.2f) * 10.0f) * 0.025f + theta };
    }
};

class DandelionPsycFunctor final : public PolarMember<DandelionPsycFunctor> {
public:
    DandelionPsycFunctor()
        : PolarMember("Dandelion Psyc") {}

    template <class T>
    [[gnu::always_inline]] PolarPoint<T> Map(T r, T theta) const {
        const T spokes = single::Sin(theta * 19.0f);
        return { r - spokes * 0.01f,
                 (single::Cos(r * 41.0f) + single::Cos(r * 29.0f)) * 0.01f + spokes * 0.004f + theta };
    }
};

class PsychoDiscoBallFunctor final : public PolarMember<PsychoDiscoBallFunctor> {
public:
    PsychoDiscoBallFunctor()
        : PolarMember("Psycho Disco Ball") {}

    template <class T>
    [[gnu::always_inline]] PolarPoint<T> Map(T r, T theta) const {
        return { r - 0.01f,
                 (single::Cos(r * 41.0f) + single::Cos(r * 29.0f) + single::Sin(theta * 47.0f)) * 0.01f +
                     theta };
    }
};

template std::unique_ptr<DeltafieldFunctor> MakeMember<FlowerPowerFunctor>();
template std::unique_ptr<DeltafieldFunctor> MakeMember<SunburntFunctor>();
template std::unique_ptr<DeltafieldFunctor> MakeMember<DreamscapeFunctor>();
template std::unique_ptr<DeltafieldFunctor> MakeMember<PoinsettiaFunctor>();
template std::unique_ptr<DeltafieldFunctor> MakeMember<DandelionPsycFunctor>();
template std::unique_ptr<DeltafieldFunctor> MakeMember<PsychoDiscoBallFunctor>();

} // namespace orvane::zephor::deltafields
