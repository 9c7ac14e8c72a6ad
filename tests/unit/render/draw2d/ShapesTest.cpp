// Shapes by the pixels that are certainly inside and certainly outside of them: whether an edge is smoothed
// is the component's affair.
#include "render/draw2d/LayerBacked2DRenderer.h"

#include "unit/render/draw2d/Surface.h"

#include <gtest/gtest.h>

#include <limits>

namespace orvane::render {
namespace {

using namespace tests;

TEST(Shapes, ARectangleFillsItsPixelsAndNoOther) {
    Surface surface(32, 24);
    const double rect[4] = { 5, 7, 10, 6 };
    const Picture picture = surface.After([&](IRenderer2D& canvas) { canvas.FillRectangle(rect); });
    for (int y = 0; y < 24; ++y)
        for (int x = 0; x < 32; ++x) {
            const bool inside = x >= 5 && x < 15 && y >= 7 && y < 13;
            ASSERT_EQ(picture.At(x, y), inside ? kWhite : kClear) << x << ", " << y;
        }
}

TEST(Shapes, TheFirstFillColourIsWhiteAndTheFirstStrokeColourBlack) {
    Surface surface(32, 32);
    const double rect[4] = { 4, 4, 8, 8 }, segment[4] = { 16, 20, 32, 20 };
    const Picture picture = surface.After([&](IRenderer2D& canvas) {
        canvas.FillRectangle(rect);
        canvas.DrawLines(segment, 1, 4);
    });
    EXPECT_EQ(picture.At(8, 8), kWhite);
    EXPECT_EQ(picture.At(24, 20), kBlack);
}

TEST(Shapes, ColoursAreStoredBlueGreenRedAlphaAndPremultiplied) {
    Surface surface(16, 16);
    const double whole[4] = { 0, 0, 16, 16 };
    const Picture picture = surface.After([&](IRenderer2D& canvas) {
        canvas.SetFillColor(1, 0.5, 0.25, 0.5);
        canvas.FillRectangle(whole);
    });
    // 255 x (0.25, 0.5, 1) x 0.5, and the alpha itself.
    EXPECT_TRUE(Near(picture.At(8, 8), { 32, 64, 128, 128 }, 1)) << picture.At(8, 8);
}

TEST(Shapes, AHalfTransparentColourIsMixedWithWhatIsThere) {
    Surface surface(16, 16);
    const double whole[4] = { 0, 0, 16, 16 };
    const Picture picture = surface.After([&](IRenderer2D& canvas) {
        canvas.FillRectangle(whole);
        canvas.SetFillColor(1, 0, 0, 0.5);
        canvas.FillRectangle(whole);
    });
    EXPECT_TRUE(Near(picture.At(8, 8), { 128, 128, 255, 255 }, 1)) << picture.At(8, 8);
}

TEST(Shapes, AnOutlineIsOnePixelWideAndLeavesTheInside) {
    Surface surface(32, 32);
    const double rect[4] = { 4.5, 6.5, 20, 10 }; // through pixel centres
    const Picture picture = surface.After([&](IRenderer2D& canvas) {
        canvas.SetStrokeColor(0, 0, 1, 1);
        canvas.StrokeRectangle(rect);
    });
    for (int x = 5; x < 24; ++x) {
        EXPECT_EQ(picture.At(x, 6), kBlue) << x;
        EXPECT_EQ(picture.At(x, 16), kBlue) << x;
    }
    for (int y = 7; y < 16; ++y) {
        EXPECT_EQ(picture.At(4, y), kBlue) << y;
        EXPECT_EQ(picture.At(24, y), kBlue) << y;
    }
    EXPECT_EQ(picture.At(5, 7), kClear);
    EXPECT_EQ(picture.At(14, 11), kClear);
    EXPECT_EQ(picture.At(3, 11), kClear);
    EXPECT_EQ(picture.At(14, 5), kClear);
    EXPECT_EQ(picture.At(25, 11), kClear);
    EXPECT_EQ(picture.At(14, 17), kClear);
}

// By the equation of the ellipse, a pixel's breadth away from the edge to either side.
TEST(Shapes, AnEllipseFillsTheRectangleThatHoldsIt) {
    Surface surface(64, 48);
    const double rect[4] = { 8, 10, 44, 26 };
    const Picture picture = surface.After([&](IRenderer2D& canvas) {
        canvas.SetFillColor(0, 1, 0, 1);
        canvas.FillEllipse(rect);
    });
    int inside = 0, outside = 0;
    const auto reach = [](double x, double y, double rx, double ry) {
        const double dx = (x - 30) / rx, dy = (y - 23) / ry;
        return dx * dx + dy * dy;
    };
    for (int y = 0; y < 48; ++y)
        for (int x = 0; x < 64; ++x) {
            const double cx = x + 0.5, cy = y + 0.5;
            if (reach(cx, cy, 22 - 1, 13 - 1) < 1) {
                ++inside;
                ASSERT_EQ(picture.At(x, y), kGreen) << x << ", " << y;
            } else if (reach(cx, cy, 22 + 1, 13 + 1) > 1) {
                ++outside;
                ASSERT_EQ(picture.At(x, y), kClear) << x << ", " << y;
            }
        }
    EXPECT_GT(inside, 700);
    EXPECT_GT(outside, 1900);
}

TEST(Shapes, TheOutlineOfAnEllipseLeavesItsInside) {
    Surface surface(64, 64);
    const double rect[4] = { 10.5, 10.5, 40, 40 };
    const Picture picture = surface.After([&](IRenderer2D& canvas) {
        canvas.SetStrokeColor(1, 0, 0, 1);
        canvas.StrokeEllipse(rect);
    });
    EXPECT_EQ(picture.At(30, 30), kClear);
    EXPECT_EQ(picture.At(12, 12), kClear);
    // The outermost points, on pixel centres.
    for (const auto& [x, y] : { std::pair(30, 10), { 30, 50 }, { 10, 30 }, { 50, 30 } })
        EXPECT_GT(picture.At(x, y).alpha, 128) << x << ", " << y;
    for (const auto& [x, y] :
         { std::pair(30, 13), { 30, 47 }, { 13, 30 }, { 47, 30 }, { 30, 7 }, { 53, 30 } })
        EXPECT_EQ(picture.At(x, y), kClear) << x << ", " << y;
}

TEST(Shapes, DrawLinesDrawsEverySegmentAndNothingBetweenThem) {
    Surface surface(64, 32);
    const double segments[] = { 4, 8, 24, 8, /**/ 40, 8, 60, 8, /**/ 10, 16, 10, 32 };
    const Picture picture = surface.After([&](IRenderer2D& canvas) {
        canvas.SetStrokeColor(1, 0, 0, 1);
        canvas.DrawLines(segments, 3, 4);
    });
    for (const int y : { 6, 7, 8, 9 })
        for (const int x : { 5, 14, 23, 41, 59 }) EXPECT_EQ(picture.At(x, y), kRed) << x << ", " << y;
    for (const int x : { 8, 9, 10, 11 }) EXPECT_EQ(picture.At(x, 20), kRed) << x;
    for (const int x : { 2, 26, 32, 38, 62 }) EXPECT_EQ(picture.At(x, 8), kClear) << x;
    EXPECT_EQ(picture.At(14, 4), kClear);
    EXPECT_EQ(picture.At(14, 11), kClear);
    EXPECT_EQ(picture.At(10, 14), kClear);
}

TEST(Shapes, DrawLinesDrawsNoMoreSegmentsThanItsCount) {
    Surface surface(32, 32);
    const double segments[] = { 0, 8, 32, 8, /**/ 0, 24, 32, 24 };
    const Picture picture = surface.After([&](IRenderer2D& canvas) { canvas.DrawLines(segments, 1, 2); });
    EXPECT_EQ(picture.At(16, 8), kBlack);
    EXPECT_EQ(picture.At(16, 24), kClear);
}

TEST(Shapes, DrawLinesWithWidth0DrawsNothing) {
    Surface surface(32, 32);
    const double segment[4] = { 0, 16, 32, 16 };
    EXPECT_TRUE(surface.After([&](IRenderer2D& canvas) { canvas.DrawLines(segment, 1, 0); }).IsAll(kClear));
}

TEST(Shapes, DrawLinesWithANegativeOrUndefinedWidthDrawsNothing) {
    Surface surface(32, 32);
    const double segment[4] = { 0, 16, 32, 16 };
    const Picture picture = surface.After([&](IRenderer2D& canvas) {
        canvas.DrawLines(segment, 1, -1);
        canvas.DrawLines(segment, 1, std::numeric_limits<float>::quiet_NaN());
    });
    EXPECT_TRUE(picture.IsAll(kClear));
}

TEST(Shapes, DrawLinesWithACountBelow1DrawsNothing) {
    Surface surface(32, 32);
    const double segment[4] = { 0, 16, 32, 16 };
    const Picture picture = surface.After([&](IRenderer2D& canvas) {
        canvas.DrawLines(segment, 0, 4);
        canvas.DrawLines(segment, -1, 4);
        canvas.DrawLines(nullptr, 0, 4);
    });
    EXPECT_TRUE(picture.IsAll(kClear));
}

TEST(Shapes, WhatLiesBeyondTheSurfaceIsCutOff) {
    Surface surface(16, 16);
    const double vast[4] = { -1e6, -1e6, 2e6, 2e6 }, away[4] = { 1e15, 1.8e19, 512, 20 };
    const Picture picture = surface.After([&](IRenderer2D& canvas) {
        canvas.FillRectangle(vast);
        canvas.SetFillColor(1, 0, 0, 1);
        canvas.FillRectangle(away);
    });
    EXPECT_TRUE(picture.IsAll(kWhite));
}

} // namespace
} // namespace orvane::render
