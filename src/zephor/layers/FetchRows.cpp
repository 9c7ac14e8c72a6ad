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

const std::byte* FetchAddresses(const std::byte* plan, const std::uint8_t* averaged, std::uint32_t count,
                                BlockPosition& position) {
    for (; count != 0; --count, plan += sizeof(AddressBlock)) {
        std::uint8_t* const target = position.Take();
#pragma GCC unroll 16
        for (int i = 0; i < kBlockPixels; ++i) target[i] = averaged[AddressAt(plan, i)];
    }
    return plan;
}

const std::byte* FetchRow(const std::byte* plan, const std::uint8_t* averaged, std::uint8_t* target,
                          int width) {
    if (width < kBlockPixels) return FetchShortRow(plan, averaged, target, width);
    for (BlockPosition position(target, width); !position.AtEnd();) {
        const BlockRun run = RunAt(plan);
        plan = FetchAddresses(plan + sizeof run, averaged, run.count, position);
    }
    return plan;
}

#ifdef __x86_64__

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
ORVANE_INLINE_SSE41 const std::byte* FetchManyWindows(const std::byte* plan, const std::uint8_t* averaged,
                                                      std::uint32_t count, BlockPosition& position) {
    for (; count != 0; --count, plan += sizeof(Block))
        Store(position.Take(), ManyWindows<Block>(plan, averaged));
    return plan;
}

ORVANE_INLINE_SSE41 const std::byte* FetchTwoWindows(const std::byte* plan, const std::uint8_t* averaged,
                                                     std::uint32_t count, BlockPosition& position) {
    for (; count != 0; --count, plan += sizeof(TwoWindowBlock))
        Store(position.Take(), TwoWindows(plan, averaged));
    return plan;
}

// Two blocks at a time, as long as they stand side by side.
ORVANE_INLINE_AVX2 __m256i Load2(const void* low, const void* high) {
    return _mm256_inserti128_si256(_mm256_castsi128_si256(Load(low)), Load(high), 1);
}

ORVANE_INLINE_AVX2 const std::byte* FetchTwoWindowsAvx2(const std::byte* plan, const std::uint8_t* averaged,
                                                        std::uint32_t count, BlockPosition& position) {
    for (; count >= 2 && position.target < position.last; count -= 2, plan += 2 * sizeof(TwoWindowBlock)) {
        if (position.target + kBlockPixels > position.last) break;
        const std::byte* const second = plan + sizeof(TwoWindowBlock);
        const __m256i control =
            Load2(plan + offsetof(TwoWindowBlock, control), second + offsetof(TwoWindowBlock, control));
        const __m256i other = _mm256_xor_si256(control, _mm256_set1_epi8(char(1 << kSecondWindowBit)));
        const __m256i window0 = Load2(averaged + AddressAt(plan, 0), averaged + AddressAt(second, 0));
        const __m256i window1 = Load2(averaged + AddressAt(plan, 1), averaged + AddressAt(second, 1));
        const __m256i pixels =
            _mm256_or_si256(_mm256_shuffle_epi8(window0, control), _mm256_shuffle_epi8(window1, other));
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(position.target), pixels);
        position.target += 2 * kBlockPixels;
    }
    return FetchTwoWindows(plan, averaged, count, position);
}

__attribute__((target("sse4.1"))) const std::byte*
FetchRowSse41(const std::byte* plan, const std::uint8_t* averaged, std::uint8_t* target, int width) {
    if (width < kBlockPixels) return FetchShortRow(plan, averaged, target, width);
    for (BlockPosition position(target, width); !position.AtEnd();) {
        const BlockRun run = RunAt(plan);
        plan += sizeof run;
        switch (run.kind) {
        case BlockKind::TwoWindows:
            plan = FetchTwoWindows(plan, averaged, run.count, position);
            break;
        case BlockKind::FourWindows:
            plan = FetchManyWindows<FourWindowBlock>(plan, averaged, run.count, position);
            break;
        case BlockKind::EightWindows:
            plan = FetchManyWindows<EightWindowBlock>(plan, averaged, run.count, position);
            break;
        case BlockKind::Addresses:
            plan = FetchAddresses(plan, averaged, run.count, position);
            break;
        }
    }
    return plan;
}

ORVANE_AVX2 const std::byte* FetchRowAvx2(const std::byte* plan, const std::uint8_t* averaged,
                                          std::uint8_t* target, int width) {
    if (width < kBlockPixels) return FetchShortRow(plan, averaged, target, width);
    for (BlockPosition position(target, width); !position.AtEnd();) {
        const BlockRun run = RunAt(plan);
        plan += sizeof run;
        switch (run.kind) {
        case BlockKind::TwoWindows:
            plan = FetchTwoWindowsAvx2(plan, averaged, run.count, position);
            break;
        case BlockKind::FourWindows:
            plan = FetchManyWindows<FourWindowBlock>(plan, averaged, run.count, position);
            break;
        case BlockKind::EightWindows:
            plan = FetchManyWindows<EightWindowBlock>(plan, averaged, run.count, position);
            break;
        case BlockKind::Addresses:
            plan = FetchAddresses(plan, averaged, run.count, position);
            break;
        }
    }
    return plan;
}

#endif

} // namespace

FetchRowFunction FetchRowOf(FeedbackForm form) {
    switch (form) {
#ifdef __x86_64__
    case FeedbackForm::Sse41:
        return FetchRowSse41;
    case FeedbackForm::Avx2:
        return FetchRowAvx2;
#endif
    default:
        return FetchRow;
    }
}

} // namespace orvane::zephor
