// The rows of short segments in vectors, for whichever width `V` has: its file says how a vector adds and compares,
// and this one what. A lane is a row; or, where there are more lanes than rows, a block of columns of one. All lanes
// get their pieces of the edges at once and then, from the row's own first column on, four pixels each.
#pragma once

#include "render/canvas/SegmentRows.h"

#include <algorithm>
#include <cstring>

// Without it the compiler may call the small functions of a vector, which then have to pass through memory.
#define ORVANE_INLINE __attribute__((always_inline)) inline

namespace orvane::render {

// V has kLanes, the types Floats (with + - *) and Ints, and the functions used here. A lane's row is its number modulo
// kLanes / Blocks.
template <class V, int Blocks>
class RowBatch {
public:
    static constexpr int kColumns = 4; // of a lane
    static constexpr int kRows = V::kLanes / Blocks;

    // Fills all rows of the lot's i-th segment.
    static ORVANE_INLINE void FillSegment(const SegmentLot& lot, int i, const CoverageSurface& surface,
                                          float opacity255) {
        const int firstRow = std::max(lot.firstRow[i], -lot.originY[i]);
        const int lastRow = std::min(lot.lastRow[i], surface.height - lot.originY[i]);
        const int steps = (lot.columns[i] + Blocks * kColumns - 1) / (Blocks * kColumns);
        const bool descends = lot.slope[i] > 0; // to the right, so that the upper end is the left one
        for (int row = firstRow; row < lastRow; row += kRows) {
            const bool upper = row < lot.belowUpper[i];
            const bool lower = lot.lower[i] < row + kRows;
            const bool left = descends ? upper : lower, right = descends ? lower : upper;
            const RowBatch batch(lot, i, surface, row);
            if (left && right)
                batch.template Fill<true, true>(opacity255, steps);
            else if (left)
                batch.template Fill<true, false>(opacity255, steps);
            else if (right)
                batch.template Fill<false, true>(opacity255, steps);
            else
                batch.template Fill<false, false>(opacity255, steps);
        }
    }

private:
    using Floats = typename V::Floats;
    using Ints = typename V::Ints;

    // RowPiece, of one edge in all rows; without height or extent where the edge has no part in the row.
    struct Piece {
        Floats end, extent, height, weight;

        ORVANE_INLINE Floats AreaRightOf(Floats x) const {
            const Floats beyond = V::Max(end - x, V::All(0));
            const Floats onPiece = V::Min(beyond, extent);
            return height * (beyond - onPiece) + weight * onPiece * onPiece;
        }
    };

    template <int Count>
    static ORVANE_INLINE Floats AreaRightOf(const Piece (&pieces)[Count], float x) {
        Floats area = pieces[0].AreaRightOf(V::All(x));
        for (int k = 1; k < Count; ++k) area = area + pieces[k].AreaRightOf(V::All(x));
        return area;
    }

    ORVANE_INLINE RowBatch(const SegmentLot& lot, int i, const CoverageSurface& surface, int row)
        : mLot(lot)
        , mSurface(surface)
        , mSegment(i)
        , mRow(row)
        , mTop(V::All(float(row)) + V::ToFloats(V::template Rows<Blocks>())) {}

    template <bool LeftEnd, bool RightEnd>
    ORVANE_INLINE void Fill(float opacity255, int steps) const {
        constexpr int kCount = 2 + LeftEnd + RightEnd;
        Piece pieces[kCount];
        const float slope = mLot.slope[mSegment], endSlope = mLot.endSlope[mSegment];
        const float run = mLot.run[mSegment], steepness = mLot.steepness[mSegment];
        pieces[0] = MakePiece(mLot.leftSide, slope, run, steepness, -opacity255);
        Floats low = LeftOf(pieces[0]);
        if constexpr (LeftEnd) {
            pieces[1] = MakePiece(mLot.leftEnd, endSlope, steepness, run, -opacity255);
            low = V::Min(low, LeftOf(pieces[1]));
        }
        pieces[1 + LeftEnd] = MakePiece(mLot.rightSide, slope, run, steepness, opacity255);
        if constexpr (RightEnd)
            pieces[kCount - 1] = MakePiece(mLot.rightEnd, endSlope, steepness, run, opacity255);

        // A side that is nearly level may begin anywhere, with hardly any height.
        low = V::Min(V::Max(low, V::All(mLot.left[mSegment])), V::All(mLot.right[mSegment]));
        // From here on columns count from the lane's own first one.
        Ints first = V::Add(V::Truncate(low), V::template Columns<Blocks>());
        for (Piece& piece : pieces) piece.end = piece.end - V::ToFloats(first);
        Floats start = V::template Carried<Blocks>(AreaRightOf(pieces, 0));
        const bool inside = IsInside(steps);
        for (int step = 0; step < steps; ++step) {
            Floats areas[kColumns];
            for (int k = 0; k < kColumns; ++k) areas[k] = AreaRightOf(pieces, float(k + 1));
            start = V::template Next<Blocks>(start, areas[kColumns - 1]);
            Ints columns[kColumns] = { V::Truncate(start - areas[0] + V::All(kRounding)) };
            for (int k = 1; k < kColumns; ++k)
                columns[k] = V::Truncate(areas[k - 1] - areas[k] + V::All(kRounding));
            start = areas[kColumns - 1];
            const Ints coverage = V::ToRows(columns);
            if (inside)
                Blend(first, coverage);
            else
                BlendClipped(first, coverage);
            first = V::Add(first, V::AllInts(Blocks * kColumns));
            for (Piece& piece : pieces) piece.end = piece.end - V::All(Blocks * kColumns);
        }
    }

