#include "render/canvas/Outline.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <utility>

namespace orvane::render {

namespace {

// The side of a box at which an outline is cut: `inside` is the signed distance, not negative on the inner
// side.
struct Side {
    double x, y, offset;

    [[nodiscard]] double Inside(Point p) const { return p.x * x + p.y * y - offset; }
};

// The point of the edge on the side's line, reckoned from the nearer end, which keeps its digits however far
// away the other one is.
Point Crossing(Point a, double insideA, Point b, double insideB) {
    if (std::abs(insideA) > std::abs(insideB)) {
        std::swap(a, b);
        std::swap(insideA, insideB);
    }
    const double t = insideA / (insideA - insideB);
    return { a.x + (b.x - a.x) * t, a.y + (b.y - a.y) * t };
}

void Cut(const Outline& from, const Side& side, Outline& to) {
    to.Clear();
    for (int i = 0; i < from.count; ++i) {
        const Point a = from.corners[std::size_t(i)];
        const Point b = from.corners[std::size_t(i + 1 == from.count ? 0 : i + 1)];
        const double insideA = side.Inside(a);
        const double insideB = side.Inside(b);
        if (insideA >= 0 && to.count < Outline::kMostCorners) to.Add(a);
        if ((insideA >= 0) != (insideB >= 0) && to.count < Outline::kMostCorners)
            to.Add(Crossing(a, insideA, b, insideB));
    }
}

// Sine of the first quarter turn in steps of a kMostArcs-th of a turn, made by the compiler: the C library's
// sine has other last digits on another platform.
constexpr int kQuarterSteps = Outline::kMostArcs / 4;

constexpr double SineSeries(double angle) {
    double term = angle;
    double sum = angle;
    for (int n = 1; n < 14; ++n) {
        term *= -angle * angle / (2.0 * n * (2.0 * n + 1.0));
        sum += term;
    }
    return sum;
}

constexpr auto kSine = [] {
    std::array<double, kQuarterSteps + 1> sines = {};
    for (int i = 0; i <= kQuarterSteps; ++i)
        sines[std::size_t(i)] = SineSeries(std::numbers::pi / 2 * i / kQuarterSteps);
    sines[kQuarterSteps] = 1;
    return sines;
}();

double Sine(int step) {
    return kSine[std::size_t(step)];
}

double Cosine(int step) {
    return kSine[std::size_t(kQuarterSteps - step)];
}

// The number of chords, a power of two, for which a chord of a circle of that radius strays at most
// `tolerance` from it: radius * angle * angle / 8.
int ArcsFor(double radius, double tolerance) {
    constexpr int kFewestArcs = 16;
    const double wanted = radius / tolerance * (std::numbers::pi * std::numbers::pi / 2);
    int arcs = kFewestArcs;
    while (arcs < Outline::kMostArcs && double(arcs) * arcs < wanted) arcs *= 2;
    return arcs;
}

// Corners of the lower right quarter, from the right end to the lower end, mirrored into all four. `corner`
// gives the corner of a step relative to the centre.
template <typename Corner>
void AddFourQuarters(Point centre, int arcs, const Corner& corner, Outline& outline) {
    const int stride = Outline::kMostArcs / arcs;
    const int steps = arcs / 4;
    std::array<Point, kQuarterSteps + 1> quarter;
    for (int i = 0; i <= steps; ++i) quarter[std::size_t(i)] = corner(i * stride);
    const auto add = [&](int i, double signX, double signY) {
        const Point p = quarter[std::size_t(i)];
        outline.Add({ centre.x + p.x * signX, centre.y + p.y * signY });
    };
    for (int i = 0; i < steps; ++i) add(i, 1, 1);
    for (int i = steps; i > 0; --i) add(i, -1, 1);
    for (int i = 0; i < steps; ++i) add(i, -1, -1);
    for (int i = steps; i > 0; --i) add(i, 1, -1);
}

// The ellipse and its parallel curves, by the direction of the normal. The direction of a step is chosen so
// that the chords stray about equally at both ends of both axes, however flat the ellipse is.
struct ParallelEllipse {
    double radiusX, radiusY, distance;
    double lean = 1;   // tangent of the normal's angle over tangent of the step's
    double strays = 0; // the radius of the circle whose chords stray as much

    ParallelEllipse(double x, double y, double d)
        : radiusX(x)
        , radiusY(y)
        , distance(d) {
        // An ellipse flatter than this is drawn as one that isn't.
        constexpr double kLeastRadius = 1.0 / 256;
        const double a = std::max(x, kLeastRadius);
        const double b = std::max(y, kLeastRadius);
        const double bendAtX = b * b / a + std::abs(d);
        const double bendAtY = a * a / b + std::abs(d);
        lean = std::sqrt(std::sqrt(bendAtY / bendAtX));
        strays = std::sqrt(bendAtX) * std::sqrt(bendAtY);
    }

