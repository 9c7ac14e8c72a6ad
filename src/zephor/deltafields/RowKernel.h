// Makes a row kernel out of a member's one formula: the loops over its columns, in every width.
//
// `Member` is a base of PolarMember.h or CartesianMember.h. Its FillPixels<T> fills kLaneCount<T> cells.
#pragma once

#include "zephor/deltafields/Draws.h"
#include "zephor/deltafields/FieldRow.h"
#include "zephor/math/Single.h"

namespace orvane::zephor {

// What the pixels of a row draw: Count draws for each, pixel after pixel, as the numbers that Rand gives.
template <int Count>
class RowNoise {
public:
    static constexpr int kSlots = Count > 0 ? Count : 1;

    template <class T>
    [[gnu::always_inline]] void Next(T (&noise)[kSlots]) const {
        constexpr int kLanes = single::kLaneCount<T>;
        float drawn[kSlots][kLanes];
        for (int lane = 0; lane < kLanes; ++lane)
            for (int i = 0; i < Count; ++i) drawn[i][lane] = float(platform::Rand());
        for (int i = 0; i < Count; ++i) noise[i] = single::Load<T>(drawn[i]);
    }
};

// The same for a member that seeds the generator with y's seed at each of its pixels: all pixels of a row then draw
// the same numbers, so they are drawn once for the row.
template <int Count>
class ReseededRowNoise {
public:
    static constexpr int kSlots = Count > 0 ? Count : 1;

    explicit ReseededRowNoise(float y) {
        platform::SeedRand(SeedOf(y));
        for (int i = 0; i < Count; ++i) mDrawn[i] = float(platform::Rand());
    }

    template <class T>
    [[gnu::always_inline]] void Next(T (&noise)[kSlots]) const {
        for (int i = 0; i < Count; ++i) noise[i] = single::All<T>(mDrawn[i]);
    }

private:
    float mDrawn[kSlots]{};
};

// The formula with its noise, if it takes any.
template <class Point, class Member, class T, int Slots>
[[gnu::always_inline]] inline Point Mapped(const Member& member, T first, T second, const T (&noise)[Slots]) {
    if constexpr (Member::kDrawsPerPixel > 0)
        return member.template Map<T>(first, second, noise);
    else
        return member.template Map<T>(first, second);
}

// As many columns from `column` on as fill all lanes of T. Returns the first column that is left.
// `row` is a copy, of which the cells written can't be a part; so it stays in registers.
template <class T, class Member, class Noise>
[[gnu::always_inline]] inline int FillColumns(const Member& member, const FieldRow row, int column,
                                              const Noise& rowNoise, DeltaCell* cells) {
    constexpr int kLanes = single::kLaneCount<T>;
    for (; column + kLanes <= row.width; column += kLanes) {
        T noise[Noise::kSlots]{};
        rowNoise.Next(noise);
        member.template FillPixels<T>(single::Load<T>(row.x + column), row, noise, cells + column);
    }
    return column;
}

template <class Member, class Noise>
void FillRowByOne(const Member& member, const FieldRow& row, const Noise& noise, DeltaCell* cells) {
    FillColumns<float>(member, row, 0, noise, cells);
}

template <class Member, class Noise>
void FillRowByFour(const Member& member, const FieldRow& row, const Noise& noise, DeltaCell* cells) {
    const int rest = FillColumns<single::Lanes4>(member, row, 0, noise, cells);
    FillColumns<float>(member, row, rest, noise, cells);
}

#ifdef __x86_64__
template <class Member, class Noise>
[[gnu::target("avx2")]] void FillRowByEight(const Member& member, const FieldRow& row, const Noise& noise,
                                            DeltaCell* cells) {
    const int rest = FillColumns<single::Lanes8>(member, row, 0, noise, cells);
    FillColumns<float>(member, row, rest, noise, cells);
}
#endif

template <class Member, class Noise>
void FillRow(const Member& member, const FieldRow& row, const Noise& noise, DeltaCell* cells) {
    switch (row.form) {
    case single::LaneForm::One:
        return FillRowByOne(member, row, noise, cells);
    case single::LaneForm::Eight:
#ifdef __x86_64__
        return FillRowByEight(member, row, noise, cells);
#endif
    case single::LaneForm::Four:
        break;
    }
    FillRowByFour(member, row, noise, cells);
}

} // namespace orvane::zephor
