// Fills convex outlines, and rings between two of them, with exact coverage.
#pragma once

#include "render/canvas/Coverage.h"
#include "render/canvas/Outline.h"

#include <array>

namespace orvane::render {

// How far outlines may reach beyond the surface before they are clipped, in pixels. It bounds the size of
// the numbers that the single precision arithmetic of a row sees.
constexpr double kOutlineMargin = 64;

// Working memory for one shape at a time: some 300 KiB, so it lives with its canvas and not on a stack.
class PolygonFiller {
public:
    // Fills mOuter less mInner (nothing is taken away if that is empty), in a colour of alpha
    // opacity255 / 255. Both are used up. mInner lies within mOuter.
    void Fill(const CoverageSurface& surface, float opacity255);

    Outline mOuter, mInner;

private:
    // An edge as its rows need it, in pixels from the origin of the shape.
    struct Edge {
        float top, bottom; // y of its ends
        float x;           // at the top
        float slope;       // x per y
        float steepness;   // absolute y per x, may be infinite
    };

    // The edges of one side of an outline, from the top down.
    struct Chain {
        std::array<Edge, Outline::kMostCorners> edges;
        int count = 0;
        int next = 0; // the first one that reaches below the rows done so far
        float sign = 1;

        void Add(Point from, Point to, Point origin);
    };

    // The pieces of the chains of one side within a row.
    struct RowSide {
        std::array<EdgePiece, 2 * Outline::kMostCorners> pieces;
        int count = 0;
        float left = 0, right = 0; // where the pieces begin and end
        float height = 0;          // sum of the signed heights
    };

    static void MakeChains(const Outline& outline, Point origin, Chain& leftChain, Chain& rightChain);
    static void Gather(Chain& chain, float rowTop, RowSide& side);
    void BlendRow(const CoverageSurface& surface, int y, int originX, float opacity255);

    Outline mScratch;
    Chain mOuterLeft, mOuterRight, mInnerLeft, mInnerRight;
    RowSide mLeft, mRight;
};

// The piece of an edge between two heights within one row: `x` is the middle of it, `slope` and `steepness`
// are the edge's, `height` is signed and not 0.
[[nodiscard]] inline EdgePiece MakeEdgePiece(float x, float height, float slope, float steepness,
                                             float sign) {
    const float run = height * (slope < 0.0f ? -slope : slope);
    const float extent = run > EdgePiece::kLeastExtent ? run : EdgePiece::kLeastExtent;
    const float upright = height * EdgePiece::kMostSteepness;
    const float weight = steepness < upright ? steepness : upright;
    return { x + extent * 0.5f, extent, 1.0f + extent, sign * (weight * 0.5f) };
}

} // namespace orvane::render
