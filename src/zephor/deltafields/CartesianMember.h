// The base that makes a cartesian effect out of one formula, as PolarMember.h does for polar ones:
//
//         template <class T>
//         [[gnu::always_inline]] CartesianPoint<T> Map(T x, T y) const {
//             return { x * 0.93f, y * 0.93f };
//         }
//
// or with `const T* noise` behind y, and kDrawsPerPixel.
//
// A member that says `static constexpr bool kReseeds = true;` seeds the process's generator from the bits of y
// before each pixel (SeedOf). So whoever draws after it, be it another effect, gets the same numbers each time.
#pragma once

#include "zephor/deltafields/CellsOfPoints.h"
#include "zephor/deltafields/DeltafieldFunctor.h"
#include "zephor/deltafields/RowKernel.h"

namespace orvane::zephor {

template <class Member>
class CartesianMember : public DeltafieldFunctor {
public:
    static constexpr int kDrawsPerPixel = 0;
    static constexpr bool kReseeds = false;

    explicit CartesianMember(std::string displayName)
        : DeltafieldFunctor(std::move(displayName), { .unreadFlag = 0, .isPolar = false }) {}

    std::pair<double, double> MapCartesian(float x, float y) const final {
        const auto rowNoise = NoiseOfRow(y);
        float noise[decltype(rowNoise)::kSlots]{};
        rowNoise.Next(noise);
        const auto point = Mapped<CartesianPoint<float>>(Self(), x, y, noise);
        return { double(point.x), double(point.y) };
    }

    void MapRow(const FieldRow& row, DeltaCell* cells) const final {
        FillRow(Self(), row, NoiseOfRow(row.y), cells);
    }

    [[nodiscard]] bool IsPure() const final { return Member::kDrawsPerPixel == 0 && !Member::kReseeds; }

    // The pixels of the columns at `x`; for the row kernel.
    template <class T, int Slots>
    [[gnu::always_inline]] void FillPixels(T x, const FieldRow& row, const T (&noise)[Slots],
                                           DeltaCell* cells) const {
        StoreCartesian(row, Mapped<CartesianPoint<T>>(Self(), x, single::All<T>(row.y), noise), cells);
    }

private:
    [[nodiscard]] static auto NoiseOfRow([[maybe_unused]] float y) {
        if constexpr (Member::kReseeds)
            return ReseededRowNoise<Member::kDrawsPerPixel>(y);
        else
            return RowNoise<Member::kDrawsPerPixel>();
    }

    [[nodiscard]] const Member& Self() const { return static_cast<const Member&>(*this); }
};

} // namespace orvane::zephor
