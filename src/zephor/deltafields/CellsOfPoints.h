// From points of the plane to cells of a field, for floats and lanes.
#pragma once

#include "zephor/deltafields/FieldRow.h"
#include "zephor/math/Single.h"

namespace orvane::zephor {

// Below 0 gives 0, from `largest` on gives `largest`; a NaN stays.
template <class T>
[[gnu::always_inline]] inline T HeldInImage(T coordinate, float largest) {
    const T atLeast0 = single::Select(coordinate < 0.0f, single::All<T>(0), coordinate);
    return single::Select(atLeast0 >= largest, single::All<T>(largest), atLeast0);
}

template <class T>
[[gnu::always_inline]] inline void StoreCells(const FieldRow& row, T x, T y, DeltaCell* cells) {
    single::StorePairs(cells, HeldInImage(x, row.lastColumn), HeldInImage(y, row.lastRow));
}

template <class T>
[[gnu::always_inline]] inline PolarPoint<T> PolarOf(T x, T y) {
    return { single::Sqrt(x * x + y * y), single::Atan2(y, x) };
}

template <class T>
[[gnu::always_inline]] inline void StorePolar(const FieldRow& row, PolarPoint<T> point, DeltaCell* cells) {
    const single::SineAndCosine<T> turn = single::SinCos(point.theta);
    StoreCells<T>(row, (turn.cosine * point.r + 1.0f) * row.halfWidth,
                  (turn.sine * point.r + 1.0f) * row.halfHeight, cells);
}

// (value + 1) * half, worked out in double precision.
[[gnu::always_inline]] inline float Scaled(double value, float half) {
    return float((value + 1.0) * double(half));
}

[[gnu::always_inline]] inline float Scaled(float value, float half) {
    return Scaled(double(value), half);
}

[[gnu::always_inline]] inline single::Lanes4 Scaled(single::Lanes4 value, float half) {
    return single::Narrow((single::Widen(value) + 1.0) * double(half));
}

[[gnu::always_inline]] inline single::Lanes8 Scaled(single::Lanes8 value, float half) {
    return single::Join(Scaled(single::LowHalf(value), half), Scaled(single::HighHalf(value), half));
}

template <class T>
[[gnu::always_inline]] inline void StoreCartesian(const FieldRow& row, CartesianPoint<T> point,
                                                  DeltaCell* cells) {
    StoreCells(row, Scaled(point.x, row.halfWidth), Scaled(point.y, row.halfHeight), cells);
}

} // namespace orvane::zephor
