// Sine, cosine, tangent and their inverses for floats and lanes. See Single.h for errors and special values.
#pragma once

#include "zephor/math/Rounding.h"

namespace orvane::zephor::single {

constexpr float kPi = 3.14159265f;
constexpr float kHalfPi = 1.57079633f;

// The multiple of pi/2 next to an angle, and the rest of the angle, within +-pi/4.
template <class T>
struct Quadrant {
    Bits<T> number; // the lowest two bits count
    T sine, cosine; // of the rest
};

template <class T>
[[gnu::always_inline]] inline Quadrant<T> QuadrantOf(T angle) {
    // pi/2 in parts of few enough bits that their multiples up to 2^15 times are exact, and so are the first two
    // differences.
    constexpr float kPart1 = 0x1.92p+0f, kPart2 = 0x1.fbp-12f, kPart3 = 0x1.51p-22f, kPart4 = 6.0771006e-11f;
    constexpr float kPerQuadrant = 0.636619747f;
    constexpr float kLargest = 51471.0f; // 2^15 quadrants
    const T x = Select(Abs(angle) > kLargest, angle * 0.0f, angle);
    const T rounded = x * kPerQuadrant + kRounder;
    const T count = rounded - kRounder;
    const T rest = ((x - count * kPart1) - count * kPart2) - (count * kPart3 + count * kPart4);
    const T square = rest * rest;
    // Polynomials of the smallest largest error up to 0.7865: 4.1e-9 (relative) and 1.1e-10.
    const T sine =
        rest + rest * square * (((-1.95178873e-4f * square + 8.33218731e-3f) * square) - 0.166666552f);
    // What the first difference loses, the second term brings back.
    const T half = square * 0.5f, most = 1.0f - half;
    const T cosine =
        most + (((1.0f - most) - half) +
                square * square * ((2.44327312e-5f * square - 1.38873118e-3f) * square + 4.16666456e-2f));
    return { BitsOf(rounded), sine, cosine };
}

template <class T>
[[gnu::always_inline]] inline T SineOf(const Quadrant<T>& quadrant) {
    const T size = Select((quadrant.number & 1) != 0, quadrant.cosine, quadrant.sine);
    return FromBits<T>(BitsOf(size) ^ ((quadrant.number & 2) << 30));
}

template <class T>
[[gnu::always_inline]] inline T CosineOf(const Quadrant<T>& quadrant) {
    const T size = Select((quadrant.number & 1) != 0, quadrant.sine, quadrant.cosine);
    return FromBits<T>(BitsOf(size) ^ (((quadrant.number + 1) & 2) << 30));
}

template <class T>
[[gnu::always_inline]] inline T Sin(T angle) {
    return SineOf(QuadrantOf(angle));
}

template <class T>
[[gnu::always_inline]] inline T Cos(T angle) {
    return CosineOf(QuadrantOf(angle));
}

// Both at little more than the price of one, and with the same bits.
template <class T>
struct SineAndCosine {
    T sine, cosine;
};

template <class T>
[[gnu::always_inline]] inline SineAndCosine<T> SinCos(T angle) {
    const Quadrant<T> quadrant = QuadrantOf(angle);
    return { SineOf(quadrant), CosineOf(quadrant) };
}

template <class T>
[[gnu::always_inline]] inline T Tan(T angle) {
    const Quadrant<T> quadrant = QuadrantOf(angle);
    const auto isOdd = (quadrant.number & 1) != 0;
    const T over = Select(isOdd, quadrant.cosine, quadrant.sine);
    const T under = Select(isOdd, -quadrant.sine, quadrant.cosine);
    return over / under;
}

// The angle from the x axis to (x, y), from -pi to pi; its sign is that of y.
template <class T>
[[gnu::always_inline]] inline T Atan2(T y, T x) {
    const T width = Abs(x), height = Abs(y);
    const auto isSteep = width < height;
    const T less = Select(isSteep, width, height), more = Select(isSteep, height, width);
    // 0 / 0 is to be 0, and infinity / infinity 1.
    const T ratio = Select(less == more, Select(more > 0.0f, All<T>(1), more), less / more);
    const T square = ratio * ratio;
    // The polynomial of the smallest largest error up to 1: 2.7e-9, relative.
    T sum = -1.7915020e-3f * square + 1.09045367e-2f;
    sum = sum * square - 3.11577656e-2f;
    sum = sum * square + 5.79358004e-2f;
    sum = sum * square - 8.40205625e-2f;
    sum = sum * square + 0.109516547f;
    sum = sum * square - 0.142641261f;
    sum = sum * square + 0.199985355f;
    sum = sum * square - 0.333332986f;
    const T angle = ratio + ratio * square * sum;
    // To be added to pi/2 or pi, or taken from it; the last bits of those, which no float holds, go with the angle.
    constexpr float kRestOfPi = -2.78275341e-8f; // as a part of pi, and of pi/2
    const auto isLeft = x < 0.0f;
    const T start = Select(isSteep, All<T>(kHalfPi), Select(isLeft, All<T>(kPi), All<T>(0)));
    const T fromSteep = Select(isSteep, -angle, angle);
    const T fromLeft = Select(isLeft, -fromSteep, fromSteep);
    const T result = start + (fromLeft + start * kRestOfPi);
    return FromBits<T>(BitsOf(result) ^ (BitsOf(y) & kSignBit));
}

template <class T>
[[gnu::always_inline]] inline T Atan(T x) {
    return Atan2(x, All<T>(1));
}

} // namespace orvane::zephor::single
