#include "zephor/layers/FetchRows.h"

#include <algorithm>
#include <cstring>

#ifdef __x86_64__
#    include <immintrin.h>
#endif

namespace orvane::zephor {

namespace {

std::uint32_t AddressAt(const std::byte* plan, int index) {
    std::uint32_t address;
    std::memcpy(&address, plan + std::size_t(index) * sizeof address, sizeof address);
    return address;
}

BlockRun RunAt(const std::byte* plan) {
    BlockRun run;
    std::memcpy(&run, plan, sizeof run);
    return run;
}

// The pixels of a row that is shorter than a block.
const std::byte* FetchShortRow(const std::byte* plan, const std::uint8_t* averaged, std::uint8_t* target,
                               int width) {
    for (int x = 0; x < width; ++x) target[x] = averaged[AddressAt(plan, x)];
    return plan + std::size_t(width) * sizeof(std::uint32_t);
}

// Where in its row a block stands: one after another, but the last one ends with the row.
struct BlockPosition {
    std::uint8_t* target;
    std::uint8_t* last;

    BlockPosition(std::uint8_t* row, int width)
        : target(row)
        , last(row + width - kBlockPixels) {}

    [[nodiscard]] bool AtEnd() const { return target >= last + kBlockPixels; }

    std::uint8_t* Take() {
        std::uint8_t* const at = std::min(target, last);
        target += kBlockPixels;
        return at;
    }
};

// Fetches `count` blocks of one kind that stand at `plan`, and returns where they end. The position is worked on as a
// copy, which no store of a byte can touch as far as the compiler knows.
using FetchBlocks = const std::byte* (*)(const std::byte* plan, const std::uint8_t* averaged,
                                         std::uint32_t count, BlockPosition& position);

const std::byte* FetchAddresses(const std::byte* plan, const std::uint8_t* averaged, std::uint32_t count,
                                BlockPosition& position) {
    BlockPosition at = position;
    for (; count != 0; --count, plan += sizeof(AddressBlock)) {
        std::uint8_t* const target = at.Take();
#pragma GCC unroll 16
        for (int i = 0; i < kBlockPixels; ++i) target[i] = averaged[AddressAt(plan, i)];
    }
    position = at;
    return plan;
}

// In the order of BlockKind. Plans of the portable form hold addresses alone.
constexpr FetchBlocks kPortable[] = { FetchAddresses, FetchAddresses, FetchAddresses, FetchAddresses };

#ifdef __x86_64__

#    define ORVANE_SSE41 __attribute__((target("sse4.1")))
#    define ORVANE_INLINE_SSE41 __attribute__((target("sse4.1"), always_inline)) inline
#    define ORVANE_AVX2 __attribute__((target("avx2")))
#    define ORVANE_INLINE_AVX2 __attribute__((target("avx2"), always_inline)) inline

ORVANE_INLINE_SSE41 __m128i Load(const void* at) {
    return _mm_loadu_si128(static_cast<const __m128i*>(at));
}

ORVANE_INLINE_SSE41 void Store(std::uint8_t* at, __m128i pixels) {
    _mm_storeu_si128(reinterpret_cast<__m128i*>(at), pixels);
}

// A shuffle gives 0 where bit 7 of the control is set, so each window fills in what the other one leaves.
ORVANE_INLINE_SSE41 __m128i TwoWindows(const std::byte* block, const std::uint8_t* averaged) {
    const __m128i control = Load(block + offsetof(TwoWindowBlock, control));
    const __m128i other = _mm_xor_si128(control, _mm_set1_epi8(char(1 << kSecondWindowBit)));
    return _mm_or_si128(_mm_shuffle_epi8(Load(averaged + AddressAt(block, 0)), control),
                        _mm_shuffle_epi8(Load(averaged + AddressAt(block, 1)), other));
}

// Window numbers stand from bit kWindowShift up. With the own number flipped away, an addition of 0x70 sets bit 7 in all
// bytes but those of the window.
template <class Block>
ORVANE_INLINE_SSE41 __m128i ManyWindows(const std::byte* block, const std::uint8_t* averaged) {
    constexpr int kWindows = sizeof(Block::places) / sizeof(std::uint32_t);
    const __m128i control = Load(block + offsetof(Block, control));
    __m128i pixels = _mm_setzero_si128();
#    pragma GCC unroll 8
    for (int i = 0; i < kWindows; ++i) {
        const __m128i own = _mm_xor_si128(control, _mm_set1_epi8(char(i << kWindowShift)));
        const __m128i place = _mm_add_epi8(own, _mm_set1_epi8(0x70));
        pixels = _mm_or_si128(pixels, _mm_shuffle_epi8(Load(averaged + AddressAt(block, i)), place));
    }
    return pixels;
}

template <class Block>
ORVANE_SSE41 const std::byte* FetchManyWindows(const std::byte* plan, const std::uint8_t* averaged,
                                               std::uint32_t count, BlockPosition& position) {
    BlockPosition at = position;
    for (; count != 0; --count, plan += sizeof(Block)) Store(at.Take(), ManyWindows<Block>(plan, averaged));
    position = at;
    return plan;
}

ORVANE_SSE41 const std::byte* FetchTwoWindows(const std::byte* plan, const std::uint8_t* averaged,
                                              std::uint32_t count, BlockPosition& position) {
    BlockPosition at = position;
    for (; count != 0; --count, plan += sizeof(TwoWindowBlock)) Store(at.Take(), TwoWindows(plan, averaged));
    position = at;
    return plan;
}

constexpr FetchBlocks kSse41[] = { FetchTwoWindows, FetchManyWindows<FourWindowBlock>,
                                   FetchManyWindows<EightWindowBlock>, FetchAddresses };

// Two blocks at a time, as long as they stand side by side.
ORVANE_INLINE_AVX2 __m256i Load2(const void* low, const void* high) {
    return _mm256_inserti128_si256(_mm256_castsi128_si256(Load(low)), Load(high), 1);
}

ORVANE_AVX2 const std::byte* FetchTwoWindowsAvx2(const std::byte* plan, const std::uint8_t* averaged,
                                                 std::uint32_t count, BlockPosition& position) {
    BlockPosition at = position;
    for (; count >= 2 && at.target + kBlockPixels <= at.last;
         count -= 2, plan += 2 * sizeof(TwoWindowBlock)) {
        const std::byte* const second = plan + sizeof(TwoWindowBlock);
        const __m256i control =
            Load2(plan + offsetof(TwoWindowBlock, control), second + offsetof(TwoWindowBlock, control));
        const __m256i other = _mm256_xor_si256(control, _mm256_set1_epi8(char(1 << kSecondWindowBit)));
        const __m256i window0 = Load2(averaged + AddressAt(plan, 0), averaged + AddressAt(second, 0));
        const __m256i window1 = Load2(averaged + AddressAt(plan, 1), averaged + AddressAt(second, 1));
        const __m256i pixels =
            _mm256_or_si256(_mm256_shuffle_epi8(window0, control), _mm256_shuffle_epi8(window1, other));
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(at.target), pixels);
        at.target += 2 * kBlockPixels;
    }
    position = at;
    return FetchTwoWindows(plan, averaged, count, position);
}

constexpr FetchBlocks kAvx2[] = { FetchTwoWindowsAvx2, FetchManyWindows<FourWindowBlock>,
                                  FetchManyWindows<EightWindowBlock>, FetchAddresses };

#endif

template <const FetchBlocks* ByKind>
const std::byte* FetchRow(const std::byte* plan, const std::uint8_t* averaged, std::uint8_t* target,
                          int width) {
    if (width < kBlockPixels) return FetchShortRow(plan, averaged, target, width);
    for (BlockPosition position(target, width); !position.AtEnd();) {
        const BlockRun run = RunAt(plan);
        plan = ByKind[std::size_t(run.kind)](plan + sizeof run, averaged, run.count, position);
    }
    return plan;
}

} // namespace

FetchRowFunction FetchRowOf(FeedbackForm form) {
    switch (form) {
#ifdef __x86_64__
    case FeedbackForm::Sse41:
        return FetchRow<kSse41>;
    case FeedbackForm::Avx2:
        return FetchRow<kAvx2>;
#endif
    default:
        return FetchRow<kPortable>;
    }
}

} // namespace orvane::zephor
