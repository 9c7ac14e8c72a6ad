// The rows of short segments, the innermost work of the canvas: a scalar form that reads like the definition, and
// wide ones that make the same bytes.
//
// Let A(x) be the area of the shape, within one row of pixels, to the right of the vertical line at x. Then pixel i is
// covered by A(i) - A(i + 1). A is the sum of what lies right of x and left of an edge, over the edges on the right,
// less the same for those on the left. Of an edge's piece within the row, which is `height` high, `extent` wide and
// ends on the right at `end`, that is
//
//     height * (beyond - onPiece) + weight * onPiece * onPiece,   weight = height / (2 * extent),
//
// where `beyond` is how far the piece ends to the right of x, and `onPiece` is how much of its extent lies there: the
// rectangle below what is beyond the whole piece, and the triangle or trapezoid below the part of it. All of it takes
// single additions, multiplications, minima and maxima of floats, each rounded by itself; and since every x is a whole
// number, the differences of x and `end` are exact in whichever steps they are made.
#pragma once

#include "render/canvas/Coverage.h"
#include "render/canvas/SegmentLot.h"

namespace orvane::render {

// Fills the lot's segments from `from` on before `to`, all of them short, one after the other.
void FillRowsScalar(const SegmentLot& lot, int from, int to, const CoverageSurface& surface,
                    float opacity255);

#ifdef __x86_64__

// Four rows at a time.
void FillRowsSse2(const SegmentLot& lot, int from, int to, const CoverageSurface& surface, float opacity255);
// Eight rows at a time, or eight columns of four. Only for processors that have AVX2.
void FillRowsAvx2(const SegmentLot& lot, int from, int to, const CoverageSurface& surface, float opacity255);

[[nodiscard]] bool HasAvx2();

#endif

// The fastest form that this processor can run.
using FillRowsForm = void (*)(const SegmentLot& lot, int from, int to, const CoverageSurface& surface,
                              float opacity255);
[[nodiscard]] FillRowsForm FastestFillRows();

} // namespace orvane::render
