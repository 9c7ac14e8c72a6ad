// The coverage canvas against exact areas, over thousands of seeded shapes.
#include "render/canvas/CoverageCanvas.h"

#include "CanvasOracle.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <iomanip>
#include <sstream>
#include <string>

namespace orvane::render {
namespace {

using tests::CoverageMap;
using tests::Dice;

constexpr int kSide = 28; // of the canvases here; shapes reach beyond it

constexpr double kMostError = 2;       // 255ths, against exact areas
constexpr double kMostSampleError = 4; // against 64 x 64 samples, which have an error of their own

class FillBytes final : public BitmapProcessingFunctor {
public:
    explicit FillBytes(Dice& dice)
        : mDice(dice) {}

    void Process(void* pixels, int width, int height, int rowBytes, std::size_t) override {
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                static_cast<std::uint8_t*>(pixels)[y * rowBytes + x] = std::uint8_t(mDice.Below(256));
    }

private:
    Dice& mDice;
};

// A canvas with a random picture, one shape drawn over it, and the difference from the map.
template <typename Draw>
double ErrorOf(Dice& dice, const CoverageMap& map, const Draw& draw) {
    const auto canvas = CoverageCanvas::Create(map.width, map.height);
    FillBytes fill(dice);
    canvas->ReadPixels(fill);
    const auto background = tests::PixelsOf(*canvas);
    draw(*canvas);
    return tests::LargestError(tests::PixelsOf(*canvas), map, background);
}

using Segment = std::array<double, 4>;

std::string Text(const Segment& s, double width) {
    std::ostringstream text;
    text << std::setprecision(17) << "width " << width << " segment";
    for (const double v : s) text << " " << v;
    return text.str();
}

void CheckSegment(Dice& dice, const Segment& segment, float width, int side = kSide) {
    CoverageMap map(side, side);
    map.Add(tests::SegmentPolygon(segment.data(), width), 1);
    const double error =
        ErrorOf(dice, map, [&](IRenderer2D& canvas) { canvas.DrawLines(segment.data(), 1, width); });
    ASSERT_LE(error, kMostError) << Text(segment, width);
}

TEST(CanvasAreas, SegmentsInAllDirections) {
    Dice dice(1);
    for (int i = 0; i < 3000; ++i) {
        const Segment segment = { dice.Between(-6, kSide + 6), dice.Between(-6, kSide + 6),
                                  dice.Between(-6, kSide + 6), dice.Between(-6, kSide + 6) };
        CheckSegment(dice, segment, float(dice.Between(0.05, 9)));
    }
}

TEST(CanvasAreas, ShortSegments) {
    Dice dice(2);
    for (int i = 0; i < 3000; ++i) {
        const double x = dice.Between(-1, kSide + 1), y = dice.Between(-1, kSide + 1);
        const double reach = std::pow(10, dice.Between(-4, 0.6));
        CheckSegment(dice, { x, y, x + dice.Between(-reach, reach), y + dice.Between(-reach, reach) },
                     float(dice.Between(0.2, 4)));
    }
}

TEST(CanvasAreas, SegmentsBetweenWholePixelsOfWholeWidth) {
    Dice dice(3);
    for (int i = 0; i < 2000; ++i)
        CheckSegment(dice,
                     { double(dice.Below(kSide)), double(dice.Below(kSide)), double(dice.Below(kSide)),
                       double(dice.Below(kSide)) },
                     float(1 + dice.Below(3)));
}

TEST(CanvasAreas, SegmentsNearlyLevelAndNearlyUpright) {
    Dice dice(4);
    for (int i = 0; i < 2000; ++i) {
        const double lean = std::pow(10, dice.Between(-12, 0)) * (dice.Below(2) ? 1 : -1);
        const double from = dice.Between(-4, kSide), to = dice.Between(0, kSide + 4);
        const double at = dice.Between(0, kSide);
        const float width = float(dice.Between(0.3, 9));
        CheckSegment(dice, { from, at, to, at + lean }, width);
        CheckSegment(dice, { at, from, at + lean, to }, width);
    }
}

TEST(CanvasAreas, SegmentsThatReachFarBeyondTheSurface) {
    Dice dice(5);
    for (int i = 0; i < 500; ++i) {
        const double reach = std::pow(10, dice.Between(2, 7));
        const Segment near = { dice.Between(0, kSide), dice.Between(0, kSide), dice.Between(-reach, reach),
                               dice.Between(-reach, reach) };
        CheckSegment(dice, near, float(dice.Between(0.3, 30)));
        // Both ends far away, on opposite sides of a point of the surface.
        const double x = dice.Between(0, kSide), y = dice.Between(0, kSide);
        const double dx = dice.Between(-reach, reach), dy = dice.Between(-reach, reach);
        CheckSegment(dice, { x - dx, y - dy, x + dx, y + dy }, float(dice.Between(0.3, 30)));
    }
}

TEST(CanvasAreas, LongSegmentsOnALargeSurface) {
    Dice dice(6);
    constexpr int kLarge = 700;
    for (int i = 0; i < 12; ++i)
        CheckSegment(dice,
                     { dice.Between(0, kLarge), dice.Between(0, kLarge), dice.Between(0, kLarge),
                       dice.Between(0, kLarge) },
                     float(dice.Between(1, 60)), kLarge);
}

TEST(CanvasAreas, RectanglesFilledAndFramed) {
    Dice dice(7);
    for (int i = 0; i < 2000; ++i) {
        const double size = i % 2 ? kSide : 3;
        const double rect[4] = { dice.Between(-6, kSide), dice.Between(-6, kSide), dice.Between(0, size),
                                 dice.Between(0, size) };
        const double right = rect[0] + rect[2], bottom = rect[1] + rect[3];
        CoverageMap filled(kSide, kSide), framed(kSide, kSide);
        filled.Add(tests::RectanglePolygon(rect[0], rect[1], right, bottom), 1);
        framed.Add(tests::RectanglePolygon(rect[0] - 0.5, rect[1] - 0.5, right + 0.5, bottom + 0.5), 1);
        framed.Add(tests::RectanglePolygon(rect[0] + 0.5, rect[1] + 0.5, right - 0.5, bottom - 0.5), -1);
        ASSERT_LE(ErrorOf(dice, filled, [&](IRenderer2D& c) { c.FillRectangle(rect); }), kMostError) << i;
        ASSERT_LE(ErrorOf(dice, framed, [&](IRenderer2D& c) { c.StrokeRectangle(rect); }), kMostError) << i;
    }
}

// Dots of a waveform: a square's ellipse, up to some 24 pixels.
TEST(CanvasAreas, DiscsAndRings) {
    Dice dice(8);
    constexpr int kSmall = 14;
    for (int i = 0; i < 250; ++i) {
        const double size = dice.Between(0, i % 4 ? 8 : 24);
        const double rect[4] = { dice.Between(-4, kSmall), dice.Between(-4, kSmall), size, size };
        const double x = rect[0] + size / 2, y = rect[1] + size / 2, radius = size / 2;
        CoverageMap disc(kSmall, kSmall), ring(kSmall, kSmall);
        disc.Sample([&](double px, double py) {
            return (px - x) * (px - x) + (py - y) * (py - y) <= radius * radius;
        });
        ring.Sample([&](double px, double py) {
            return std::abs(std::sqrt((px - x) * (px - x) + (py - y) * (py - y)) - radius) <= 0.5;
        });
        ASSERT_LE(ErrorOf(dice, disc, [&](IRenderer2D& c) { c.FillEllipse(rect); }), kMostSampleError)
            << size << " at " << rect[0] << " " << rect[1];
        ASSERT_LE(ErrorOf(dice, ring, [&](IRenderer2D& c) { c.StrokeEllipse(rect); }), kMostSampleError)
            << size << " at " << rect[0] << " " << rect[1];
    }
}

TEST(CanvasAreas, EllipsesFilled) {
    Dice dice(9);
    constexpr int kSmall = 16;
    for (int i = 0; i < 250; ++i) {
        const double rect[4] = { dice.Between(-4, kSmall), dice.Between(-4, kSmall), dice.Between(0, kSmall),
                                 dice.Between(0, i % 2 ? kSmall : 2) };
        const double x = rect[0] + rect[2] / 2, y = rect[1] + rect[3] / 2;
        CoverageMap map(kSmall, kSmall);
        map.Sample([&](double px, double py) {
            const double u = (px - x) / (rect[2] / 2), v = (py - y) / (rect[3] / 2);
            return u * u + v * v <= 1;
        });
        ASSERT_LE(ErrorOf(dice, map, [&](IRenderer2D& c) { c.FillEllipse(rect); }), kMostSampleError)
            << rect[0] << " " << rect[1] << " " << rect[2] << " " << rect[3];
    }
}

void CheckEllipseFrame(Dice& dice, const double rect[4], int side) {
    const double x = rect[0] + rect[2] / 2, y = rect[1] + rect[3] / 2;
    CoverageMap map(side, side);
    map.Add(tests::GrownEllipse(x, y, rect[2] / 2, rect[3] / 2, 0.5), 1);
    map.Add(tests::ShrunkEllipse(x, y, rect[2] / 2, rect[3] / 2, 0.5), -1);
    ASSERT_LE(ErrorOf(dice, map, [&](IRenderer2D& c) { c.StrokeEllipse(rect); }), kMostError)
        << rect[0] << " " << rect[1] << " " << rect[2] << " " << rect[3];
}

TEST(CanvasAreas, EllipsesFramed) {
    Dice dice(10);
    for (int i = 0; i < 60; ++i) {
        const double flat = i % 3 == 0 ? 1 : i % 3 == 1 ? 4 : kSide;
        double rect[4] = { dice.Between(-4, kSide / 2.0), dice.Between(-4, kSide / 2.0),
                           dice.Between(0, kSide), dice.Between(0, flat) };
        if (i % 2) std::swap(rect[2], rect[3]);
        CheckEllipseFrame(dice, rect, kSide);
    }
}

TEST(CanvasAreas, LargeEllipsesFilledAndFramed) {
    Dice dice(11);
    constexpr int kLarge = 300;
    const double rects[][4] = { { 10.3, 20.7, 270, 260 },
                                { 5, 140.2, 290, 9.5 },
                                { -2000, -2100, 4200, 4200 },
                                { 130.1, -50, 30, 400 } };
    for (const auto& rect : rects) {
        CheckEllipseFrame(dice, rect, kLarge);
        CoverageMap map(kLarge, kLarge);
        map.Add(
            tests::GrownEllipse(rect[0] + rect[2] / 2, rect[1] + rect[3] / 2, rect[2] / 2, rect[3] / 2, 0),
            1);
        EXPECT_LE(ErrorOf(dice, map, [&](IRenderer2D& c) { c.FillEllipse(rect); }), kMostError) << rect[2];
    }
}

} // namespace
} // namespace orvane::render
