// Several single-precision numbers that go through one formula side by side.
//
// A formula is a template over T, which is float or a lane type, and uses operators, comparisons and the functions
// of Single.h alone. Each lane then carries out the operations that the float form carries out, in the same order,
// so every width gives the same bits. (Only the sign and the payload of a NaN are left open.)
//
// Rules for such a template:
// - [[gnu::always_inline]], without exception. It is written for the plain processor and compiled into functions
//   for wider ones; a call between the two would pass lanes in places that the other side doesn't look at.
// - A choice is Select(condition, a, b): both sides are computed. A plain `if` can't ask several lanes.
// - Numbers are float literals (0.5f); All<T>(0.5f) makes lanes where no operator does it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace orvane::zephor::single {

using Lanes4 [[gnu::vector_size(16)]] = float;
using Lanes8 [[gnu::vector_size(32)]] = float;
using Bits4 [[gnu::vector_size(16)]] = std::uint32_t;
using Bits8 [[gnu::vector_size(32)]] = std::uint32_t;
using Wide4 [[gnu::vector_size(32)]] = double;
using WideBits4 [[gnu::vector_size(32)]] = std::uint64_t;

// The types that go with T: the bits of its floats, and its floats in double precision (eight are two fours).
template <class T>
struct LaneTypes;

template <>
struct LaneTypes<float> {
    using Bits = std::uint32_t;
    using Wide = double;
    using WideBits = std::uint64_t;
};

template <>
struct LaneTypes<Lanes4> {
    using Bits = Bits4;
    using Wide = Wide4;
    using WideBits = WideBits4;
};

template <>
struct LaneTypes<Lanes8> {
    using Bits = Bits8;
};

template <class T>
using Bits = typename LaneTypes<T>::Bits;
template <class T>
using Wide = typename LaneTypes<T>::Wide;
template <class T>
using WideBits = typename LaneTypes<T>::WideBits;

template <class T>
constexpr int kLaneCount = int(sizeof(T) / sizeof(float));

// `condition` is what a comparison of two T gave.
template <class Condition, class T>
[[gnu::always_inline]] inline T Select(Condition condition, T ifTrue, T ifFalse) {
    return condition ? ifTrue : ifFalse;
}

template <class T>
[[gnu::always_inline]] inline T All(float value) {
    return value - T{}; // keeps the sign of a zero, and costs nothing
}

template <>
[[gnu::always_inline]] inline float All<float>(float value) {
    return value;
}

template <class T>
[[gnu::always_inline]] inline Bits<T> BitsOf(T value) {
    return __builtin_bit_cast(Bits<T>, value);
}

template <class T>
[[gnu::always_inline]] inline T FromBits(Bits<T> bits) {
    return __builtin_bit_cast(T, bits);
}

// From and to kLaneCount<T> floats in memory, anywhere.
template <class T>
[[gnu::always_inline]] inline T Load(const float* from) {
    T value;
    std::memcpy(&value, from, sizeof value);
    return value;
}

template <class T>
[[gnu::always_inline]] inline void Store(void* to, T value) {
    std::memcpy(to, &value, sizeof value);
}

[[gnu::always_inline]] inline Lanes4 LowHalf(Lanes8 lanes) {
    return __builtin_shufflevector(lanes, lanes, 0, 1, 2, 3);
}

[[gnu::always_inline]] inline Lanes4 HighHalf(Lanes8 lanes) {
    return __builtin_shufflevector(lanes, lanes, 4, 5, 6, 7);
}

[[gnu::always_inline]] inline Lanes8 Join(Lanes4 low, Lanes4 high) {
    return __builtin_shufflevector(low, high, 0, 1, 2, 3, 4, 5, 6, 7);
}

// first[0], second[0], first[1], second[1], ... in memory: 2 * kLaneCount<T> floats.
[[gnu::always_inline]] inline void StorePairs(void* to, float first, float second) {
    const float pair[] = { first, second };
    std::memcpy(to, pair, sizeof pair);
}

[[gnu::always_inline]] inline void StorePairs(void* to, Lanes4 first, Lanes4 second) {
    Store(to, __builtin_shufflevector(first, second, 0, 4, 1, 5));
    Store(static_cast<char*>(to) + sizeof first, __builtin_shufflevector(first, second, 2, 6, 3, 7));
}

[[gnu::always_inline]] inline void StorePairs(void* to, Lanes8 first, Lanes8 second) {
    Store(to, __builtin_shufflevector(first, second, 0, 8, 1, 9, 2, 10, 3, 11));
    Store(static_cast<char*>(to) + sizeof first,
          __builtin_shufflevector(first, second, 4, 12, 5, 13, 6, 14, 7, 15));
}

} // namespace orvane::zephor::single
