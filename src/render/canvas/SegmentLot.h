// Short, thin segments on their way to pixels, four at a time: what the rows of each need, in single precision.
#pragma once

#include "render/canvas/Coverage.h"

namespace orvane::render {

// The rectangles around up to four segments, each field side by side. A rectangle has four edges: its two sides,
// left and right, run along the segment; its two ends, at right angles to them, also bound it on the left and on
// the right. Of a segment that descends to the right the upper end is the left one.
//
// Coordinates count in pixels from an origin of the segment's own, left of and above all of it, so none is
// negative and dropping a fraction is the floor.
struct SegmentLot {
    static constexpr int kMost = 4;

    // The edge runs from y `top` to `bottom` and begins at `x`.
    struct Edge {
        float top[kMost], bottom[kMost], x[kMost];
    };

    Edge leftSide, rightSide, leftEnd, rightEnd;
    float slope[kMost];    // of the sides, x per y
    float endSlope[kMost]; // of the ends
    // Both without their signs; each is the other's inverse, and the ends' are the sides' exchanged.
    float run[kMost], steepness[kMost]; // of the sides, x per y and y per x
    float left[kMost], right[kMost];    // x of the outermost corners
    int originX[kMost], originY[kMost]; // on the surface
    // Rows from the origin. The upper end reaches those before `belowUpper`, the lower end those from `lower` on.
    // Between them, if there is anything between, the sides cross the whole row.
    int firstRow[kMost], belowUpper[kMost], lower[kMost], lastRow[kMost]; // the last one excluded
    int columns[kMost];  // that the segment may reach in any one row
    bool isShort[kMost]; // whether all this was filled in

    // Takes up `count` segments, at most kMost, from `segments`, each x, y, x, y. Those that have no length or a
    // coordinate that is no number, lie out of reach of the surface, or run too far along a row are not short.
    // Both forms make the same numbers.
    void TakeScalar(const double* segments, int count, float width, const CoverageSurface& surface);
    void Take(const double* segments, int count, float width, const CoverageSurface& surface);

    static constexpr float kMostWidth = 8; // pixels; a wider one has an inside worth writing as runs
};

} // namespace orvane::render
