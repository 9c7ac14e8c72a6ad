// Maps of mathematics, which fold the whole plane.
#include "zephor/deltafields/CartesianMember.h"
#include "zephor/effects/deltafields/MakeMember.h"

namespace orvane::zephor::deltafields {

class FractalSweetnessFunctor final : public CartesianMember<FractalSweetnessFunctor> {
public:
    FractalSweetnessFunctor()
        : CartesianMember("Fractal sweetness") {}

    template <class T>
    [[gnu::always_inline]] CartesianPoint<T> Map(T x, T y) const {
        return { single::Tan(x + y), single::Sin(y - x) };
    }
};

// The Julia map z * z + c, in a scaled frame.
class JuliaSeahorseFunctor final : public CartesianMember<JuliaSeahorseFunctor> {
public:
    JuliaSeahorseFunctor()
        : CartesianMember("Julia Seahorse") {}

    template <class T>
    [[gnu::always_inline]] CartesianPoint<T> Map(T x, T y) const {
        return { (x * x * 2.3409f - y * y * 0.79209995f - 0.74543f) * 0.6535948f,
                 x * 3.0599997f * y + 0.12697752f };
    }
};

// The Chirikov map.
class StandardMapFunctor final : public CartesianMember<StandardMapFunctor> {
public:
    StandardMapFunctor()
        : CartesianMember("Standard Map") {}

    template <class T>
    [[gnu::always_inline]] CartesianPoint<T> Map(T x, T y) const {
        constexpr float kStrength = 3.1415927f;
        const T newX = x - single::Sin(y * kStrength) / kStrength;
        return { newX, newX + y };
    }
};

class TunnelFunctor final : public CartesianMember<TunnelFunctor> {
public:
    TunnelFunctor()
        : CartesianMember("Tunnel") {}

    template <class T>
    [[gnu::always_inline]] CartesianPoint<T> Map(T x, T y) const {
        return { single::Cos(y * 0.5f) * single::Sin(x), single::Sin(y) };
    }
};

template std::unique_ptr<DeltafieldFunctor> MakeMember<FractalSweetnessFunctor>();
template std::unique_ptr<DeltafieldFunctor> MakeMember<JuliaSeahorseFunctor>();
template std::unique_ptr<DeltafieldFunctor> MakeMember<StandardMapFunctor>();
template std::unique_ptr<DeltafieldFunctor> MakeMember<TunnelFunctor>();

} // namespace orvane::zephor::deltafields
