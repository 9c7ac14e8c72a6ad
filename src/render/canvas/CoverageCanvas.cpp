#include "render/canvas/CoverageCanvas.h"

#include "render/canvas/SegmentRows.h"

#include <algorithm>
#include <cmath>
#include <new>

namespace orvane::render {

namespace {

constexpr int kRowAlignment = 16;

// Coordinates beyond this are not drawn: their squares would leave the range of a double.
constexpr double kFarthest = 1e100;

// NaN is out of reach too.
bool WithinReach(const double* values, int count) {
    return std::all_of(values, values + count, [](double v) { return std::abs(v) <= kFarthest; });
}

bool IsDrawable(const double rect[4]) {
    return WithinReach(rect, 4) && rect[2] >= 0 && rect[3] >= 0;
}

float Opacity255(double alpha) {
    const auto a = float(alpha);
    return 255.0f * (a > 0.0f ? std::min(a, 1.0f) : 0.0f);
}

Box Grown(const double rect[4], double by) {
    return { rect[0] - by, rect[1] - by, rect[0] + rect[2] + by, rect[1] + rect[3] + by };
}

Point Centre(const double rect[4]) {
    return { rect[0] + rect[2] * 0.5, rect[1] + rect[3] * 0.5 };
}

} // namespace

std::unique_ptr<CoverageCanvas> CoverageCanvas::Create(int width, int height) {
    if (width < 1 || height < 1 || width > kMostPixels || height > kMostPixels) return nullptr;
    std::unique_ptr<CoverageCanvas> canvas(new (std::nothrow) CoverageCanvas);
    if (!canvas) return nullptr;
    const int rowBytes =
        (width + CoverageSurface::kRowPadding + kRowAlignment - 1) / kRowAlignment * kRowAlignment;
    canvas->mByteCount = std::size_t(rowBytes) * std::size_t(height);
    canvas->mPixels.reset(new (std::nothrow) std::uint8_t[canvas->mByteCount]());
    if (!canvas->mPixels) return nullptr;
    canvas->mSurface = { canvas->mPixels.get(), width, height, rowBytes };
    return canvas;
}

void CoverageCanvas::Resize(std::uint32_t, std::uint32_t) {}

void CoverageCanvas::SetStrokeColor(double, double, double, double alpha) {
    mStrokeOpacity255 = Opacity255(alpha);
}

void CoverageCanvas::SetFillColor(double, double, double, double alpha) {
    mFillOpacity255 = Opacity255(alpha);
}

void CoverageCanvas::DrawLines(const double segments[], int count, float width) {
    if (!(width > 0) || !(width <= kFarthest)) return;
    static const FillRowsForm sFillRows = FastestFillRows();
    SegmentLot lot;
    for (int i = 0; i < count; i += SegmentLot::kMost) {
        const double* const first = segments + std::size_t(i) * 4;
        const int taken = std::min(count - i, SegmentLot::kMost);
        lot.Take(first, taken, width, mSurface);
        // Each in its turn: a segment is to find what those before it drew.
        for (int from = 0; from < taken; ++from) {
            int to = from;
            while (to < taken && lot.isShort[to]) ++to;
            if (from < to) sFillRows(lot, from, to, mSurface, mStrokeOpacity255);
            if (to < taken) DrawLongLine(first + to * 4, width);
            from = to;
        }
    }
}

void CoverageCanvas::DrawLongLine(const double segment[4], double width) {
    if (!WithinReach(segment, 4)) return;
    MakeSegment(segment, width, mFiller.mOuter);
    mFiller.mInner.Clear();
    mFiller.Fill(mSurface, mStrokeOpacity255);
}

void CoverageCanvas::StrokeRectangle(const double rect[4]) {
    if (!IsDrawable(rect)) return;
    MakeRectangle(Grown(rect, mStrokeWidth * 0.5), mFiller.mOuter);
    MakeRectangle(Grown(rect, mStrokeWidth * -0.5), mFiller.mInner);
    mFiller.Fill(mSurface, mStrokeOpacity255);
}

void CoverageCanvas::FillRectangle(const double rect[4]) {
    if (!IsDrawable(rect)) return;
    MakeRectangle(Grown(rect, 0), mFiller.mOuter);
    mFiller.mInner.Clear();
    mFiller.Fill(mSurface, mFillOpacity255);
}

void CoverageCanvas::FillEllipse(const double rect[4]) {
    if (!IsDrawable(rect)) return;
    MakeEllipse(Centre(rect), rect[2] * 0.5, rect[3] * 0.5, mFiller.mOuter);
    mFiller.mInner.Clear();
    mFiller.Fill(mSurface, mFillOpacity255);
}

void CoverageCanvas::StrokeEllipse(const double rect[4]) {
    if (!IsDrawable(rect)) return;
    const double half = mStrokeWidth * 0.5;
    MakeParallelEllipse(Centre(rect), rect[2] * 0.5, rect[3] * 0.5, half, mFiller.mOuter);
    MakeParallelEllipse(Centre(rect), rect[2] * 0.5, rect[3] * 0.5, -half, mFiller.mInner);
    mFiller.Fill(mSurface, mStrokeOpacity255);
}

void CoverageCanvas::ReadPixels(BitmapProcessingFunctor& functor) {
    functor.Process(mPixels.get(), mSurface.width, mSurface.height, int(mSurface.rowBytes), mByteCount);
}

void CoverageCanvas::BeginDraw() {}

bool CoverageCanvas::EndDraw() {
    return false;
}

void CoverageCanvas::DrawText(const char16_t*, std::uint32_t, ITextFormat*, const double[4]) {}

IBitMap2D* CoverageCanvas::CreateBitmapFromPackedRows(const char* const[], std::uint64_t) {
    return nullptr;
}

IBitMap2D* CoverageCanvas::CreateBitmapFromImageData(const void*, std::uint32_t) {
    return nullptr;
}

void CoverageCanvas::DrawBitmap(IBitMap2D*, float, const double[4]) {}

} // namespace orvane::render
