// Signs, square roots and whole parts of floats and lanes. See Single.h for errors and special values.
#pragma once

#include "zephor/math/Lanes.h"

#include <limits>

#ifdef __SSE2__
#    include <emmintrin.h>
#endif

namespace orvane::zephor::single {

constexpr float kInfinity = std::numeric_limits<float>::infinity();
constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();

// Adding it to a number of up to 2^22 in size leaves the nearest whole number in the lowest bits.
constexpr float kRounder = 0x1.8p23f;
// From here on every float is whole.
constexpr float kAllWhole = 0x1p23f;
constexpr std::uint32_t kSignBit = 0x80000000;
constexpr int kMantissaBits = 23;
constexpr std::uint32_t kMantissa = 0x007FFFFF;
constexpr int kExponentBias = 127;

template <class T>
[[gnu::always_inline]] inline T Abs(T x) {
    return FromBits<T>(BitsOf(x) & ~kSignBit);
}

// `size`, which is not negative, with the sign of `sign`.
template <class T>
[[gnu::always_inline]] inline T WithSign(T size, T sign) {
    return FromBits<T>(BitsOf(size) | (BitsOf(sign) & kSignBit));
}

#ifdef __SSE2__
[[gnu::always_inline]] inline float Sqrt(float x) {
    return _mm_cvtss_f32(_mm_sqrt_ss(_mm_set_ss(x)));
}

[[gnu::always_inline]] inline Lanes4 Sqrt(Lanes4 x) {
    return __builtin_bit_cast(Lanes4, _mm_sqrt_ps(__builtin_bit_cast(__m128, x)));
}
#else
[[gnu::always_inline]] inline float Sqrt(float x) {
    return __builtin_sqrtf(x);
}

[[gnu::always_inline]] inline Lanes4 Sqrt(Lanes4 x) {
    return { Sqrt(x[0]), Sqrt(x[1]), Sqrt(x[2]), Sqrt(x[3]) };
}
#endif

[[gnu::always_inline]] inline Lanes8 Sqrt(Lanes8 x) {
    return Join(Sqrt(LowHalf(x)), Sqrt(HighHalf(x)));
}

template <class T>
[[gnu::always_inline]] inline T Truncate(T x) {
    const T size = Abs(x);
    const T nearest = (size + kAllWhole) - kAllWhole;
    const T whole = nearest - Select(nearest > size, All<T>(1), All<T>(0));
    return Select(size < kAllWhole, WithSign(whole, x), x);
}

template <class T>
[[gnu::always_inline]] inline T Floor(T x) {
    const T whole = Truncate(x);
    return Select(whole > x, whole - 1.0f, whole);
}

// What Truncate takes off, with the sign of x.
template <class T>
[[gnu::always_inline]] inline T Fraction(T x) {
    return x - Truncate(x);
}

} // namespace orvane::zephor::single
