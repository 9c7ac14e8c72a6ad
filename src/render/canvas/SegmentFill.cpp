#include "render/canvas/SegmentFill.h"

#include "render/canvas/PolygonFill.h"

#include <algorithm>
#include <cmath>

namespace orvane::render {

namespace {

constexpr double kMostWidth = 8; // pixels; a wider one has an inside worth writing as runs

// x per y. An edge that is nearly level has hardly any height, so it may lean less than it should.
float Slope(double across, double down) {
    constexpr double kMostSlope = 1 << 24;
    return float(std::clamp(across / down, -kMostSlope, kMostSlope));
}

// Absolute y per x, as far as it matters.
float Steepness(double down, double across) {
    constexpr double kMostSteepness = 1 << 24;
    return float(std::min(std::abs(down / across), kMostSteepness));
}

SegmentEdges MakeEdges(const SegmentCorners& segment, double originX, double originY) {
    float x[4], y[4];
    for (int i = 0; i < 4; ++i) {
        x[i] = float(segment.corner[i].x - originX);
        y[i] = float(segment.corner[i].y - originY);
    }
    // The ends run at right angles to the long edges. The slopes come from the segment itself, since a very
    // short one may have lost its length in single precision.
    const float slope = Slope(segment.across, segment.down);
    const float steepness = Steepness(segment.down, segment.across);
    const float endSlope = segment.across < 0 ? steepness : -steepness;
    const float run = std::abs(slope); // also the ends' steepness, as the steepness is their run
    // Leaning to the right, the upper end's edge goes down to the left and so bounds the shape on the left.
    const bool right = segment.across > 0;
    const int a = right ? 1 : 0, b = right ? 0 : 1; // upper end: its upper and its lower corner
    const int c = right ? 2 : 3, d = right ? 3 : 2; // lower end: likewise
    const float endSign = right ? -1.0f : 1.0f;
    return { { y[0], y[1], y[a], y[c] },         { y[3], y[2], y[b], y[d] },
             { x[0], x[1], x[a], x[c] },         { slope, slope, endSlope, endSlope },
             { run, run, steepness, steepness }, { steepness, steepness, run, run },
             { -1, 1, endSign, -endSign } };
}

} // namespace

bool SegmentCorners::Make(const double segment[4], double width) {
    const bool upwards = segment[3] < segment[1];
    const Point upper = { segment[upwards ? 2 : 0], segment[upwards ? 3 : 1] };
    const Point lower = { segment[upwards ? 0 : 2], segment[upwards ? 1 : 3] };
    across = lower.x - upper.x;
    down = lower.y - upper.y;
    const double length = std::sqrt(across * across + down * down);
    if (!(length > 0)) return false;
    // Half the width, across the segment: to the right of one who walks upwards.
    const double scale = width * 0.5 / length;
    const double sideX = down * scale;
    const double sideY = -across * scale;
    corner[0] = { upper.x - sideX, upper.y - sideY };
    corner[1] = { upper.x + sideX, upper.y + sideY };
    corner[2] = { lower.x + sideX, lower.y + sideY };
    corner[3] = { lower.x - sideX, lower.y - sideY };
    const bool leansRight = across > 0;
    bounds = { (leansRight ? corner[0] : corner[3]).x, (leansRight ? corner[1] : corner[0]).y,
               (leansRight ? corner[2] : corner[1]).x, (leansRight ? corner[3] : corner[2]).y };
    return true;
}

bool IsShortSegment(const SegmentCorners& segment, double width, const CoverageSurface& surface) {
    const Box& box = segment.bounds;
    return width <= kMostWidth && box.left >= -kOutlineMargin && box.top >= -kOutlineMargin &&
           box.right <= surface.width + kOutlineMargin && box.bottom <= surface.height + kOutlineMargin;
}

SegmentRows MakeSegmentRows(const SegmentCorners& segment, const CoverageSurface& surface, float opacity255) {
    const Box& box = segment.bounds;
    const double left = std::floor(box.left);
    const double top = std::floor(box.top);
    const int firstRow = std::max(int(top), 0);
    const int lastRow = std::min(int(std::ceil(box.bottom)), surface.height);
    return { MakeEdges(segment, left, top), surface, int(left), int(top), firstRow, lastRow, opacity255 };
}

} // namespace orvane::render
