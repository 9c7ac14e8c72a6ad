#include "render/canvas/SegmentRows.h"

#ifdef __x86_64__

#    include <algorithm>
#    include <cstdint>
#    include <cstring>

#    include <immintrin.h>

// All that follows is for processors with AVX2, the templates in the header among it.
#    ifdef __clang__
#        pragma clang attribute push(__attribute__((target("avx2"))), apply_to = function)
#    else
#        pragma GCC push_options
#        pragma GCC target("avx2")
#    endif
#    include "render/canvas/SegmentRowsWide.h"

namespace orvane::render {

namespace {

// Eight lanes.
struct Avx2 {
    static constexpr int kLanes = 8;

    using Floats = __m256;
    using Ints = __m256i;

    static ORVANE_INLINE Floats All(float v) { return _mm256_set1_ps(v); }

    static ORVANE_INLINE Ints AllInts(int v) { return _mm256_set1_epi32(v); }

    static ORVANE_INLINE Floats Min(Floats a, Floats b) { return _mm256_min_ps(a, b); }

    static ORVANE_INLINE Floats Max(Floats a, Floats b) { return _mm256_max_ps(a, b); }

    static ORVANE_INLINE Ints Add(Ints a, Ints b) { return _mm256_add_epi32(a, b); }

    static ORVANE_INLINE Ints Times(Ints a, Ints b) { return _mm256_mullo_epi32(a, b); }

    static ORVANE_INLINE Ints Truncate(Floats v) { return _mm256_cvttps_epi32(v); }

    static ORVANE_INLINE Floats ToFloats(Ints v) { return _mm256_cvtepi32_ps(v); }

    // `a` where `v` is below 0, else `b`.
    static ORVANE_INLINE Floats IfBelow0(Floats v, Floats a, Floats b) {
        return _mm256_blendv_ps(b, a, _mm256_cmp_ps(v, _mm256_setzero_ps(), _CMP_LT_OQ));
    }

    // The row of each lane, and its first column.
    template <int Blocks>
    static ORVANE_INLINE Ints Rows() {
        return Blocks == 1 ? _mm256_setr_epi32(0, 1, 2, 3, 4, 5, 6, 7)
                           : _mm256_setr_epi32(0, 1, 2, 3, 0, 1, 2, 3);
    }

    template <int Blocks>
    static ORVANE_INLINE Ints Columns() {
        return Blocks == 1 ? _mm256_setzero_si256() : _mm256_setr_epi32(0, 0, 0, 0, 4, 4, 4, 4);
    }

    // The areas where the lanes begin, so that Next can continue them.
    template <int Blocks>
    static ORVANE_INLINE Floats Carried(Floats starts) {
        return Blocks == 1 ? starts : _mm256_permute2f128_ps(starts, starts, 0x00);
    }

    // The areas where the lanes begin in this step. Of two blocks the first begins where the second one ended in the
    // step before, and the second where the first one ends now.
    template <int Blocks>
    static ORVANE_INLINE Floats Next(Floats before, Floats now) {
        return Blocks == 1 ? before : _mm256_permute2f128_ps(before, now, 0x21);
    }

    // From the bytes of four columns to four bytes in each lane.
    static ORVANE_INLINE Ints ToRows(const Ints (&columns)[4]) {
        const Ints packed = _mm256_packus_epi16(_mm256_packs_epi32(columns[0], columns[1]),
                                                _mm256_packs_epi32(columns[2], columns[3]));
        const Ints turn =
            _mm256_broadcastsi128_si256(_mm_setr_epi8(0, 4, 8, 12, 1, 5, 9, 13, 2, 6, 10, 14, 3, 7, 11, 15));
        return _mm256_shuffle_epi8(packed, turn);
    }

    // under * rest / 255, rounded to the nearest: (p + (p >> 8)) >> 8 in Coverage.h is p * 257 >> 16.
    static ORVANE_INLINE Ints Shown(Ints under, Ints rest) {
        const Ints product = _mm256_add_epi16(_mm256_mullo_epi16(under, rest), _mm256_set1_epi16(128));
        return _mm256_mulhi_epu16(product, _mm256_set1_epi16(257));
    }

    // Over, in bytes.
    static ORVANE_INLINE Ints Over(Ints under, Ints coverage) {
        const Ints zero = _mm256_setzero_si256();
        const Ints rest = _mm256_xor_si256(coverage, _mm256_set1_epi8(-1));
        const Ints low = Shown(_mm256_unpacklo_epi8(under, zero), _mm256_unpacklo_epi8(rest, zero));
        const Ints high = Shown(_mm256_unpackhi_epi8(under, zero), _mm256_unpackhi_epi8(rest, zero));
        return _mm256_add_epi8(_mm256_packus_epi16(low, high), coverage);
    }

    static ORVANE_INLINE void Store(int* to, Ints v) {
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(to), v);
    }

    static ORVANE_INLINE int Four(const std::uint8_t* from) {
        int four = 0;
        std::memcpy(&four, from, sizeof four);
        return four;
    }

    static ORVANE_INLINE Ints LoadFours(const std::uint8_t* from, const int (&places)[kLanes]) {
        return _mm256_setr_epi32(Four(from + places[0]), Four(from + places[1]), Four(from + places[2]),
                                 Four(from + places[3]), Four(from + places[4]), Four(from + places[5]),
                                 Four(from + places[6]), Four(from + places[7]));
    }

    static ORVANE_INLINE void StoreFours(std::uint8_t* to, const int (&places)[kLanes], Ints v) {
        int fours[kLanes];
        Store(fours, v);
        for (int i = 0; i < kLanes; ++i) std::memcpy(to + places[i], &fours[i], sizeof fours[i]);
    }
};

} // namespace

void FillRowsAvx2(const SegmentLot& lot, int from, int to, const CoverageSurface& surface, float opacity255) {
    for (int i = from; i < to; ++i) {
        if (lot.lastRow[i] - lot.firstRow[i] <= RowBatch<Avx2, 2>::kRows)
            RowBatch<Avx2, 2>::FillSegment(lot, i, surface, opacity255);
        else
            RowBatch<Avx2, 1>::FillSegment(lot, i, surface, opacity255);
    }
}

} // namespace orvane::render

#    ifdef __clang__
#        pragma clang attribute pop
#    else
#        pragma GCC pop_options
#    endif

namespace orvane::render {

bool HasAvx2() {
    static const bool sHas = __builtin_cpu_supports("avx2");
    return sHas;
}

} // namespace orvane::render

#endif
