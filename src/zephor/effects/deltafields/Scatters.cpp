// Dust, smoke and fire: each pixel or each row is thrown a little aside. What is drawn for y comes first.
#include "zephor/deltafields/CartesianMember.h"
#include "zephor/deltafields/Draws.h"
#include "zephor/effects/deltafields/MakeMember.h"

namespace orvane::zephor::deltafields {

// KEEP: it seeds the process's generator at every pixel, so a row's noise follows from its y alone, every field of
// a size is the same but for the reach, and what is drawn next after a field is always the same. The picture's
// rows jump as wholes because of it. Pinned by Flee.LeavesTheGeneratorSeededByItsLastRow.
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

class LinearSpreadFunctor final : public CartesianMember<LinearSpreadFunctor> {
public:
    static constexpr int kDrawsPerPixel = 2;

    LinearSpreadFunctor()
        : CartesianMember("Linear Spread") {}

    template <class T>
    [[gnu::always_inline]] CartesianPoint<T> Map(T x, T y, const T* noise) const {
        return { x * 0.93f - 0.004f + noise[1] * 2.4414808e-07f,
                 y * 0.93f - 0.004f + noise[0] * 2.4414808e-07f };
    }
};

class PhantomMistFunctor final : public CartesianMember<PhantomMistFunctor> {
public:
    static constexpr int kDrawsPerPixel = 2;

    PhantomMistFunctor()
        : CartesianMember("Phantom Mist") {}

    template <class T>
    [[gnu::always_inline]] CartesianPoint<T> Map(T x, T y, const T* noise) const {
        return { x - (y * y - 0.49f) * 0.0014f - 0.005f + noise[1] * 3.051851e-07f,
                 y - (x + 1.0f) * 0.0014f * (x - 0.1f) + 0.005f + noise[0] * 3.051851e-07f };
    }
};

class SOLsWarpFunctor final : public CartesianMember<SOLsWarpFunctor> {
public:
    static constexpr int kDrawsPerPixel = 2;

    SOLsWarpFunctor()
        : CartesianMember("SOLs Warp")
        , mPush(Draw(0.03f, 0.07f))
        , mPull(Draw(0.2f, 0.3f))
        , mShear(Draw(0.1f, 0.18f)) {}

    template <class T>
    [[gnu::always_inline]] CartesianPoint<T> Map(T x, T y, const T* noise) const {
        return { single::Pow(single::Abs(x + 0.002f), 0.01f) * mPush + x - single::Abs(y) * mPull +
                     noise[1] * 1.5259255e-07f - 0.0025f,
                 x * y * mShear + y + noise[0] * 1.5259255e-07f - 0.0025f };
    }

private:
    float mPush;
    float mPull;
    float mShear;
};

class GravityFunctor final : public CartesianMember<GravityFunctor> {
public:
    static constexpr int kDrawsPerPixel = 2;

    GravityFunctor()
        : CartesianMember("Gravity") {}

    template <class T>
    [[gnu::always_inline]] CartesianPoint<T> Map(T x, T y, const T* noise) const {
        return { noise[1] * 3.051851e-07f + x - 0.005f,
                 y - noise[0] * 3.051851e-07f - 0.005f - (y - 1.3f) * 0.04f };
    }
};

template std::unique_ptr<DeltafieldFunctor> MakeMember<FleeFunctor>();
template std::unique_ptr<DeltafieldFunctor> MakeMember<LinearSpreadFunctor>();
template std::unique_ptr<DeltafieldFunctor> MakeMember<PhantomMistFunctor>();
template std::unique_ptr<DeltafieldFunctor> MakeMember<SOLsWarpFunctor>();
template std::unique_ptr<DeltafieldFunctor> MakeMember<GravityFunctor>();

} // namespace orvane::zephor::deltafields
