#include "zephor/layers/AverageRows.h"

#include "zephor/layers/FeedbackStep.h"

#include <algorithm>

#ifdef __x86_64__
#    include <immintrin.h>
#endif

namespace orvane::zephor {

namespace {

void AverageRow(const std::uint8_t* upper, const std::uint8_t* lower, std::uint8_t* out, int width) {
    for (int x = 0; x < width; ++x) out[x] = Decayed((upper[x] + upper[x + 1] + lower[x] + lower[x + 1]) / 4);
}

#ifdef __x86_64__

#    define ORVANE_SSE41 __attribute__((target("sse4.1")))
#    define ORVANE_AVX2 __attribute__((target("avx2")))

constexpr int kLanes16 = 16, kLanes32 = 32; // pixels in a vector

ORVANE_SSE41 __m128i Load(const std::uint8_t* at) {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
}

// Sixteen pixels. The sums of an even column and its right neighbour lie in one vector of 16-bit lanes, those
// of the odd columns in another.
ORVANE_SSE41 void AverageSixteen(const std::uint8_t* upper, const std::uint8_t* lower, std::uint8_t* out) {
    const __m128i ones = _mm_set1_epi8(1);
    const __m128i even =
        _mm_add_epi16(_mm_maddubs_epi16(Load(upper), ones), _mm_maddubs_epi16(Load(lower), ones));
    const __m128i odd =
        _mm_add_epi16(_mm_maddubs_epi16(Load(upper + 1), ones), _mm_maddubs_epi16(Load(lower + 1), ones));
    const __m128i index = _mm_or_si128(_mm_srli_epi16(even, 2), _mm_slli_epi16(_mm_srli_epi16(odd, 2), 8));
    const __m128i decayed = _mm_min_epu8(_mm_subs_epu8(index, ones), _mm_set1_epi8(char(kBrightestFedBack)));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(out), decayed);
}

ORVANE_SSE41 void AverageRowSse41(const std::uint8_t* upper, const std::uint8_t* lower, std::uint8_t* out,
                                  int width) {
    // A whole vector reads one byte past its pixels, so the last one ends at the last column.
    if (width < kLanes16) return AverageRow(upper, lower, out, width);
    for (int x = 0; x < width; x += kLanes16) {
        const int at = std::min(x, width - kLanes16);
        AverageSixteen(upper + at, lower + at, out + at);
    }
}

ORVANE_AVX2 __m256i Load32(const std::uint8_t* at) {
    return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(at));
}

ORVANE_AVX2 void AverageThirtyTwo(const std::uint8_t* upper, const std::uint8_t* lower, std::uint8_t* out) {
    const __m256i ones = _mm256_set1_epi8(1);
    const __m256i even = _mm256_add_epi16(_mm256_maddubs_epi16(Load32(upper), ones),
                                          _mm256_maddubs_epi16(Load32(lower), ones));
    const __m256i odd = _mm256_add_epi16(_mm256_maddubs_epi16(Load32(upper + 1), ones),
                                         _mm256_maddubs_epi16(Load32(lower + 1), ones));
    const __m256i index =
        _mm256_or_si256(_mm256_srli_epi16(even, 2), _mm256_slli_epi16(_mm256_srli_epi16(odd, 2), 8));
    const __m256i decayed =
        _mm256_min_epu8(_mm256_subs_epu8(index, ones), _mm256_set1_epi8(char(kBrightestFedBack)));
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(out), decayed);
}

ORVANE_AVX2 void AverageRowAvx2(const std::uint8_t* upper, const std::uint8_t* lower, std::uint8_t* out,
                                int width) {
    if (width < kLanes32) return AverageRowSse41(upper, lower, out, width);
    for (int x = 0; x < width; x += kLanes32) {
        const int at = std::min(x, width - kLanes32);
        AverageThirtyTwo(upper + at, lower + at, out + at);
    }
}

#endif

} // namespace

AverageRowFunction AverageRowOf(FeedbackForm form) {
    switch (form) {
#ifdef __x86_64__
    case FeedbackForm::Sse41:
        return AverageRowSse41;
    case FeedbackForm::Avx2:
        return AverageRowAvx2;
#endif
    default:
        return AverageRow;
    }
}

} // namespace orvane::zephor
