#include "zephor/layers/CellAddresses.h"

#include "zephor/layers/FeedbackStep.h"

#ifdef __x86_64__
#    include <immintrin.h>
#endif

namespace orvane::zephor {

namespace {

std::uint32_t AddressOf(const DeltaCell& cell, int x, const ImageShape& shape) {
    const int sx = FeedbackAddress(cell.x, shape.width - 1, x, shape.width);
    const int sy = FeedbackAddress(cell.y, shape.height - 1, x, shape.width);
    return std::uint32_t(sy) * shape.rowBytes + std::uint32_t(sx);
}

void RowAddresses(const DeltaCell* cells, const ImageShape& shape, std::uint32_t* out) {
    for (int x = 0; x < shape.width; ++x) out[x] = AddressOf(cells[x], x, shape);
}

#ifdef __x86_64__

#    define ORVANE_SSE41 __attribute__((target("sse4.1")))

// Two cells as whole numbers. The operand order gives 0 for what is not a number; what no integer holds becomes 0
// under the mask.
ORVANE_SSE41 __m128i RoundedCells(const DeltaCell* cells) {
    const __m128 floats = _mm_loadu_ps(reinterpret_cast<const float*>(cells));
    return _mm_and_si128(_mm_cvtps_epi32(_mm_max_ps(floats, _mm_setzero_ps())), _mm_set1_epi32(kAddressBits));
}

// Four pixels that have partners.
ORVANE_SSE41 void FourAddresses(const DeltaCell* cells, const ImageShape& shape, std::uint32_t* out) {
    const __m128 left = _mm_castsi128_ps(RoundedCells(cells));
    const __m128 right = _mm_castsi128_ps(RoundedCells(cells + 2));
    const __m128i x = _mm_castps_si128(_mm_shuffle_ps(left, right, _MM_SHUFFLE(2, 0, 2, 0)));
    const __m128i y = _mm_castps_si128(_mm_shuffle_ps(left, right, _MM_SHUFFLE(3, 1, 3, 1)));
    const __m128i column = _mm_min_epi32(x, _mm_set1_epi32(shape.width - 1));
    const __m128i row = _mm_min_epi32(y, _mm_set1_epi32(shape.height - 1));
    const __m128i place = _mm_add_epi32(_mm_mullo_epi32(row, _mm_set1_epi32(int(shape.rowBytes))), column);
    _mm_storeu_si128(reinterpret_cast<__m128i*>(out), place);
}

ORVANE_SSE41 void RowAddressesSse41(const DeltaCell* cells, const ImageShape& shape, std::uint32_t* out) {
    constexpr int kLanes = 4;
    int x = 0;
    for (; x + kLanes <= PairedColumns(shape.width); x += kLanes) FourAddresses(cells + x, shape, out + x);
    for (; x < shape.width; ++x) out[x] = AddressOf(cells[x], x, shape);
}

#endif

} // namespace

RowAddressesFunction RowAddressesOf(FeedbackForm form) {
#ifdef __x86_64__
    if (MayShuffle(form)) return RowAddressesSse41;
#endif
    static_cast<void>(form);
    return RowAddresses;
}

} // namespace orvane::zephor
