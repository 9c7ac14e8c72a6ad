// The rows of a short segment, the innermost work of the canvas: a scalar form that reads like the definition
// and a wide one that makes the same bytes.
#pragma once

#include "render/canvas/Coverage.h"

namespace orvane::render {

// The four edges of a segment side by side, so that one vector holds a field of all of them, in this order:
// left and right long edge, the edge of the upper and that of the lower end. In pixels from an origin on or
// left of and above the shape.
struct SegmentEdges {
    static constexpr int kCount = 4;

    float top[kCount], bottom[kCount]; // y of the upper and the lower corner
    float x[kCount];                   // of the upper corner
    float slope[kCount];               // x per y
    float run[kCount];                 // the same without its sign
    float steepness[kCount];           // y per x without its sign
    float sign[kCount];                // -1 left, 1 right
};

struct SegmentRows {
    SegmentEdges edges;
    const CoverageSurface& surface;
    int originX = 0, originY = 0;  // of the edges, on the surface
    int firstRow = 0, lastRow = 0; // of the surface, the last one excluded; both within it
    float opacity255 = 255;

    // The columns of the surface, counted from the origin.
    [[nodiscard]] int FirstColumn() const { return -originX; }

    [[nodiscard]] int EndColumn() const { return surface.width - originX; }

    [[nodiscard]] std::uint8_t* Row(int y) const { return surface.Row(y) + originX; }
};

// Which rows of the surface the ends of a segment reach: the upper one those before `belowUpper`, the lower one those
// from `lower` on. Between them, if there is anything between, both long edges cross the whole row.
struct EndRows {
    int belowUpper, lower;
};

[[nodiscard]] EndRows EndRowsOf(const SegmentRows& rows);

void FillRowsScalar(const SegmentRows& rows);
// In vectors of four. The scalar form where the processor family has no SSE2.
void FillRowsWide(const SegmentRows& rows);
// The fastest form that this processor can run.
void FillRows(const SegmentRows& rows);

} // namespace orvane::render
