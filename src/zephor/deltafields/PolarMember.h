// The base that makes a polar effect out of one formula:
//
//     class ConstantOutFunctor final : public PolarMember<ConstantOutFunctor> {
//     public:
//         ConstantOutFunctor() : PolarMember("Constant Out") {}
//
//         template <class T>
//         [[gnu::always_inline]] PolarPoint<T> Map(T r, T theta) const {
//             return { r - 0.01f, theta };
//         }
//     };
//
// T is float or a lane type; see zephor/math/Lanes.h for what a formula may do, and zephor/math/Single.h for the
// functions that it may call. Parameters are private floats, drawn in the constructor (Draws.h).
//
// A member that draws numbers for each pixel says `static constexpr int kDrawsPerPixel = 2;`, and its formula is
// Map(T r, T theta, const T* noise) with noise[0] and noise[1] the first and the second draw for the pixel, as
// Rand gives them (0 to 32767). Pixels draw in reading order, whatever the number of lanes.
#pragma once

#include "zephor/deltafields/CellsOfPoints.h"
#include "zephor/deltafields/DeltafieldFunctor.h"
#include "zephor/deltafields/RowKernel.h"

namespace orvane::zephor {

template <class Member>
class PolarMember : public PolarDeltafieldFunctor {
public:
    static constexpr int kDrawsPerPixel = 0;

    using PolarDeltafieldFunctor::PolarDeltafieldFunctor;

    std::pair<float, float> MapPolar(float r, float theta) const final {
        const auto rowNoise = NoiseOfRow();
        float noise[decltype(rowNoise)::kSlots]{};
        rowNoise.Next(noise);
        const auto point = Mapped<PolarPoint<float>>(Self(), r, theta, noise);
        return { point.r, point.theta };
    }

    void MapRow(const FieldRow& row, DeltaCell* cells) const final {
        FillRow(Self(), row, NoiseOfRow(), cells);
    }

    [[nodiscard]] bool IsPure() const final { return Member::kDrawsPerPixel == 0; }

    // The pixels of the columns at `x`; for the row kernel.
    template <class T, int Slots>
    [[gnu::always_inline]] void FillPixels(T x, const FieldRow& row, const T (&noise)[Slots],
                                           DeltaCell* cells) const {
        const PolarPoint<T> from = PolarOf(x, single::All<T>(row.y));
        StorePolar(row, Mapped<PolarPoint<T>>(Self(), from.r, from.theta, noise), cells);
    }

private:
    [[nodiscard]] static auto NoiseOfRow() { return RowNoise<Member::kDrawsPerPixel>(); }

    [[nodiscard]] const Member& Self() const { return static_cast<const Member&>(*this); }
};

} // namespace orvane::zephor