    ORVANE_INLINE Piece MakePiece(const SegmentLot::Edge& edge, float slope, float run, float steepness,
                                  float sign255) const {
        const Floats top = V::All(edge.top[mSegment]);
        const Floats from = V::Max(top, mTop);
        const Floats to = V::Min(V::All(edge.bottom[mSegment]), mTop + V::All(1));
        const Floats height = V::Max(to - from, V::All(0));
        const Floats end =
            V::All(edge.x[mSegment]) + (from - top) * V::All(slope) + height * V::All(std::max(slope, 0.0f));
        return { end, height * V::All(run), height * V::All(sign255), V::All(steepness * 0.5f * sign255) };
    }

    // Where a piece on the left begins. An edge without a part in the row is no reason to begin it earlier; a row
    // without any begins where the segment ends.
    ORVANE_INLINE Floats LeftOf(const Piece& piece) const {
        return V::IfBelow0(piece.height, piece.end - piece.extent, V::All(mLot.right[mSegment]));
    }

    // Whether the pixels of every lane, also of those without a row of the segment, are the surface's or padding.
    [[nodiscard]] ORVANE_INLINE bool IsInside(int steps) const {
        const int x = mLot.originX[mSegment], y = mRow + mLot.originY[mSegment];
        const int end = x + int(mLot.right[mSegment]);
        return x + int(mLot.left[mSegment]) >= 0 && y + kRows <= mSurface.height && end < mSurface.width &&
               end + steps * Blocks * kColumns <= mSurface.width + CoverageSurface::kRowPadding;
    }

    [[nodiscard]] ORVANE_INLINE std::uint8_t* Origin() const {
        return mSurface.Row(mRow + mLot.originY[mSegment]) + mLot.originX[mSegment];
    }

    // Four bytes of coverage over those of each lane from its column `first` on.
    ORVANE_INLINE void Blend(Ints first, Ints coverage) const {
        std::uint8_t* const pixels = Origin();
        const Ints rowBytes = V::AllInts(int(mSurface.rowBytes));
        int places[V::kLanes];
        V::Store(places, V::Add(first, V::Times(V::template Rows<Blocks>(), rowBytes)));
        V::StoreFours(pixels, places, V::Over(V::LoadFours(pixels, places), coverage));
    }

    // The same for those that the surface has.
    void BlendClipped(Ints first, Ints coverage) const {
        int columns[V::kLanes], fours[V::kLanes];
        V::Store(columns, first);
        V::Store(fours, coverage);
        for (int lane = 0; lane < V::kLanes; ++lane) {
            const int y = mRow + mLot.originY[mSegment] + lane % kRows;
            if (y >= mSurface.height) continue;
            std::uint8_t bytes[kColumns];
            std::memcpy(bytes, &fours[lane], sizeof bytes);
            for (int k = 0; k < kColumns; ++k) {
                const int x = columns[lane] + mLot.originX[mSegment] + k;
                if (x < 0 || x >= mSurface.width) continue;
                std::uint8_t& pixel = mSurface.Row(y)[x];
                pixel = orvane::render::Over(pixel, bytes[k]);
            }
        }
    }

    const SegmentLot& mLot;
    const CoverageSurface& mSurface;
    int mSegment;
    int mRow; // of the first lane, from the segment's origin
    Floats mTop;
};

} // namespace orvane::render
