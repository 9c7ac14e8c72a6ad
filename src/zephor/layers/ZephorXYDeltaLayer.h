// A field of coordinate pairs: for each output pixel, the source address that feeds it.
#pragma once

#include "zephor/layers/FeedbackStep.h"
#include "zephor/layers/ZephorLayer.h"

namespace orvane::zephor {

class ZephorXYDeltaLayer : public ZephorLayer {
public:
    explicit ZephorXYDeltaLayer(int storageKind);

    // Keeps the field's shape: new cells are the old ones at the nearest place before them, and still hold
    // coordinates of the old size. The first cells are zeros. False and all as it was without memory.
    bool Resize(int width, int height) override;
    // Each cell its own column and row; the last column and the last row name the one next to them. (Of a single
    // column or row that is -1, which counts as 0 when it is read.)
    void ResetToIdentity() override;
    [[nodiscard]] int GetRowBytes() const override;
    bool AllocateSurface() override;
    // Two floats a cell.
    int ComputeRowBytes(int width) override;

    // The field as it stands, for whoever reads it. No cells before the first size.
    [[nodiscard]] FeedbackField Field() const {
        return { static_cast<const DeltaCell*>(mCells.get()), mRowBytes, mWidth, mHeight };
    }

    // A row to be written; null without cells.
    [[nodiscard]] DeltaCell* RowToWrite(int y);

private:
    void CopyScaled(void* newCells, int newRowBytes, int newWidth, int newHeight) const;
};

// The shadow field, which the fade moves towards the field in force. Its name is that of a packed format; its
// cells are the pairs of its base, and it adds nothing.
class ZephorLayer24BitAddressX4y4FracDelta final : public ZephorXYDeltaLayer {
public:
    using ZephorXYDeltaLayer::ZephorXYDeltaLayer;
};

} // namespace orvane::zephor
