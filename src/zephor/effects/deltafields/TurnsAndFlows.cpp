// The picture turns and flows in or out, evenly.
#include "zephor/deltafields/PolarMember.h"
#include "zephor/effects/deltafields/MakeMember.h"

namespace orvane::zephor::deltafields {

class TrippingHardFunctor final : public PolarMember<TrippingHardFunctor> {
public:
    TrippingHardFunctor()
        : PolarMember("Tripping Hard") {}

    template <class T>
    [[gnu::always_inline]] PolarPoint<T> Map(T r, T theta) const {
        return { r * 0.66f, theta - 0.201f };
    }
};

class HipNoTherapyFunctor final : public PolarMember<HipNoTherapyFunctor> {
public:
    HipNoTherapyFunctor()
        : PolarMember("Hip-No-Therapy") {}

    template <class T>
    [[gnu::always_inline]] PolarPoint<T> Map(T r, T theta) const {
        return { r * 0.92f, theta - 0.09f };
    }
};

class ExpandAndTurnFunctor final : public PolarMember<ExpandAndTurnFunctor> {
public:
    ExpandAndTurnFunctor()
        : PolarMember("Expand & Turn") {}

    template <class T>
    [[gnu::always_inline]] PolarPoint<T> Map(T r, T theta) const {
        return { r * 0.97f, theta - 0.021f };
    }
};

class CollapseAndTurnFunctor final : public PolarMember<CollapseAndTurnFunctor> {
public:
    CollapseAndTurnFunctor()
        : PolarMember("Collapse & Turn") {}

    template <class T>
    [[gnu::always_inline]] PolarPoint<T> Map(T r, T theta) const {
        return { r * 1.01f, theta + 0.021f };
    }
};

class ConstantOutFunctor final : public PolarMember<ConstantOutFunctor> {
public:
    ConstantOutFunctor()
        : PolarMember("Constant Out") {}

    template <class T>
    [[gnu::always_inline]] PolarPoint<T> Map(T r, T theta) const {
        return { r - 0.01f, theta };
    }
};

class RightTurnFunctor final : public PolarMember<RightTurnFunctor> {
public:
    RightTurnFunctor()
        : PolarMember("Right Turn") {}

    template <class T>
    [[gnu::always_inline]] PolarPoint<T> Map(T r, T theta) const {
        return { r * 0.99f, theta + 0.009f };
    }
};

class LeftTurnAndFlowOutFunctor final : public PolarMember<LeftTurnAndFlowOutFunctor> {
public:
    LeftTurnAndFlowOutFunctor()
        : PolarMember("Left Turn & Flow Out") {}

    template <class T>
    [[gnu::always_inline]] PolarPoint<T> Map(T r, T theta) const {
        return { r * 0.94f, theta - 0.007f };
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

template std::unique_ptr<DeltafieldFunctor> MakeMember<TrippingHardFunctor>();
template std::unique_ptr<DeltafieldFunctor> MakeMember<HipNoTherapyFunctor>();
template std::unique_ptr<DeltafieldFunctor> MakeMember<ExpandAndTurnFunctor>();
template std::unique_ptr<DeltafieldFunctor> MakeMember<CollapseAndTurnFunctor>();
template std::unique_ptr<DeltafieldFunctor> MakeMember<ConstantOutFunctor>();
template std::unique_ptr<DeltafieldFunctor> MakeMember<RightTurnFunctor>();
template std::unique_ptr<DeltafieldFunctor> MakeMember<LeftTurnAndFlowOutFunctor>();
template std::unique_ptr<DeltafieldFunctor> MakeMember<ScatteredFlowOutFunctor>();

} // namespace orvane::zephor::deltafields
