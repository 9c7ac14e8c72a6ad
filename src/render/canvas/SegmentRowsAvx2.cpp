// Eight rows at a time, one in each lane: all of them get their edge pieces at once, and then, from its own first
// column on, four pixels each.
#include "render/canvas/SegmentRowsAvx2.h"

#ifdef __x86_64__

#    include <algorithm>
#    include <cstring>

#    include <immintrin.h>

#    define ORVANE_AVX2 __attribute__((target("avx2")))
#    define ORVANE_AVX2_INLINE __attribute__((target("avx2"), always_inline)) inline

namespace orvane::render {

namespace {

constexpr int kRows = 8, kColumns = 4; // of the pixels that are blended at once
constexpr float kFarAway = 1e9f;       // beyond every column

// The pieces of one edge, a row in each lane.
struct Pieces {
    __m256 right, extent, limit, weight;
};

// The columns that the shape covers in each row: where it begins, and how many. A row without a part in the shape
// has none.
struct Spans {
    __m256i first, count;
    int widest;
};

ORVANE_AVX2_INLINE __m256 Clamp(__m256 u) {
    return _mm256_min_ps(_mm256_max_ps(u, _mm256_setzero_ps()), _mm256_set1_ps(1.0f));
}

// ShareOfPixel.
ORVANE_AVX2_INLINE __m256 ShareOfPixels(const Pieces& pieces, __m256 x) {
    const __m256 end = _mm256_min_ps(_mm256_sub_ps(pieces.right, x), pieces.limit);
    const __m256 start = _mm256_sub_ps(end, pieces.extent);
    const __m256 endClamped = Clamp(end);
    const __m256 startClamped = Clamp(start);
    const __m256 toEnd = _mm256_mul_ps(endClamped, _mm256_sub_ps(_mm256_add_ps(end, end), endClamped));
    const __m256 toStart =
        _mm256_mul_ps(startClamped, _mm256_sub_ps(_mm256_add_ps(start, start), startClamped));
    return _mm256_mul_ps(_mm256_sub_ps(toEnd, toStart), pieces.weight);
}

// CoverageByte, in 32-bit lanes.
ORVANE_AVX2_INLINE __m256i CoverageBytes(__m256 coverage, __m256 opacity255) {
    return _mm256_cvttps_epi32(
        _mm256_add_ps(_mm256_mul_ps(Clamp(coverage), opacity255), _mm256_set1_ps(kRounding)));
}

// Over, in 16-bit lanes, but for the coverage itself, which is still to be added.
ORVANE_AVX2_INLINE __m256i Rest(__m256i under, __m256i coverage) {
    const __m256i rest = _mm256_sub_epi16(_mm256_set1_epi16(255), coverage);
    const __m256i product = _mm256_add_epi16(_mm256_mullo_epi16(under, rest), _mm256_set1_epi16(128));
    return _mm256_srli_epi16(_mm256_add_epi16(product, _mm256_srli_epi16(product, 8)), 8);
}

// Over, in bytes.
ORVANE_AVX2_INLINE __m256i Over(__m256i under, __m256i coverage) {
    const __m256i zero = _mm256_setzero_si256();
    const __m256i low = Rest(_mm256_unpacklo_epi8(under, zero), _mm256_unpacklo_epi8(coverage, zero));
    const __m256i high = Rest(_mm256_unpackhi_epi8(under, zero), _mm256_unpackhi_epi8(coverage, zero));
    return _mm256_add_epi8(_mm256_packus_epi16(low, high), coverage);
}

// From the bytes of four columns, each a vector of rows, to four bytes of each row. Columns from the `left`-th on are
// not among them.
ORVANE_AVX2_INLINE __m256i ToRows(const __m256i (&columns)[kColumns], __m256i left) {
    const __m256i packed = _mm256_packus_epi16(_mm256_packs_epi32(columns[0], columns[1]),
                                               _mm256_packs_epi32(columns[2], columns[3]));
    const __m256i turn =
        _mm256_broadcastsi128_si256(_mm_setr_epi8(0, 4, 8, 12, 1, 5, 9, 13, 2, 6, 10, 14, 3, 7, 11, 15));
    const __m256i bits = _mm256_slli_epi32(_mm256_max_epi32(left, _mm256_setzero_si256()), 3);
    const __m256i beyond = _mm256_sllv_epi32(_mm256_set1_epi32(-1), bits); // 0 from 32 on
    return _mm256_andnot_si256(beyond, _mm256_shuffle_epi8(packed, turn));
}

class EightRows {
public:
    // Of `rows`, those from `y` on, as far as there are any.
    ORVANE_AVX2_INLINE EightRows(const SegmentRows& rows, int y)
        : mRows(rows)
        , mPixels(rows.Row(y))
        , mCount(std::min(rows.lastRow - y, kRows))
        , mRowTop(_mm256_cvtepi32_ps(_mm256_add_epi32(_mm256_set1_epi32(y - rows.originY), Lanes()))) {}

