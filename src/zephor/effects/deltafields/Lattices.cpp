// Boxes, lanes and lattices.
#include "zephor/deltafields/CartesianMember.h"
#include "zephor/deltafields/Draws.h"
#include "zephor/effects/deltafields/MakeMember.h"
#include "zephor/effects/deltafields/TriangleWave.h"

namespace orvane::zephor::deltafields {

class BoxilightFunctor final : public CartesianMember<BoxilightFunctor> {
public:
    BoxilightFunctor()
        : CartesianMember("Boxilight") {}

    template <class T>
    [[gnu::always_inline]] CartesianPoint<T> Map(T x, T y) const {
        return { single::Sin(y * 12.0f) * 0.01f + x, single::Sin(x * 12.0f) * 0.01f + y };
    }
};

class TrafficFlowFunctor final : public CartesianMember<TrafficFlowFunctor> {
public:
    TrafficFlowFunctor()
        : CartesianMember("Traffic Flow")
        , mLane(Draw(0.005f, 0.035f))
        , mBrake(mLane * Draw(0.9f, 1.0f)) {}

    template <class T>
    [[gnu::always_inline]] CartesianPoint<T> Map(T x, T y) const {
        const T sine = single::Sin(y * 8.0f), cosine = single::Cos(x * 8.0f);
        return { mLane * sine + x - single::Abs(mBrake * sine),
                 mLane * cosine + y - single::Abs(mBrake * cosine) };
    }

private:
    float mLane;
    float mBrake;
};

// KEEP: it draws nothing for its pixels, and seeds the process's generator at each of them. So what is drawn next
// after a field is always the same. Pinned by DTChaos.LeavesTheGeneratorSeededByItsLastRow.
class DTChaosFunctor final : public CartesianMember<DTChaosFunctor> {
public:
    static constexpr bool kReseeds = true;

    DTChaosFunctor()
        : CartesianMember("DT - Chaos")
        , mBoxes(Draw(1, 11)) {}

    template <class T>
    [[gnu::always_inline]] CartesianPoint<T> Map(T x, T y) const {
        return { (0.995f - TriangleWave(y * mBoxes) * 0.06f) * x + single::Sin(y * 13.0f) * 0.01f,
                 (0.995f - TriangleWave(x * mBoxes) * 0.06f) * y + 0.01f };
    }

private:
    float mBoxes;
};

template std::unique_ptr<DeltafieldFunctor> MakeMember<BoxilightFunctor>();
template std::unique_ptr<DeltafieldFunctor> MakeMember<TrafficFlowFunctor>();
template std::unique_ptr<DeltafieldFunctor> MakeMember<DTChaosFunctor>();

} // namespace orvane::zephor::deltafields
