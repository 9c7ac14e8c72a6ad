// The arithmetic of Coverage.h on four pixels at a time: the same operations in the same order, so the same
// bits. For the files of this folder that have a wide form; SSE2 is part of every x86-64 processor.
#pragma once

#ifdef __SSE2__

#    include "render/canvas/Coverage.h"

#    include <cstring>

#    include <emmintrin.h>

namespace orvane::render::wide {

constexpr int kGroup = 4;

// The fields of one edge piece, each in all four lanes.
struct Piece {
    __m128 right, extent, limit, weight;

    // `fields` are those of an EdgePiece.
    explicit Piece(__m128 fields)
        : right(_mm_shuffle_ps(fields, fields, _MM_SHUFFLE(0, 0, 0, 0)))
        , extent(_mm_shuffle_ps(fields, fields, _MM_SHUFFLE(1, 1, 1, 1)))
        , limit(_mm_shuffle_ps(fields, fields, _MM_SHUFFLE(2, 2, 2, 2)))
        , weight(_mm_shuffle_ps(fields, fields, _MM_SHUFFLE(3, 3, 3, 3))) {}
};

inline __m128 Clamp(__m128 u) {
    return _mm_min_ps(_mm_max_ps(u, _mm_setzero_ps()), _mm_set1_ps(1.0f));
}

// ShareOfPixel.
inline __m128 ShareOfPixels(const Piece& piece, __m128 x) {
    const __m128 end = _mm_min_ps(_mm_sub_ps(piece.right, x), piece.limit);
    const __m128 start = _mm_sub_ps(end, piece.extent);
    const __m128 endClamped = Clamp(end);
    const __m128 startClamped = Clamp(start);
    const __m128 toEnd = _mm_mul_ps(endClamped, _mm_sub_ps(_mm_add_ps(end, end), endClamped));
    const __m128 toStart = _mm_mul_ps(startClamped, _mm_sub_ps(_mm_add_ps(start, start), startClamped));
    return _mm_mul_ps(_mm_sub_ps(toEnd, toStart), piece.weight);
}

// CoverageByte, in 32-bit lanes.
inline __m128i CoverageBytes(__m128 coverage, __m128 opacity255) {
    return _mm_cvttps_epi32(_mm_add_ps(_mm_mul_ps(Clamp(coverage), opacity255), _mm_set1_ps(kRounding)));
}

// Over, in 16-bit lanes.
inline __m128i Over(__m128i under, __m128i coverage) {
    const __m128i rest = _mm_sub_epi16(_mm_set1_epi16(255), coverage);
    const __m128i product = _mm_add_epi16(_mm_mullo_epi16(under, rest), _mm_set1_epi16(128));
    const __m128i divided = _mm_srli_epi16(_mm_add_epi16(product, _mm_srli_epi16(product, 8)), 8);
    return _mm_add_epi16(coverage, divided);
}

// Puts the coverage of four pixels over them, as far as they are among the first `count`.
inline void BlendFour(std::uint8_t* pixels, int count, __m128 coverage, __m128 opacity255) {
    const __m128i inSpan = _mm_cmplt_epi32(_mm_setr_epi32(0, 1, 2, 3), _mm_set1_epi32(count));
    const __m128i bytes = _mm_and_si128(CoverageBytes(coverage, opacity255), inSpan);
    int four = 0;
    std::memcpy(&four, pixels, sizeof four);
    const __m128i under = _mm_unpacklo_epi8(_mm_cvtsi32_si128(four), _mm_setzero_si128());
    const __m128i result = Over(under, _mm_packs_epi32(bytes, bytes));
    four = _mm_cvtsi128_si32(_mm_packus_epi16(result, result));
    std::memcpy(pixels, &four, sizeof four);
}

} // namespace orvane::render::wide

#endif