    // The edges are those of the segment that have a part in the rows, in their order.
    template <int Edges>
    ORVANE_AVX2_INLINE void Blend(const int (&edges)[Edges]) {
        Pieces pieces[Edges];
        for (int i = 0; i < Edges; ++i) pieces[i] = MakePieces(edges[i]);
        const Spans spans = MakeSpans();
        const __m256 opacity255 = _mm256_set1_ps(mRows.opacity255);
        for (int done = 0; done < spans.widest; done += kColumns) {
            const __m256i first = _mm256_add_epi32(spans.first, _mm256_set1_epi32(done));
            __m256i columns[kColumns];
            for (int k = 0; k < kColumns; ++k) {
                const __m256 x = _mm256_cvtepi32_ps(_mm256_add_epi32(first, _mm256_set1_epi32(k)));
                __m256 coverage = ShareOfPixels(pieces[0], x);
                for (int i = 1; i < Edges; ++i)
                    coverage = _mm256_add_ps(coverage, ShareOfPixels(pieces[i], x));
                columns[k] = CoverageBytes(coverage, opacity255);
            }
            BlendFours(first, ToRows(columns, _mm256_sub_epi32(spans.count, _mm256_set1_epi32(done))));
        }
    }

private:
    static ORVANE_AVX2_INLINE __m256i Lanes() { return _mm256_setr_epi32(0, 1, 2, 3, 4, 5, 6, 7); }

    // MakeEdgePiece for a part of an edge in each row.
    ORVANE_AVX2_INLINE Pieces MakePieces(int edge) {
        const SegmentEdges& edges = mRows.edges;
        const __m256 zero = _mm256_setzero_ps(), half = _mm256_set1_ps(0.5f), one = _mm256_set1_ps(1.0f);
        const __m256 top = _mm256_set1_ps(edges.top[edge]);
        const __m256 from = _mm256_max_ps(top, mRowTop);
        const __m256 to = _mm256_min_ps(_mm256_set1_ps(edges.bottom[edge]), _mm256_add_ps(mRowTop, one));
        const __m256 height = _mm256_max_ps(_mm256_sub_ps(to, from), zero);
        const __m256 middle = _mm256_add_ps(_mm256_sub_ps(from, top), _mm256_mul_ps(height, half));
        const __m256 x = _mm256_add_ps(_mm256_set1_ps(edges.x[edge]),
                                       _mm256_mul_ps(middle, _mm256_set1_ps(edges.slope[edge])));
        const __m256 run = _mm256_mul_ps(height, _mm256_set1_ps(edges.run[edge]));
        const __m256 extent = _mm256_max_ps(run, _mm256_set1_ps(EdgePiece::kLeastExtent));
        const __m256 upright = _mm256_mul_ps(height, _mm256_set1_ps(EdgePiece::kMostSteepness));
        const __m256 steepness = _mm256_min_ps(_mm256_set1_ps(edges.steepness[edge]), upright);
        const __m256 right = _mm256_add_ps(x, _mm256_mul_ps(extent, half));
        // An edge that has no part in the row is no reason to begin it earlier or to end it later.
        const __m256 away = _mm256_and_ps(_mm256_cmp_ps(height, zero, _CMP_EQ_OQ), mFar);
        mLow = _mm256_min_ps(mLow, _mm256_add_ps(_mm256_sub_ps(right, extent), away));
        mHigh = _mm256_max_ps(mHigh, _mm256_sub_ps(right, away));
        return { right, extent, _mm256_add_ps(extent, one),
                 _mm256_mul_ps(_mm256_set1_ps(edges.sign[edge]), _mm256_mul_ps(steepness, half)) };
    }

