#include "render/canvas/SegmentRows.h"

#ifdef __x86_64__

#    include <cstdint>
#    include <cstring>

#    include <emmintrin.h>

#    include "render/canvas/SegmentRowsWide.h"

namespace orvane::render {

namespace {

// Four lanes, which every processor of the family has.
struct Sse2 {
    static constexpr int kLanes = 4;

    using Floats = __m128;
    using Ints = __m128i;

    static ORVANE_INLINE Floats All(float v) { return _mm_set1_ps(v); }

    static ORVANE_INLINE Ints AllInts(int v) { return _mm_set1_epi32(v); }

    static ORVANE_INLINE Floats Min(Floats a, Floats b) { return _mm_min_ps(a, b); }

    static ORVANE_INLINE Floats Max(Floats a, Floats b) { return _mm_max_ps(a, b); }

    static ORVANE_INLINE Ints Add(Ints a, Ints b) { return _mm_add_epi32(a, b); }

    static ORVANE_INLINE Ints Truncate(Floats v) { return _mm_cvttps_epi32(v); }

    static ORVANE_INLINE Floats ToFloats(Ints v) { return _mm_cvtepi32_ps(v); }

    // Of numbers that are not negative and below 65536 * 65536.
    static ORVANE_INLINE Ints Times(Ints a, Ints b) {
        const Ints even = _mm_mul_epu32(a, b);
        const Ints odd = _mm_mul_epu32(_mm_srli_epi64(a, 32), _mm_srli_epi64(b, 32));
        return _mm_or_si128(even, _mm_slli_epi64(odd, 32));
    }

    // `a` where `v` is below 0, else `b`.
    static ORVANE_INLINE Floats IfBelow0(Floats v, Floats a, Floats b) {
        const Floats below = _mm_cmplt_ps(v, _mm_setzero_ps());
        return _mm_or_ps(_mm_and_ps(below, a), _mm_andnot_ps(below, b));
    }

    // The row of each lane, and its first column.
    template <int>
    static ORVANE_INLINE Ints Rows() {
        return _mm_setr_epi32(0, 1, 2, 3);
    }

    template <int>
    static ORVANE_INLINE Ints Columns() {
        return _mm_setzero_si128();
    }

    // The areas where the lanes begin: each where it ended in the step before.
    template <int>
    static ORVANE_INLINE Floats Carried(Floats starts) {
        return starts;
    }

    template <int>
    static ORVANE_INLINE Floats Next(Floats before, Floats) {
        return before;
    }

    // From the bytes of four columns to four bytes in each lane.
    static ORVANE_INLINE Ints ToRows(const Ints (&columns)[4]) {
        const Ints packed = _mm_packus_epi16(_mm_packs_epi32(columns[0], columns[1]),
                                             _mm_packs_epi32(columns[2], columns[3]));
        const Ints halves =
            _mm_unpacklo_epi8(packed, _mm_srli_si128(packed, 8)); // columns 0 and 2, then 1 and 3
        return _mm_unpacklo_epi8(halves, _mm_srli_si128(halves, 8));
    }

    // under * rest / 255, rounded to the nearest: (p + (p >> 8)) >> 8 in Coverage.h is p * 257 >> 16.
    static ORVANE_INLINE Ints Shown(Ints under, Ints rest) {
        const Ints product = _mm_add_epi16(_mm_mullo_epi16(under, rest), _mm_set1_epi16(128));
        return _mm_mulhi_epu16(product, _mm_set1_epi16(257));
    }

    // Over, in bytes.
    static ORVANE_INLINE Ints Over(Ints under, Ints coverage) {
        const Ints zero = _mm_setzero_si128();
        const Ints rest = _mm_xor_si128(coverage, _mm_set1_epi8(-1));
        const Ints low = Shown(_mm_unpacklo_epi8(under, zero), _mm_unpacklo_epi8(rest, zero));
        const Ints high = Shown(_mm_unpackhi_epi8(under, zero), _mm_unpackhi_epi8(rest, zero));
        return _mm_add_epi8(_mm_packus_epi16(low, high), coverage);
    }

    static ORVANE_INLINE void Store(int* to, Ints v) { _mm_storeu_si128(reinterpret_cast<__m128i*>(to), v); }

    static ORVANE_INLINE Ints LoadFours(const std::uint8_t* from, const int (&places)[kLanes]) {
        int fours[kLanes];
        for (int i = 0; i < kLanes; ++i) std::memcpy(&fours[i], from + places[i], sizeof fours[i]);
        return _mm_setr_epi32(fours[0], fours[1], fours[2], fours[3]);
    }

    static ORVANE_INLINE void StoreFours(std::uint8_t* to, const int (&places)[kLanes], Ints v) {
        int fours[kLanes];
        Store(fours, v);
        for (int i = 0; i < kLanes; ++i) std::memcpy(to + places[i], &fours[i], sizeof fours[i]);
    }
};

} // namespace

void FillRowsSse2(const SegmentLot& lot, int from, int to, const CoverageSurface& surface, float opacity255) {
    for (int i = from; i < to; ++i) RowBatch<Sse2, 1>::FillSegment(lot, i, surface, opacity255);
}

} // namespace orvane::render

#endif