    [[nodiscard]] Point Corner(int step) const {
        const double alongX = Cosine(step);
        const double alongY = Sine(step) * lean;
        const double length = std::sqrt(alongX * alongX + alongY * alongY);
        const Point normal = { alongX / length, alongY / length };
        const double x = radiusX * normal.x;
        const double y = radiusY * normal.y;
        const double reach = std::sqrt(x * x + y * y);
        const double scale = reach > 0 ? 1 / reach : 0;
        return { radiusX * x * scale + distance * normal.x, radiusY * y * scale + distance * normal.y };
    }
};

// Deep inside, the parallel curve folds over near the ends of the longer axis and leaves its quarter there.
// What it encloses ends on the axis, this far from the centre.
double FoldedEnd(double shorter, double longer, double depth) {
    const double reach = shorter * shorter / depth;
    const double sineSquared = (reach * reach - shorter * shorter) / (longer * longer - shorter * shorter);
    return std::sqrt(std::clamp(sineSquared, 0.0, 1.0)) * std::max(longer * longer / reach - depth, 0.0);
}

} // namespace

Box Outline::Bounds() const {
    Box box = { corners[0].x, corners[0].y, corners[0].x, corners[0].y };
    for (int i = 1; i < count; ++i) {
        const Point p = corners[std::size_t(i)];
        box = { std::min(box.left, p.x), std::min(box.top, p.y), std::max(box.right, p.x),
                std::max(box.bottom, p.y) };
    }
    return box;
}

void Outline::ClipTo(const Box& box, Outline& scratch) {
    Cut(*this, { 1, 0, box.left }, scratch);
    Cut(scratch, { 0, 1, box.top }, *this);
    Cut(*this, { -1, 0, -box.right }, scratch);
    Cut(scratch, { 0, -1, -box.bottom }, *this);
    // Where an edge comes from very far away, its crossing has few digits: at least it is in the box.
    for (int i = 0; i < count; ++i) {
        Point& p = corners[std::size_t(i)];
        p = { std::clamp(p.x, box.left, box.right), std::clamp(p.y, box.top, box.bottom) };
    }
}

void MakeRectangle(const Box& box, Outline& outline) {
    outline.Clear();
    if (!(box.left < box.right && box.top < box.bottom)) return;
    outline.Add({ box.left, box.top });
    outline.Add({ box.right, box.top });
    outline.Add({ box.right, box.bottom });
    outline.Add({ box.left, box.bottom });
}

void MakeSegment(const double segment[4], double width, Outline& outline) {
    outline.Clear();
    const double across = segment[2] - segment[0];
    const double down = segment[3] - segment[1];
    const double length = std::sqrt(across * across + down * down);
    if (!(length > 0)) return;
    const double scale = width * 0.5 / length;
    const double sideX = -down * scale; // half the width, to the right of one who walks along
    const double sideY = across * scale;
    outline.Add({ segment[0] - sideX, segment[1] - sideY });
    outline.Add({ segment[2] - sideX, segment[3] - sideY });
    outline.Add({ segment[2] + sideX, segment[3] + sideY });
    outline.Add({ segment[0] + sideX, segment[1] + sideY });
}

void MakeEllipse(Point centre, double radiusX, double radiusY, Outline& outline) {
    constexpr double kTolerance = 1.0 / 128;
    outline.Clear();
    if (!(radiusX > 0 && radiusY > 0)) return;
    const int arcs = ArcsFor(std::max(radiusX, radiusY), kTolerance);
    // The polygon on the circle is too small by sin(a) / a, a being the angle of a chord. Wide enough to make
    // up for it, it strays by a third of the tolerance on the outside and two thirds on the inside.
    const double angle = 2 * std::numbers::pi / arcs;
    const double widen = std::sqrt(angle / Sine(Outline::kMostArcs / arcs));
    const double x = radiusX * widen;
    const double y = radiusY * widen;
    AddFourQuarters(
        centre, arcs,
        [&](int step) {
            return Point{ x * Cosine(step), y * Sine(step) };
        },
        outline);
}

void MakeParallelEllipse(Point centre, double radiusX, double radiusY, double distance, Outline& outline) {
    constexpr double kTolerance = 1.0 / 256;
    outline.Clear();
    const double depth = -distance;
    if (std::min(radiusX, radiusY) <= depth) return;
    const ParallelEllipse curve(radiusX, radiusY, distance);
    const auto corner = [&](int step) {
        const Point p = curve.Corner(step);
        if (p.x < 0) return Point{ 0, FoldedEnd(radiusX, radiusY, depth) };
        if (p.y < 0) return Point{ FoldedEnd(radiusY, radiusX, depth), 0 };
        return p;
    };
    AddFourQuarters(centre, ArcsFor(curve.strays, kTolerance), corner, outline);
}

} // namespace orvane::render
