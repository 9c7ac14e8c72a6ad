#include "render/canvas/SegmentRows.h"

#include "render/canvas/CoverageWide.h"
#include "render/canvas/PolygonFill.h"
#include "render/canvas/SegmentRowsAvx2.h"

#include <algorithm>

namespace orvane::render {

namespace {

constexpr int kEdges = SegmentEdges::kCount;
constexpr float kFarAway = 1e9f; // beyond every column

} // namespace

EndRows EndRowsOf(const SegmentRows& rows) {
    const SegmentEdges& edges = rows.edges;
    const float upperEnd = std::max({ edges.bottom[2], edges.top[0], edges.top[1] });
    const float lowerEnd = std::min({ edges.top[3], edges.bottom[0], edges.bottom[1] });
    // Heights count from an origin above the shape, so none is below 0 and dropping the fraction is the floor.
    const int upperRow = int(upperEnd);
    return { rows.originY + upperRow + (float(upperRow) < upperEnd ? 1 : 0), rows.originY + int(lowerEnd) };
}

void FillRowsScalar(const SegmentRows& rows) {
    const SegmentEdges& edges = rows.edges;
    for (int y = rows.firstRow; y < rows.lastRow; ++y) {
        const auto rowTop = float(y - rows.originY);
        EdgePiece pieces[kEdges];
        int count = 0;
        float low = kFarAway;
        float high = -kFarAway;
        for (int i = 0; i < kEdges; ++i) {
            const float from = std::max(edges.top[i], rowTop);
            const float height = std::min(edges.bottom[i], rowTop + 1.0f) - from;
            if (!(height > 0.0f)) continue;
            const float x = edges.x[i] + ((from - edges.top[i]) + height * 0.5f) * edges.slope[i];
            pieces[count] = MakeEdgePiece(x, height, edges.slope[i], edges.steepness[i], edges.sign[i]);
            low = std::min(low, pieces[count].right - pieces[count].extent);
            high = std::max(high, pieces[count].right);
            ++count;
        }
        const int first = std::max(int(low), rows.FirstColumn());
        const int end = std::min(int(high) + 1, rows.EndColumn());
        BlendPiecesScalar({ rows.Row(y) + first, end - first, float(first), 0, rows.opacity255 }, pieces,
                          count);
    }
}

#ifdef __SSE2__

namespace {

// The pieces of the four edges in one row, each with the fields of an EdgePiece, and the columns that they
// cover. An edge that has no part in the row gets a weight of 0.
struct RowPieces {
    __m128 edge[kEdges];
    int first, end;
};

// The four edges are the four lanes.
RowPieces MakeRowPieces(const SegmentRows& rows, float rowTop) {
    const SegmentEdges& edges = rows.edges;
    const __m128 zero = _mm_setzero_ps();
    const __m128 half = _mm_set1_ps(0.5f);
    const __m128 top = _mm_loadu_ps(edges.top);
    const __m128 from = _mm_max_ps(top, _mm_set1_ps(rowTop));
    const __m128 to = _mm_min_ps(_mm_loadu_ps(edges.bottom), _mm_set1_ps(rowTop + 1.0f));
    const __m128 height = _mm_max_ps(_mm_sub_ps(to, from), zero);
    const __m128 middle = _mm_add_ps(_mm_sub_ps(from, top), _mm_mul_ps(height, half));
    const __m128 x = _mm_add_ps(_mm_loadu_ps(edges.x), _mm_mul_ps(middle, _mm_loadu_ps(edges.slope)));
    const __m128 run = _mm_mul_ps(height, _mm_loadu_ps(edges.run));
    const __m128 extent = _mm_max_ps(run, _mm_set1_ps(EdgePiece::kLeastExtent));
    const __m128 upright = _mm_mul_ps(height, _mm_set1_ps(EdgePiece::kMostSteepness));
    const __m128 steepness = _mm_min_ps(_mm_loadu_ps(edges.steepness), upright);
    const __m128 right = _mm_add_ps(x, _mm_mul_ps(extent, half));

    // An edge that has no part in the row is no reason to begin it earlier or to end it later.
    const __m128 away = _mm_and_ps(_mm_cmpeq_ps(height, zero), _mm_set1_ps(kFarAway));
    __m128 low = _mm_add_ps(_mm_sub_ps(right, extent), away);
    __m128 high = _mm_sub_ps(right, away);
    low = _mm_min_ps(low, _mm_movehl_ps(low, low));
    high = _mm_max_ps(high, _mm_movehl_ps(high, high));
    low = _mm_min_ss(low, _mm_shuffle_ps(low, low, 1));
    high = _mm_max_ss(high, _mm_shuffle_ps(high, high, 1));

    RowPieces pieces = { { right, extent, _mm_add_ps(extent, _mm_set1_ps(1.0f)),
                           _mm_mul_ps(_mm_loadu_ps(edges.sign), _mm_mul_ps(steepness, half)) },
                         std::max(_mm_cvttss_si32(low), rows.FirstColumn()),
                         std::min(_mm_cvttss_si32(high) + 1, rows.EndColumn()) };
    _MM_TRANSPOSE4_PS(pieces.edge[0], pieces.edge[1], pieces.edge[2], pieces.edge[3]);
    return pieces;
}

template <int Count>
void BlendRow(const SegmentRows& rows, int y, const wide::Piece* pieces, int first, int end) {
    const __m128 opacity = _mm_set1_ps(rows.opacity255);
    std::uint8_t* const row = rows.Row(y);
    for (int column = first; column < end; column += wide::kGroup) {
        const __m128 x = _mm_add_ps(_mm_set1_ps(float(column)), _mm_setr_ps(0, 1, 2, 3));
        __m128 coverage = wide::ShareOfPixels(pieces[0], x);
        for (int i = 1; i < Count; ++i) coverage = _mm_add_ps(coverage, wide::ShareOfPixels(pieces[i], x));
        wide::BlendFour(row + column, end - column, coverage, opacity);
    }
}

// A row that one or both ends of the segment reach.
void BlendEndRow(const SegmentRows& rows, int y, bool upperEnd, bool lowerEnd) {
    const RowPieces row = MakeRowPieces(rows, float(y - rows.originY));
    wide::Piece pieces[kEdges] = { wide::Piece(row.edge[0]), wide::Piece(row.edge[1]),
                                   wide::Piece(row.edge[upperEnd ? 2 : 3]), wide::Piece(row.edge[3]) };
    if (upperEnd && lowerEnd)
        BlendRow<4>(rows, y, pieces, row.first, row.end);
    else
        BlendRow<3>(rows, y, pieces, row.first, row.end);
}

// A row that both long edges cross from its upper to its lower side, and neither end reaches. From one such
// row to the next only the place of the pieces changes.
class PlainRows {
public:
    explicit PlainRows(const SegmentEdges& edges)
        : mExtent(std::max(edges.run[0], EdgePiece::kLeastExtent))
        , mWeight(std::min(edges.steepness[0], EdgePiece::kMostSteepness) * 0.5f)
        , mPieces{ wide::Piece(_mm_setr_ps(0, mExtent, 1.0f + mExtent, -mWeight)),
                   wide::Piece(_mm_setr_ps(0, mExtent, 1.0f + mExtent, mWeight)) } {}

