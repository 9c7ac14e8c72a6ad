#include "render/canvas/SegmentRows.h"

#include <algorithm>

namespace orvane::render {

namespace {

// The part of an edge within one row of pixels.
struct RowPiece {
    float end = 0;    // x of its right end
    float extent = 0; // from its left to its right end
    float height = 0; // in 255ths of the opacity, negative on the left of the shape; likewise the weight
    float weight = 0; // height / (2 * extent): half the steepness, which is the same for all of an edge

    [[nodiscard]] float AreaRightOf(float x) const {
        const float beyond = std::max(end - x, 0.0f);
        const float onPiece = std::min(beyond, extent);
        return height * (beyond - onPiece) + weight * onPiece * onPiece;
    }
};

// The pieces of a segment within one row.
class Row {
public:
    Row(const SegmentLot& lot, int i, int row, float opacity255)
        : mTop(float(row)) {
        const float run = lot.run[i], steepness = lot.steepness[i];
        Add(lot.leftSide, i, lot.slope[i], run, steepness, -opacity255);
        Add(lot.leftEnd, i, lot.endSlope[i], steepness, run, -opacity255);
        Add(lot.rightSide, i, lot.slope[i], run, steepness, opacity255);
        Add(lot.rightEnd, i, lot.endSlope[i], steepness, run, opacity255);
    }

    // Of the shape, in 255ths of the opacity.
    [[nodiscard]] float AreaRightOf(int x) const {
        float area = 0;
        for (int k = 0; k < mCount; ++k) area += mPieces[k].AreaRightOf(float(x));
        return area;
    }

    // Columns from the origin, the end excluded.
    [[nodiscard]] int First() const { return int(mLow); }

    [[nodiscard]] int End() const { return int(mHigh) + 1; }

private:
    void Add(const SegmentLot::Edge& edge, int i, float slope, float run, float steepness, float sign255) {
        const float from = std::max(edge.top[i], mTop);
        const float height = std::min(edge.bottom[i], mTop + 1.0f) - from;
        if (!(height > 0.0f)) return;
        const float extent = height * run;
        const float end = edge.x[i] + (from - edge.top[i]) * slope + height * std::max(slope, 0.0f);
        mPieces[mCount++] = { end, extent, height * sign255, steepness * 0.5f * sign255 };
        mLow = std::min(mLow, end - extent);
        mHigh = std::max(mHigh, end);
    }

    float mTop;
    RowPiece mPieces[4];
    int mCount = 0;
    float mLow = 1e9f, mHigh = 0;
};

} // namespace

void FillRowsScalar(const SegmentLot& lot, int from, int to, const CoverageSurface& surface,
                    float opacity255) {
    for (int i = from; i < to; ++i) {
        const int firstRow = std::max(lot.firstRow[i], -lot.originY[i]);
        const int lastRow = std::min(lot.lastRow[i], surface.height - lot.originY[i]);
        for (int y = firstRow; y < lastRow; ++y) {
            const Row row(lot, i, y, opacity255);
            const int end = std::min(row.End(), surface.width - lot.originX[i]);
            std::uint8_t* const pixels = surface.Row(y + lot.originY[i]);
            for (int x = std::max(row.First(), -lot.originX[i]); x < end; ++x) {
                const float coverage = row.AreaRightOf(x) - row.AreaRightOf(x + 1);
                std::uint8_t& pixel = pixels[x + lot.originX[i]];
                pixel = Over(pixel, std::uint8_t(int(coverage + kRounding)));
            }
        }
    }
}

FillRowsForm FastestFillRows() {
#ifdef __x86_64__
    return HasAvx2() ? FillRowsAvx2 : FillRowsSse2;
#else
    return FillRowsScalar;
#endif
}

} // namespace orvane::render
