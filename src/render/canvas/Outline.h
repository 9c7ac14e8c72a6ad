// Convex outlines in double precision: what a shape is before it becomes edges.
#pragma once

#include <array>

namespace orvane::render {

struct Point {
    double x = 0, y = 0;
};

struct Box {
    double left = 0, top = 0, right = 0, bottom = 0;
};

// The corners of a convex polygon, clockwise on the screen (y down). Fewer than three corners are nothing.
struct Outline {
    static constexpr int kMostArcs = 2048; // chords of an ellipse
    // Clipping at a box adds at most one corner for each of its sides.
    static constexpr int kMostCorners = kMostArcs + 4;

    std::array<Point, kMostCorners> corners;
    int count = 0;

    void Clear() { count = 0; }

    void Add(Point corner) { corners[std::size_t(count++)] = corner; }

    [[nodiscard]] Box Bounds() const;

    // Cuts off what lies outside the box, by way of `scratch`.
    void ClipTo(const Box& box, Outline& scratch);
};

// The four sides of the box; nothing if it has no area.
void MakeRectangle(const Box& box, Outline& outline);

// The rectangle of that width around the segment from x, y to x, y, with flat ends. Nothing if the segment has no
// length.
void MakeSegment(const double segment[4], double width, Outline& outline);

// The ellipse of the two radii, as a polygon of the same area that strays at most 1/192 pixel from it (as
// long as kMostArcs suffice: up to a radius of some 6000 pixels). Nothing if a radius isn't above 0.
void MakeEllipse(Point centre, double radiusX, double radiusY, Outline& outline);

// The curve at a distance from that ellipse: outside it for a positive distance, inside for a negative one.
// Radii may be 0, so a point becomes a disc. Inside, what is left is all that lies deeper than the distance,
// which may be nothing.
void MakeParallelEllipse(Point centre, double radiusX, double radiusY, double distance, Outline& outline);

} // namespace orvane::render
