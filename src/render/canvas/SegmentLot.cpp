#include "render/canvas/SegmentLot.h"

#include "render/canvas/PolygonFill.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#ifdef __SSE2__
#    include <emmintrin.h>
#endif

namespace orvane::render {

namespace {

// The origin lies that far left of and above the segment: further than half its width.
constexpr int kOriginMargin = 8;
static_assert(kOriginMargin > SegmentLot::kMostWidth / 2 + 1);

// Added before a fraction is dropped, so that what is within reach isn't negative.
constexpr int kAboveZero = 128;
static_assert(kAboveZero > kOutlineMargin);

// Of the sides and of the ends. An edge that is nearly level has hardly any height, so it may lean less than it
// should.
constexpr float kMostSlope = 1 << 24;

// Pixels of a row. The areas to the right of a column (see SegmentRows.h) grow with it, and with them what single
// precision rounds away.
constexpr float kMostReach = 256;

// Columns that an extent may touch beyond its whole part: a fraction at each end.
constexpr int kPartColumns = 2;

int Ceiling(float v) {
    const int whole = int(v);
    return whole + (float(whole) < v ? 1 : 0);
}

struct Corner {
    float x, y;
};

void Set(SegmentLot::Edge& edge, int i, Corner from, Corner to) {
    edge.top[i] = from.y;
    edge.bottom[i] = to.y;
    edge.x[i] = from.x;
}

// Whether it could be taken.
bool TakeOne(SegmentLot& lot, int i, const double segment[4], float width, const CoverageSurface& surface) {
    const double lowX = std::min(segment[0], segment[2]), lowY = std::min(segment[1], segment[3]);
    const double highX = std::max(segment[0], segment[2]), highY = std::max(segment[1], segment[3]);
    if (!(lowX >= -kOutlineMargin && highX <= surface.width + kOutlineMargin)) return false;
    if (!(lowY >= -kOutlineMargin && highY <= surface.height + kOutlineMargin)) return false;
    const int originX = int(lowX + kAboveZero) - (kAboveZero + kOriginMargin);
    const int originY = int(lowY + kAboveZero) - (kAboveZero + kOriginMargin);
    const float xs[2] = { float(segment[0] - originX), float(segment[2] - originX) };
    const float ys[2] = { float(segment[1] - originY), float(segment[3] - originY) };
    const auto forwardsX = float(segment[2] - segment[0]), forwardsY = float(segment[3] - segment[1]);
    // From the upper to the lower end.
    const bool upwards = forwardsY < 0;
    const int upper = upwards ? 1 : 0, lower = upwards ? 0 : 1;
    const float across = upwards ? -forwardsX : forwardsX;
    const float down = std::abs(forwardsY);
    const float length = std::sqrt(across * across + down * down);
    if (!(length > 0)) return false;

    const float scale = width * 0.5f / length;
    const float sideways = down * scale; // from the path to a corner
    const float tilt = across * scale;   // by which the left corner of an end is lower than its path
    const Corner upperLeft = { xs[upper] - sideways, ys[upper] + tilt };
    const Corner upperRight = { xs[upper] + sideways, ys[upper] - tilt };
    const Corner lowerLeft = { xs[lower] - sideways, ys[lower] + tilt };
    const Corner lowerRight = { xs[lower] + sideways, ys[lower] - tilt };
    const bool descends = across > 0; // to the right
    Set(lot.leftSide, i, upperLeft, lowerLeft);
    Set(lot.rightSide, i, upperRight, lowerRight);
    Set(lot.leftEnd, i, descends ? upperRight : lowerLeft, descends ? upperLeft : lowerRight);
    Set(lot.rightEnd, i, descends ? lowerRight : upperLeft, descends ? lowerLeft : upperRight);

    const float slope = std::max(std::min(across / down, kMostSlope), -kMostSlope);
    const float steepness = std::min(std::abs(down / across), kMostSlope);
    lot.slope[i] = slope;
    lot.run[i] = std::abs(slope);
    lot.steepness[i] = steepness;
    lot.endSlope[i] = descends ? -steepness : steepness;
    // A level line cuts the rectangle for the width between its sides, and in a row the sides lean.
    const float within = 2 * sideways * (1 + slope * slope) + std::abs(slope);
    const float reach = std::min(within, std::abs(across) + 2 * sideways);
    lot.left[i] = std::min(xs[0], xs[1]) - sideways;
    lot.right[i] = std::max(xs[0], xs[1]) + sideways;
    lot.columns[i] = int(std::min(reach, kMostReach)) + kPartColumns;
    lot.originX[i] = originX;
    lot.originY[i] = originY;
    lot.firstRow[i] = int(std::min(upperLeft.y, upperRight.y));
    lot.belowUpper[i] = Ceiling(std::max(upperLeft.y, upperRight.y));
    lot.lower[i] = int(std::min(lowerLeft.y, lowerRight.y));
    lot.lastRow[i] = Ceiling(std::max(lowerLeft.y, lowerRight.y));
    return reach < kMostReach;
}

} // namespace

void SegmentLot::TakeScalar(const double* segments, int count, float width, const CoverageSurface& surface) {
    for (int i = 0; i < kMost; ++i)
        isShort[i] = i < count && width <= kMostWidth && TakeOne(*this, i, segments + i * 4, width, surface);
}

#ifdef __SSE2__

namespace {

__m128 Abs(__m128 v) {
    return _mm_andnot_ps(_mm_set1_ps(-0.0f), v);
}

// `a` where the mask is set, else `b`.
__m128 Select(__m128 mask, __m128 a, __m128 b) {
    return _mm_or_ps(_mm_and_ps(mask, a), _mm_andnot_ps(mask, b));
}

__m128i Ceilings(__m128 v) {
    const __m128i whole = _mm_cvttps_epi32(v);
    return _mm_sub_epi32(whole, _mm_castps_si128(_mm_cmplt_ps(_mm_cvtepi32_ps(whole), v)));
}

void Store(float* to, __m128 v) {
    _mm_storeu_ps(to, v);
}

void Store(int* to, __m128i v) {
    _mm_storeu_si128(reinterpret_cast<__m128i*>(to), v);
}

// A corner of each segment.
struct Corners {
    __m128 x, y;
};

void Store(SegmentLot::Edge& edge, const Corners& from, const Corners& to) {
    Store(edge.top, from.y);
    Store(edge.bottom, to.y);
    Store(edge.x, from.x);
}

Corners Select(__m128 mask, const Corners& a, const Corners& b) {
    return { Select(mask, a.x, b.x), Select(mask, a.y, b.y) };
}

// What needs double precision, x and y side by side; then the rest is done for four segments at once.
struct Ends {
    __m128 points;   // of the first end x, y; of the second x, y; from the origin
    __m128 forwards; // from the first to the second: x, y
    __m128i origin;  // x, y
    bool inReach;

