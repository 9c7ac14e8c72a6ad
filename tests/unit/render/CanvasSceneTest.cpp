// One scene of everything, which must be the same bytes on every platform.
#include "render/canvas/CoverageCanvas.h"

#include "CanvasOracle.h"
#include "support/AcrossBuilds.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace orvane::render {
namespace {

using tests::CoverageMap;

constexpr int kSide = 160;

// What the pixels ought to be without rounding in between: each shape goes over the sum of those before it.
struct ExpectedScene {
    std::vector<double> values = std::vector<double>(std::size_t(kSide) * kSide);

    void Over(CoverageMap& map) {
        for (std::size_t i = 0; i < values.size(); ++i)
            values[i] = map.coverage[i] + values[i] * (1 - map.coverage[i]);
    }
};

// Draws the scene; `expected` may be null. No function of the C library has a part in its numbers.
void DrawScene(IRenderer2D& canvas, ExpectedScene* expected) {
    tests::Dice dice(1234);
    const auto over = [&](const tests::Polygon& outer, const tests::Polygon& inner) {
        if (!expected) return;
        CoverageMap map(kSide, kSide);
        map.Add(outer, 1);
        map.Add(inner, -1);
        expected->Over(map);
    };
    double x = kSide / 2.0, y = kSide / 2.0;
    for (int i = 0; i < 60; ++i) {
        const double toX = std::clamp(x + dice.Between(-16, 16), -5.0, kSide + 5.0);
        const double toY = std::clamp(y + dice.Between(-16, 16), -5.0, kSide + 5.0);
        const double segment[] = { x, y, toX, toY };
        const float width = float(dice.Between(0.5, 3.5));
        canvas.DrawLines(segment, 1, width);
        over(tests::SegmentPolygon(segment, width), {});
        x = toX;
        y = toY;
    }
    for (int i = 0; i < 4; ++i) {
        const double long1[] = { dice.Between(-900, 0), dice.Between(0, kSide), dice.Between(kSide, 900),
                                 dice.Between(0, kSide) };
        const float width = float(dice.Between(1, 12));
        canvas.DrawLines(long1, 1, width);
        over(tests::SegmentPolygon(long1, width), {});
    }
    for (int i = 0; i < 6; ++i) {
        const double rect[] = { dice.Between(-5, kSide), dice.Between(-5, kSide), dice.Between(0, 20),
                                dice.Between(0, 20) };
        const double right = rect[0] + rect[2], bottom = rect[1] + rect[3];
        canvas.StrokeRectangle(rect);
        over(tests::RectanglePolygon(rect[0] - 0.5, rect[1] - 0.5, right + 0.5, bottom + 0.5),
             tests::RectanglePolygon(rect[0] + 0.5, rect[1] + 0.5, right - 0.5, bottom - 0.5));
        const double small[] = { rect[1], rect[0], rect[2] / 3, rect[3] / 3 };
        canvas.FillRectangle(small);
        over(tests::RectanglePolygon(small[0], small[1], small[0] + small[2], small[1] + small[3]), {});
    }
    for (int i = 0; i < 6; ++i) {
        const double size = dice.Between(1, 20);
        const double rect[] = { dice.Between(-5, kSide), dice.Between(-5, kSide), size,
                                i % 2 ? size : dice.Between(1, 40) };
        const double cx = rect[0] + rect[2] / 2, cy = rect[1] + rect[3] / 2;
        canvas.StrokeEllipse(rect);
        over(tests::GrownEllipse(cx, cy, rect[2] / 2, rect[3] / 2, 0.5),
             tests::ShrunkEllipse(cx, cy, rect[2] / 2, rect[3] / 2, 0.5));
        const double moved[] = { rect[1], rect[0], rect[2], rect[3] };
        canvas.FillEllipse(moved);
        over(tests::GrownEllipse(moved[0] + moved[2] / 2, moved[1] + moved[3] / 2, rect[2] / 2, rect[3] / 2,
                                 0),
             {});
    }
}

TEST(CanvasScene, IsWhatTheAreasOfItsShapesGive) {
    const auto canvas = CoverageCanvas::Create(kSide, kSide);
    ExpectedScene expected;
    DrawScene(*canvas, &expected);
    const auto pixels = tests::PixelsOf(*canvas);
    double largest = 0;
    int touched = 0;
    for (std::size_t i = 0; i < pixels.size(); ++i) {
        largest = std::max(largest, std::abs(pixels[i] - 255 * expected.values[i]));
        touched += expected.values[i] > 0.1;
    }
    EXPECT_LE(largest, 3); // several shapes lie over one another, each rounded
    EXPECT_GT(touched, 4000);
    tests::Checksum sum;
    sum.Add(pixels);
    tests::SayForEveryBuild("canvas scene", sum.Get());
}

} // namespace
} // namespace orvane::render