    ORVANE_AVX2_INLINE Spans MakeSpans() const {
        const __m256i first =
            _mm256_max_epi32(_mm256_cvttps_epi32(mLow), _mm256_set1_epi32(mRows.FirstColumn()));
        const __m256i end =
            _mm256_min_epi32(_mm256_add_epi32(_mm256_cvttps_epi32(mHigh), _mm256_set1_epi32(1)),
                             _mm256_set1_epi32(mRows.EndColumn()));
        const __m256i count = _mm256_and_si256(_mm256_sub_epi32(end, first), Used());
        __m128i widest = _mm_max_epi32(_mm256_castsi256_si128(count), _mm256_extracti128_si256(count, 1));
        widest = _mm_max_epi32(widest, _mm_shuffle_epi32(widest, _MM_SHUFFLE(1, 0, 3, 2)));
        widest = _mm_max_epi32(widest, _mm_shuffle_epi32(widest, _MM_SHUFFLE(2, 3, 0, 1)));
        return { first, count, _mm_cvtsi128_si32(widest) };
    }

    // The lanes of rows that there are.
    ORVANE_AVX2_INLINE __m256i Used() const { return _mm256_cmpgt_epi32(_mm256_set1_epi32(mCount), Lanes()); }

    // Four bytes of coverage over those of each row from its column `first` on. What lies past the last column
    // reads and writes back the padding.
    ORVANE_AVX2_INLINE void BlendFours(__m256i first, __m256i coverage) const {
        const int rowBytes = int(mRows.surface.rowBytes);
        // A lane without a row of its own reads the last row's pixels; it writes none.
        const __m256i rowOfLane = _mm256_min_epi32(Lanes(), _mm256_set1_epi32(mCount - 1));
        alignas(32) int places[kRows], fours[kRows];
        _mm256_store_si256(reinterpret_cast<__m256i*>(places),
                           _mm256_add_epi32(_mm256_min_epi32(first, _mm256_set1_epi32(mRows.EndColumn())),
                                            _mm256_mullo_epi32(rowOfLane, _mm256_set1_epi32(rowBytes))));
        const __m256i under =
            _mm256_setr_epi32(FourAt(places[0]), FourAt(places[1]), FourAt(places[2]), FourAt(places[3]),
                              FourAt(places[4]), FourAt(places[5]), FourAt(places[6]), FourAt(places[7]));
        _mm256_store_si256(reinterpret_cast<__m256i*>(fours), Over(under, coverage));
        for (int i = 0; i < mCount; ++i) std::memcpy(mPixels + places[i], &fours[i], sizeof fours[i]);
    }

    ORVANE_AVX2_INLINE int FourAt(int place) const {
        int four = 0;
        std::memcpy(&four, mPixels + place, sizeof four);
        return four;
    }

    const SegmentRows& mRows;
    std::uint8_t* mPixels; // of the first row, at the origin's column
    int mCount;
    __m256 mRowTop;
    __m256 mFar = _mm256_set1_ps(kFarAway);
    __m256 mLow = mFar, mHigh = _mm256_sub_ps(_mm256_setzero_ps(), mFar); // of the pieces made
};

} // namespace

bool HasAvx2() {
    static const bool sHas = __builtin_cpu_supports("avx2");
    return sHas;
}

ORVANE_AVX2 void FillRowsAvx2(const SegmentRows& rows) {
    const EndRows ends = EndRowsOf(rows);
    for (int y = rows.firstRow; y < rows.lastRow; y += kRows) {
        const bool atUpper = y < ends.belowUpper;
        const bool atLower = std::min(y + kRows, rows.lastRow) > ends.lower;
        EightRows eight(rows, y);
        if (atUpper && atLower)
            eight.Blend({ 0, 1, 2, 3 });
        else if (atUpper || atLower)
            eight.Blend({ 0, 1, atUpper ? 2 : 3 });
        else
            eight.Blend({ 0, 1 });
    }
}

} // namespace orvane::render

#endif
