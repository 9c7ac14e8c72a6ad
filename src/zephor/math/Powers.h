// Logarithms, exponentials and powers of floats and lanes. See Single.h for errors and special values.
#pragma once

#include "zephor/math/Rounding.h"

namespace orvane::zephor::single {

// A positive number as factor * 2^exponent, with a factor from sqrt(1/2) to sqrt(2).
template <class T>
struct FactorAndExponent {
    T factor, exponent;
};

template <class T>
[[gnu::always_inline]] inline FactorAndExponent<T> Split(T x) {
    constexpr float kLeastNormal = 0x1p-126f;
    constexpr std::uint32_t kOne = 0x3F800000, kRootOfHalf = 0x3F3504F3;
    constexpr std::uint32_t kBitsOfAllWhole = 0x4B000000;
    const auto isSubnormal = x < kLeastNormal;
    const T normal = Select(isSubnormal, x * kAllWhole, x);
    const T bias = Select(isSubnormal, All<T>(kAllWhole + float(kExponentBias + kMantissaBits)),
                          All<T>(kAllWhole + float(kExponentBias)));
    // The mantissa carries into the exponent from sqrt(1/2) on.
    const Bits<T> bits = BitsOf(normal) + (kOne - kRootOfHalf);
    return { FromBits<T>((bits & kMantissa) + kRootOfHalf),
             FromBits<T>((bits >> kMantissaBits) | kBitsOfAllWhole) - bias };
}

// The natural logarithm.
template <class T>
[[gnu::always_inline]] inline T Log(T x) {
    // log(2): few enough bits that its multiples are exact, and the rest.
    constexpr float kLog2 = 0.693359375f, kRestOfLog2 = -2.12194442e-4f;
    const FactorAndExponent<T> split = Split(x);
    const T past = split.factor - 1.0f;
    const T square = past * past;
    // The polynomial of the smallest largest error: 2.7e-9, absolute.
    T sum = -6.56771138e-2f * past + 0.122420773f;
    sum = sum * past - 0.133739114f;
    sum = sum * past + 0.143128723f;
    sum = sum * past - 0.166093707f;
    sum = sum * past + 0.199936494f;
    sum = sum * past - 0.250011235f;
    sum = sum * past + 0.333334923f;
    const T low = (square * past * sum + split.exponent * kRestOfLog2) - square * 0.5f;
    const T result = split.exponent * kLog2 + (past + low);
    const T outside = Select(x < 0.0f, All<T>(kNaN), Select(x > 0.0f, x, x - kInfinity));
    return Select(x > 0.0f, Select(x < kInfinity, result, outside), outside);
}

template <class T>
[[gnu::always_inline]] inline T Exp(T x) {
    constexpr float kPerLog2 = 1.44269502f;
    constexpr float kLog2 = 0.693359375f, kRestOfLog2 = -2.12194442e-4f;
    constexpr float kLargest = 89.0f, kSmallest = -104.5f; // infinity and 0 from here on
    const T below = Select(x > kLargest, All<T>(kLargest), x);
    const T held = Select(below < kSmallest, All<T>(kSmallest), below);
    const T rounded = held * kPerLog2 + kRounder;
    const T count = rounded - kRounder;
    const T rest = (held - count * kLog2) - count * kRestOfLog2;
    // The polynomial of the smallest largest error up to 0.3475: 3.4e-9, relative.
    T sum = 1.37835857e-3f * rest + 8.36885162e-3f;
    sum = sum * rest + 4.16689552e-2f;
    sum = sum * rest + 0.166665196f;
    sum = sum * rest + 0.499999911f;
    const T factor = 1.0f + (rest + rest * rest * sum);
    // 2^count as two powers that are both normal numbers.
    const Bits<T> twiceBiased =
        BitsOf(rounded) - (__builtin_bit_cast(std::uint32_t, kRounder) - 2 * kExponentBias);
    const Bits<T> half = twiceBiased >> 1;
    const Bits<T> otherHalf = twiceBiased - half;
    return factor * FromBits<T>(half << kMantissaBits) * FromBits<T>(otherHalf << kMantissaBits);
}

// Numbers between the precisions.
[[gnu::always_inline]] inline double Widen(float x) {
    return double(x);
}

[[gnu::always_inline]] inline Wide4 Widen(Lanes4 x) {
    return __builtin_convertvector(x, Wide4);
}

[[gnu::always_inline]] inline float Narrow(double x) {
    return float(x);
}

[[gnu::always_inline]] inline Lanes4 Narrow(Wide4 x) {
    return __builtin_convertvector(x, Lanes4);
}

// |base| to the power of `exponent`.
template <class T>
[[gnu::always_inline]] inline T PowerOfSize(T base, T exponent) {
    using W = Wide<T>;
    const T size = Abs(base);
    const FactorAndExponent<T> split = Split(size);
    const W factor = Widen(split.factor);
    const W part = (factor - 1.0) / (factor + 1.0);
    const W square = part * part;
    // 2 / log(2) * atanh(part), to 2.7e-14.
    W sum = 0.28293055492355889 * square + 0.31990369343592739;
    sum = sum * square + 0.41220929788499755;
    sum = sum * square + 0.57707794195245632;
    sum = sum * square + 0.96179669411459568;
    sum = sum * square + 2.8853900817778495;
    // Of 0 and infinity, and what there is of a NaN.
    const W wideSize = Widen(size), special = Widen(Select(size > 0.0f, size, size - kInfinity));
    const W log =
        Select(wideSize > 0.0,
               Select(wideSize < double(kInfinity), sum * part + Widen(split.exponent), special), special);
    const W wideExponent = Widen(exponent);
    // Neither 0 * infinity nor 0 * NaN: 1 to any power is 1, and so is the power 0 of anything.
    const W product = Select(log == 0.0, W{}, Select(wideExponent == 0.0, W{}, wideExponent * log));
    constexpr double kBeyond = 200.0; // infinity and 0 from well below here on
    const W below = Select(product > kBeyond, W{} + kBeyond, product);
    const W held = Select(below < -kBeyond, W{} - kBeyond, below);
    constexpr double kWideRounder = 0x1.8p52;
    constexpr int kWideMantissaBits = 52;
    const W rounded = held + kWideRounder;
    const W rest = held - (rounded - kWideRounder);
    // 2 to the power of `rest`, to 4.7e-11.
    W power = 1.5196156799640470e-5 * rest + 1.5466756316336129e-4;
    power = power * rest + 1.3333935054264520e-3;
    power = power * rest + 9.6180381320698990e-3;
    power = power * rest + 5.5504103659933662e-2;
    power = power * rest + 0.24022651066560949;
    power = power * rest + 0.69314718070453163;
    power = power * rest + 1.0;
    const auto bits = __builtin_bit_cast(WideBits<T>, power) +
                      (__builtin_bit_cast(WideBits<T>, rounded) << kWideMantissaBits);
    return Narrow(__builtin_bit_cast(W, bits));
}

template <class T>
[[gnu::always_inline]] inline T Pow(T base, T exponent) {
    const T power = PowerOfSize(base, exponent);
    const T half = exponent * 0.5f;
    const T ofWhole = Select(Floor(half) == half, power, -power);
    const T ofNegative = Select(Floor(exponent) == exponent, ofWhole, All<T>(kNaN));
    return Select(base < 0.0f, ofNegative, power);
}

template <>
[[gnu::always_inline]] inline Lanes8 Pow(Lanes8 base, Lanes8 exponent) {
    return Join(Pow(LowHalf(base), LowHalf(exponent)), Pow(HighHalf(base), HighHalf(exponent)));
}

// All lanes to one power.
template <class T>

requires(kLaneCount<T> > 1) [[gnu::always_inline]] inline T Pow(T base, float exponent) {
    return Pow(base, All<T>(exponent));
}

} // namespace orvane::zephor::single
