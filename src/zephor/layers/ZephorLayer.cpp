#include "zephor/layers/ZephorLayer.h"

namespace orvane::zephor {

CellBlock ZephorLayer::AllocateRows(int rowBytes, int height, bool zeroed) {
    const std::size_t rows = std::size_t(height) + 1;
    const auto bytes = std::size_t(rowBytes);
    if (zeroed) return CellBlock(std::calloc(rows, bytes));
    return bytes > SIZE_MAX / rows ? nullptr : CellBlock(std::malloc(rows * bytes));
}

bool ZephorLayer::Resize(int width, int height) {
    if (width < 1 || height < 1) return false;
    if (mCells && width == mWidth && height == mHeight) return true;
    mCells.reset();
    mCells = AllocateRows(ComputeRowBytes(width), height, true);
    if (!mCells) return false;
    mWidth = width;
    mHeight = height;
    return AllocateSurface();
}

} // namespace orvane::zephor
