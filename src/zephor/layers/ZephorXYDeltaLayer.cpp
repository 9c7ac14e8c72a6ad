#include "zephor/layers/ZephorXYDeltaLayer.h"

#include <cstdint>

namespace orvane::zephor {

namespace {

constexpr int kCellBytes = sizeof(DeltaCell);
constexpr int kFixedPointShift = 16;

// The step through `from` cells that reaches `to` of them, in 16.16 fixed point.
std::int64_t FixedPointStep(int from, int to) {
    return (std::int64_t(from) << kFixedPointShift) / to;
}

DeltaCell* RowOf(void* cells, std::ptrdiff_t rowBytes, int y) {
    return reinterpret_cast<DeltaCell*>(static_cast<char*>(cells) + y * rowBytes);
}

} // namespace

ZephorXYDeltaLayer::ZephorXYDeltaLayer(int storageKind)
    : ZephorLayer(kCellBytes, storageKind) {}

bool ZephorXYDeltaLayer::Resize(int width, int height) {
    if (width < 1 || height < 1) return false;
    if (mCells && width == mWidth && height == mHeight) return true;
    if (width > INT32_MAX / kCellBytes) return false;
    const int oldRowBytes = mRowBytes;
    const int newRowBytes = ComputeRowBytes(width);
    CellBlock newCells = AllocateRows(newRowBytes, height, !mCells);
    mRowBytes = oldRowBytes;
    if (!newCells) return false;
    if (mCells) CopyScaled(newCells.get(), newRowBytes, width, height);
    mCells = std::move(newCells);
    mRowBytes = newRowBytes;
    mWidth = width;
    mHeight = height;
    return AllocateSurface();
}

void ZephorXYDeltaLayer::CopyScaled(void* newCells, int newRowBytes, int newWidth, int newHeight) const {
    const std::int64_t stepX = FixedPointStep(mWidth, newWidth), stepY = FixedPointStep(mHeight, newHeight);
    for (int y = 0; y < newHeight; ++y) {
        const DeltaCell* const from = RowOf(mCells.get(), mRowBytes, int(y * stepY >> kFixedPointShift));
        DeltaCell* const to = RowOf(newCells, newRowBytes, y);
        for (int x = 0; x < newWidth; ++x) to[x] = from[x * stepX >> kFixedPointShift];
    }
    // The row past the last one belongs to the block and to no pixel.
    std::fill_n(RowOf(newCells, newRowBytes, newHeight), newWidth, DeltaCell{});
}

void ZephorXYDeltaLayer::ResetToIdentity() {
    if (!mCells) return;
    for (int y = 0; y < mHeight; ++y) {
        DeltaCell* const row = RowOf(mCells.get(), mRowBytes, y);
        const auto rowNamed = float(y == mHeight - 1 ? mHeight - 2 : y);
        for (int x = 0; x < mWidth - 1; ++x) row[x] = { float(x), rowNamed };
        row[mWidth - 1] = { float(mWidth - 2), rowNamed };
    }
}

int ZephorXYDeltaLayer::GetRowBytes() const {
    return mRowBytes;
}

bool ZephorXYDeltaLayer::AllocateSurface() {
    return true;
}

int ZephorXYDeltaLayer::ComputeRowBytes(int width) {
    mRowBytes = width * kCellBytes;
    return mRowBytes;
}

DeltaCell* ZephorXYDeltaLayer::RowToWrite(int y) {
    return mCells ? RowOf(mCells.get(), mRowBytes, y) : nullptr;
}

} // namespace orvane::zephor
