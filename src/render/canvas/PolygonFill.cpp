#include "render/canvas/PolygonFill.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace orvane::render {

namespace {

// Between edges that lie further apart than this, all pixels of a row have one coverage, and are written as
// a run.
constexpr float kWideGap = 16;

// Pixels from `first` up to `end` of the shape, clipped to the surface.
struct Columns {
    int first, end;

    Columns(const CoverageSurface& surface, int originX, int from, int to)
        : first(std::max(from, -originX))
        , end(std::min(to, surface.width - originX)) {}

    [[nodiscard]] CoverageSpan Span(std::uint8_t* row, int originX, float base, float opacity255) const {
        return { row + originX + first, end - first, float(first), base, opacity255 };
    }
};

bool Outside(const Box& box, const CoverageSurface& surface) {
    return box.right <= 0 || box.bottom <= 0 || box.left >= surface.width || box.top >= surface.height;
}

bool ReachesFar(const Box& box, const CoverageSurface& surface) {
    return box.left < -kOutlineMargin || box.top < -kOutlineMargin ||
           box.right > surface.width + kOutlineMargin || box.bottom > surface.height + kOutlineMargin;
}

} // namespace

void PolygonFiller::Chain::Add(Point from, Point to, Point origin) {
    const float top = float(from.y - origin.y);
    const float bottom = float(to.y - origin.y);
    if (!(top < bottom)) return;
    // An edge that is nearly level has hardly any height, so it may lean less than it should.
    constexpr float kMostSlope = 1 << 24;
    const float x = float(from.x - origin.x);
    const float across = float(to.x - origin.x) - x;
    const float down = bottom - top;
    const float slope = std::clamp(across / down, -kMostSlope, kMostSlope);
    const float steepness = across == 0.0f ? std::numeric_limits<float>::infinity() : std::abs(down / across);
    edges[std::size_t(count++)] = { top, bottom, x, slope, steepness };
}

// Every edge that goes down is on the right side of a clockwise outline, every edge that goes up on the left.
// Rounding may bend a nearly level edge the other way; it then has no height worth mentioning.
void PolygonFiller::MakeChains(const Outline& outline, Point origin, Chain& leftChain, Chain& rightChain) {
    for (Chain* chain : { &leftChain, &rightChain }) chain->count = chain->next = 0;
    const auto* const begin = outline.corners.data();
    const int count = outline.count;
    const int top =
        int(std::min_element(begin, begin + count, [](Point a, Point b) { return a.y < b.y; }) - begin);
    for (int i = 0, at = top; i < count; ++i) {
        const int after = at + 1 == count ? 0 : at + 1;
        rightChain.Add(begin[at], begin[after], origin);
        at = after;
    }
    for (int i = 0, at = top; i < count; ++i) {
        const int before = at == 0 ? count - 1 : at - 1;
        leftChain.Add(begin[at], begin[before], origin);
        at = before;
    }
}

void PolygonFiller::Gather(Chain& chain, float rowTop, RowSide& side) {
    const float rowBottom = rowTop + 1.0f;
    while (chain.next < chain.count && chain.edges[std::size_t(chain.next)].bottom <= rowTop) ++chain.next;
    for (int i = chain.next; i < chain.count && chain.edges[std::size_t(i)].top < rowBottom; ++i) {
        const Edge& edge = chain.edges[std::size_t(i)];
        const float from = std::max(edge.top, rowTop);
        const float height = std::min(edge.bottom, rowBottom) - from;
        if (!(height > 0.0f)) continue;
        const float x = edge.x + ((from - edge.top) + height * 0.5f) * edge.slope;
        const EdgePiece piece = MakeEdgePiece(x, height, edge.slope, edge.steepness, chain.sign);
        side.pieces[std::size_t(side.count++)] = piece;
        side.left = std::min(side.left, piece.right - piece.extent);
        side.right = std::max(side.right, piece.right);
        side.height += chain.sign * height;
    }
}

void PolygonFiller::BlendRow(const CoverageSurface& surface, int y, int originX, float opacity255) {
    if (mLeft.count + mRight.count == 0) return;
    std::uint8_t* const row = surface.Row(y);
    const int first = int(std::floor(std::min(mLeft.left, mRight.left)));
    const int end = int(std::ceil(std::max(mLeft.right, mRight.right)));
    if (mRight.left - mLeft.right > kWideGap) {
        const int inner = int(std::ceil(mLeft.right));
        const int innerEnd = int(std::floor(mRight.left));
        const Columns left(surface, originX, first, inner);
        const Columns middle(surface, originX, inner, innerEnd);
        const Columns right(surface, originX, innerEnd, end);
        BlendPieces(left.Span(row, originX, mRight.height, opacity255), mLeft.pieces.data(), mLeft.count);
        BlendRun(middle.Span(row, originX, mRight.height, opacity255));
        BlendPieces(right.Span(row, originX, 0, opacity255), mRight.pieces.data(), mRight.count);
    } else {
        std::copy_n(mRight.pieces.data(), mRight.count, mLeft.pieces.data() + mLeft.count);
        const Columns all(surface, originX, first, end);
        BlendPieces(all.Span(row, originX, 0, opacity255), mLeft.pieces.data(), mLeft.count + mRight.count);
    }
}

void PolygonFiller::Fill(const CoverageSurface& surface, float opacity255) {
    if (mOuter.count == 0) return;
    Box box = mOuter.Bounds();
    if (Outside(box, surface)) return;
    if (ReachesFar(box, surface)) {
        const Box near = { -1, -1, surface.width + 1.0, surface.height + 1.0 };
        mOuter.ClipTo(near, mScratch);
        mInner.ClipTo(near, mScratch);
        if (mOuter.count == 0) return;
        box = mOuter.Bounds();
    }
    const Point origin = { std::floor(box.left), std::floor(box.top) };
    const int originX = int(origin.x);
    const int originY = int(origin.y);
    MakeChains(mOuter, origin, mOuterLeft, mOuterRight);
    MakeChains(mInner, origin, mInnerLeft, mInnerRight);
    mOuterLeft.sign = mInnerRight.sign = -1;
    mOuterRight.sign = mInnerLeft.sign = 1;
    const int lastRow = std::min(int(std::ceil(box.bottom)), surface.height);
    for (int y = std::max(originY, 0); y < lastRow; ++y) {
        constexpr float kFar = std::numeric_limits<float>::max();
        for (RowSide* side : { &mLeft, &mRight }) {
            side->count = 0;
            side->left = kFar;
            side->right = -kFar;
            side->height = 0;
        }
        const auto rowTop = float(y - originY);
        Gather(mOuterLeft, rowTop, mLeft);
        Gather(mInnerLeft, rowTop, mLeft);
        Gather(mInnerRight, rowTop, mRight);
        Gather(mOuterRight, rowTop, mRight);
        BlendRow(surface, y, originX, opacity255);
    }
}

} // namespace orvane::render