    Ends(const double* segment, __m128d highest) {
        const __m128d first = _mm_loadu_pd(segment), second = _mm_loadu_pd(segment + 2);
        const __m128d low = _mm_min_pd(first, second), high = _mm_max_pd(first, second);
        const __m128d within =
            _mm_and_pd(_mm_cmpge_pd(low, _mm_set1_pd(-kOutlineMargin)), _mm_cmple_pd(high, highest));
        inReach = _mm_movemask_pd(within) == 3;
        origin = _mm_sub_epi32(_mm_cvttpd_epi32(_mm_add_pd(low, _mm_set1_pd(kAboveZero))),
                               _mm_set1_epi32(kAboveZero + kOriginMargin));
        const __m128d from = _mm_cvtepi32_pd(origin);
        points = _mm_movelh_ps(_mm_cvtpd_ps(_mm_sub_pd(first, from)), _mm_cvtpd_ps(_mm_sub_pd(second, from)));
        forwards = _mm_cvtpd_ps(_mm_sub_pd(second, first));
    }
};

} // namespace

void SegmentLot::Take(const double* segments, int count, float width, const CoverageSurface& surface) {
    double fewer[kMost * 4] = {};
    if (count < kMost) {
        std::memcpy(fewer, segments, std::size_t(count) * 4 * sizeof(double));
        segments = fewer;
    }
    const __m128d highest = _mm_setr_pd(surface.width + kOutlineMargin, surface.height + kOutlineMargin);
    const Ends ends[kMost] = { { segments, highest },
                               { segments + 4, highest },
                               { segments + 8, highest },
                               { segments + 12, highest } };
    __m128 firstX = ends[0].points, firstY = ends[1].points, secondX = ends[2].points,
           secondY = ends[3].points;
    _MM_TRANSPOSE4_PS(firstX, firstY, secondX, secondY);
    const __m128 forwards01 = _mm_movelh_ps(ends[0].forwards, ends[1].forwards);
    const __m128 forwards23 = _mm_movelh_ps(ends[2].forwards, ends[3].forwards);
    const __m128 forwardsX = _mm_shuffle_ps(forwards01, forwards23, _MM_SHUFFLE(2, 0, 2, 0));
    const __m128 forwardsY = _mm_shuffle_ps(forwards01, forwards23, _MM_SHUFFLE(3, 1, 3, 1));
    const __m128i origin01 = _mm_unpacklo_epi32(ends[0].origin, ends[1].origin);
    const __m128i origin23 = _mm_unpacklo_epi32(ends[2].origin, ends[3].origin);

    const __m128 zero = _mm_setzero_ps();
    const __m128 upwards = _mm_cmplt_ps(forwardsY, zero);
    const __m128 across = _mm_xor_ps(forwardsX, _mm_and_ps(upwards, _mm_set1_ps(-0.0f)));
    const __m128 down = Abs(forwardsY);
    const Corners first = { firstX, firstY }, second = { secondX, secondY };
    const Corners upper = Select(upwards, second, first), low = Select(upwards, first, second);
    const __m128 length = _mm_sqrt_ps(across * across + down * down);

    const __m128 scale = _mm_set1_ps(width * 0.5f) / length;
    const __m128 sideways = down * scale, tilt = across * scale;
    const Corners upperLeft = { upper.x - sideways, upper.y + tilt };
    const Corners upperRight = { upper.x + sideways, upper.y - tilt };
    const Corners lowerLeft = { low.x - sideways, low.y + tilt };
    const Corners lowerRight = { low.x + sideways, low.y - tilt };
    const __m128 descends = _mm_cmpgt_ps(across, zero);
    Store(leftSide, upperLeft, lowerLeft);
    Store(rightSide, upperRight, lowerRight);
    Store(leftEnd, Select(descends, upperRight, lowerLeft), Select(descends, upperLeft, lowerRight));
    Store(rightEnd, Select(descends, lowerRight, upperLeft), Select(descends, lowerLeft, upperRight));

    const __m128 most = _mm_set1_ps(kMostSlope), one = _mm_set1_ps(1), two = _mm_set1_ps(2);
    const __m128 sides = _mm_max_ps(_mm_min_ps(across / down, most), _mm_set1_ps(-kMostSlope));
    const __m128 lean = Abs(sides), steep = _mm_min_ps(Abs(down / across), most);
    Store(slope, sides);
    Store(run, lean);
    Store(steepness, steep);
    Store(endSlope, _mm_xor_ps(steep, _mm_and_ps(descends, _mm_set1_ps(-0.0f))));
    const __m128 within = two * sideways * (one + sides * sides) + lean;
    const __m128 reach = _mm_min_ps(within, Abs(across) + two * sideways);
    const __m128 mostReach = _mm_set1_ps(kMostReach);
    Store(left, _mm_min_ps(firstX, secondX) - sideways);
    Store(right, _mm_max_ps(firstX, secondX) + sideways);
    Store(columns,
          _mm_add_epi32(_mm_cvttps_epi32(_mm_min_ps(reach, mostReach)), _mm_set1_epi32(kPartColumns)));
    Store(originX, _mm_unpacklo_epi64(origin01, origin23));
    Store(originY, _mm_unpackhi_epi64(origin01, origin23));
    Store(firstRow, _mm_cvttps_epi32(_mm_min_ps(upperLeft.y, upperRight.y)));
    Store(belowUpper, Ceilings(_mm_max_ps(upperLeft.y, upperRight.y)));
    Store(lower, _mm_cvttps_epi32(_mm_min_ps(lowerLeft.y, lowerRight.y)));
    Store(lastRow, Ceilings(_mm_max_ps(lowerLeft.y, lowerRight.y)));
    const int fits = _mm_movemask_ps(_mm_and_ps(_mm_cmpgt_ps(length, zero), _mm_cmplt_ps(reach, mostReach)));
    for (int i = 0; i < kMost; ++i)
        isShort[i] = i < count && width <= kMostWidth && ends[i].inReach && (fits >> i & 1) != 0;
}

#else

void SegmentLot::Take(const double* segments, int count, float width, const CoverageSurface& surface) {
    TakeScalar(segments, count, width, surface);
}

#endif

} // namespace orvane::render
