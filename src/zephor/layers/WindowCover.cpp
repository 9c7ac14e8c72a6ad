#include "zephor/layers/WindowCover.h"

#ifdef __x86_64__
#    include <immintrin.h>
#endif

namespace orvane::zephor {

#ifdef __x86_64__

#    define ORVANE_SSE41 __attribute__((target("sse4.1")))

namespace {

constexpr std::uint32_t kCovered = UINT32_MAX;
constexpr int kVectors = 4; // of four addresses each

ORVANE_SSE41 std::uint32_t Least(const __m128i rest[kVectors]) {
    const __m128i four = _mm_min_epu32(_mm_min_epu32(rest[0], rest[1]), _mm_min_epu32(rest[2], rest[3]));
    const __m128i two = _mm_min_epu32(four, _mm_shuffle_epi32(four, _MM_SHUFFLE(1, 0, 3, 2)));
    const __m128i one = _mm_min_epu32(two, _mm_shuffle_epi32(two, _MM_SHUFFLE(2, 3, 0, 1)));
    return std::uint32_t(_mm_cvtsi128_si32(one));
}

} // namespace

ORVANE_SSE41 void CoverWithWindows(const std::uint32_t addresses[kBlockPixels], WindowCover& cover) {
    const auto* const from = reinterpret_cast<const __m128i*>(addresses);
    __m128i rest[kVectors], control[kVectors];
    for (int j = 0; j < kVectors; ++j) {
        rest[j] = _mm_loadu_si128(from + j);
        control[j] = _mm_setzero_si128();
    }
    int count = 0;
    for (std::uint32_t first = Least(rest); first != kCovered; first = Least(rest)) {
        if (count == kMostWindows) {
            cover.count = kMostWindows + 1;
            return;
        }
        cover.places[count] = first;
        for (int j = 0; j < kVectors; ++j) {
            const __m128i distance = _mm_sub_epi32(rest[j], _mm_set1_epi32(int(first)));
            const __m128i nearest = _mm_min_epu32(distance, _mm_set1_epi32(kBlockPixels - 1));
            const __m128i inside = _mm_cmpeq_epi32(nearest, distance);
            const __m128i named = _mm_or_si128(distance, _mm_set1_epi32(count << kWindowShift));
            control[j] = _mm_or_si128(control[j], _mm_and_si128(named, inside));
            rest[j] = _mm_or_si128(rest[j], inside); // kCovered
        }
        ++count;
    }
    cover.count = count;
    for (; count < kMostWindows; ++count) cover.places[count] = cover.places[0];
    const __m128i bytes =
        _mm_packus_epi16(_mm_packus_epi32(control[0], control[1]), _mm_packus_epi32(control[2], control[3]));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(cover.control), bytes);
}

#else

void CoverWithWindows(const std::uint32_t*, WindowCover& cover) {
    cover.count = kMostWindows + 1;
}

#endif

} // namespace orvane::zephor
