#include "zephor/layers/ZephorIndexLayer.h"

#include "render/canvas/CoverageCanvas.h"

#include <algorithm>
#include <bit>

namespace orvane::zephor {

namespace {

constexpr double kOpaque = 1.0;
constexpr int kLeastRowBytes = 64;

} // namespace

ZephorIndexLayer::ZephorIndexLayer(int storageKind)
    : ZephorLayer(kBytesPerCell, storageKind) {}

void ZephorIndexLayer::BeginDraw() {
    if (mSurface) mSurface->BeginDraw();
}

void ZephorIndexLayer::EndDraw() {
    if (mSurface) mSurface->EndDraw();
}

bool ZephorIndexLayer::Resize(int width, int height) {
    if (width < 1 || height < 1) return false;
    if (width == mWidth && height == mHeight) return true;
    mWidth = width;
    mHeight = height;
    return AllocateSurface();
}

void ZephorIndexLayer::FillEllipse(const double rect[4]) {
    if (mSurface) mSurface->FillEllipse(rect);
}

void ZephorIndexLayer::StrokeRectangle(const double rect[4]) {
    if (mSurface) mSurface->StrokeRectangle(rect);
}

void ZephorIndexLayer::SetFillColor(const float rgb[3]) {
    if (mSurface) mSurface->SetFillColor(double(rgb[0]), double(rgb[1]), double(rgb[2]), kOpaque);
}

void ZephorIndexLayer::SetStrokeColor(const float rgb[3]) {
    if (mSurface) mSurface->SetStrokeColor(double(rgb[0]), double(rgb[1]), double(rgb[2]), kOpaque);
}

void ZephorIndexLayer::StrokeEllipse(const double rect[4]) {
    if (mSurface) mSurface->StrokeEllipse(rect);
}

void ZephorIndexLayer::DrawLines(const double points[], int count, float width) {
    if (mSurface) mSurface->DrawLines(points, count, width);
}

int ZephorIndexLayer::GetRowBytes() const {
    return mRowBytes;
}

bool ZephorIndexLayer::AllocateSurface() {
    mSurface.reset();
    mSurface = render::CoverageCanvas::Create(mWidth, mHeight);
    return mSurface != nullptr;
}

int ZephorIndexLayer::ComputeRowBytes(int width) {
    const bool isPlain = mStorageKind == kPlainRows;
    mRowBytes = isPlain ? width : int(std::bit_ceil(unsigned(std::max(width, kLeastRowBytes))));
    return mRowBytes;
}

} // namespace orvane::zephor
