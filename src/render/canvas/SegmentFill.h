// What visualizers draw most: short, thin line segments.
#pragma once

#include "render/canvas/Coverage.h"
#include "render/canvas/Outline.h"
#include "render/canvas/SegmentRows.h"

namespace orvane::render {

// The corners of the rectangle around a segment, clockwise on the screen, and its bounds. `corner[0]` and
// `corner[1]` lie at the upper end of the segment, left and right of one who walks it upwards.
struct SegmentCorners {
    Point corner[4];
    Box bounds;
    double across = 0, down = 0; // from the upper end to the lower one; `down` isn't negative

    // False for a segment without length, which has no direction and covers nothing.
    // Coordinates and width are finite, at most kFarthest in size, and `width` is above 0.
    [[nodiscard]] bool Make(const double segment[4], double width);
};

// Coordinates beyond this are not drawn: their squares would leave the range of a double.
constexpr double kFarthest = 1e100;

// Whether the segment is no wider than a few pixels and within reach of the surface, so that its rows can be
// filled as SegmentRows.
[[nodiscard]] bool IsShortSegment(const SegmentCorners& segment, double width,
                                  const CoverageSurface& surface);

// The rows of a segment that IsShortSegment. The surface is to outlive them.
[[nodiscard]] SegmentRows MakeSegmentRows(const SegmentCorners& segment, const CoverageSurface& surface,
                                          float opacity255);

} // namespace orvane::render
