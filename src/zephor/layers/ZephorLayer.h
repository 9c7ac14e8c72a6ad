// What the layers of the feedback engine have in common: a size, and a block of cells or a surface.
//
// Nothing here prints. A layer without cells or a surface does nothing in every operation.
// No locks: a layer is used by the thread that draws the frame.
#pragma once

#include <cstddef>
#include <cstdlib>
#include <memory>

namespace orvane::zephor {

struct FreeCells {
    void operator()(void* block) const { std::free(block); }
};

using CellBlock = std::unique_ptr<void, FreeCells>;

// The order of the operations is part of the contract. Where a comment says nothing else, an operation is empty
// for layers that have no use for it.
class ZephorLayer {
public:
    ZephorLayer(int bytesPerCell, int storageKind)
        : mBytesPerCell(bytesPerCell)
        , mStorageKind(storageKind) {}

    virtual ~ZephorLayer() = default;
    ZephorLayer(const ZephorLayer&) = delete;
    ZephorLayer& operator=(const ZephorLayer&) = delete;

    virtual void BeginDraw() {}

    virtual void EndDraw() {}

    // The size in cells. False, with everything as it was, for a side below 1 or without memory; true at once if
    // the size is unchanged. The base's form loses what was in the cells.
    virtual bool Resize(int width, int height);

    // Every cell names its own place (see ZephorXYDeltaLayer).
    virtual void ResetToIdentity() {}

    // A rectangle is four doubles: x, y, width, height.
    virtual void FillEllipse(const double /*rect*/[4]) {}

    virtual void Reserved6() {} // empty in every layer

    virtual void StrokeRectangle(const double /*rect*/[4]) {}

    // Red, green, blue.
    virtual void SetFillColor(const float /*rgb*/[3]) {}

    virtual void SetStrokeColor(const float /*rgb*/[3]) {}

    virtual void StrokeEllipse(const double /*rect*/[4]) {}

    // `count` segments of two points each.
    virtual void DrawLines(const double /*points*/[], int /*count*/, float /*width*/) {}

    // The distance between rows of cells.
    [[nodiscard]] virtual int GetRowBytes() const = 0;

    // What a layer needs besides its cells, for the size that it has.
    virtual bool AllocateSurface() = 0;

    // Stores the distance between rows for such a width, and returns it.
    virtual int ComputeRowBytes(int width) = 0;

    [[nodiscard]] int Width() const { return mWidth; }

    [[nodiscard]] int Height() const { return mHeight; }

protected:
    // A block for height + 1 rows; null without memory.
    [[nodiscard]] static CellBlock AllocateRows(int rowBytes, int height, bool zeroed);

    int mBytesPerCell; // stored, never read
    int mStorageKind;
    int mWidth = 0, mHeight = 0;
    int mRowBytes = 0;
    CellBlock mCells;
};

} // namespace orvane::zephor