    void Blend(const SegmentRows& rows, int y) {
        const float left = Right(rows.edges, 0, float(y - rows.originY));
        const float right = Right(rows.edges, 1, float(y - rows.originY));
        mPieces[0].right = _mm_set1_ps(left);
        mPieces[1].right = _mm_set1_ps(right);
        BlendRow<2>(rows, y, mPieces, std::max(int(left - mExtent), rows.FirstColumn()),
                    std::min(int(right) + 1, rows.EndColumn()));
    }

private:
    // The right end of a long edge's piece.
    [[nodiscard]] float Right(const SegmentEdges& edges, int edge, float rowTop) const {
        return edges.x[edge] + ((rowTop - edges.top[edge]) + 0.5f) * edges.slope[edge] + mExtent * 0.5f;
    }

    float mExtent, mWeight;
    wide::Piece mPieces[2];
};

} // namespace

void FillRowsWide(const SegmentRows& rows) {
    // A copy: the pixels are bytes, and a byte written might otherwise be any of the edges' numbers.
    const SegmentRows mine = rows;
    const EndRows ends = EndRowsOf(mine);
    PlainRows plain(mine.edges);
    for (int y = mine.firstRow; y < mine.lastRow; ++y) {
        const bool atUpper = y < ends.belowUpper;
        const bool atLower = y >= ends.lower;
        if (atUpper || atLower)
            BlendEndRow(mine, y, atUpper, atLower);
        else
            plain.Blend(mine, y);
    }
}

#else

void FillRowsWide(const SegmentRows& rows) {
    FillRowsScalar(rows);
}

#endif

void FillRows(const SegmentRows& rows) {
#ifdef __x86_64__
    // In the few rows of a level segment most of eight lanes would have nothing to do.
    constexpr int kFewRows = 3;
    if (rows.lastRow - rows.firstRow > kFewRows && HasAvx2()) return FillRowsAvx2(rows);
#endif
    FillRowsWide(rows);
}

} // namespace orvane::render
