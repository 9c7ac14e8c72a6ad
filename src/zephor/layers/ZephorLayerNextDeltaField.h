// The field that functors fill and the feedback step reads.
#pragma once

#include "zephor/layers/ShadowMove.h"
#include "zephor/layers/ZephorXYDeltaLayer.h"

#include <cstdint>

namespace orvane::zephor {

class ZephorLayerNextDeltaField final : public ZephorXYDeltaLayer {
public:
    explicit ZephorLayerNextDeltaField(int storageKind);

    // The same operation as the base's; what the shadow field still has to take of the old cells is taken first.
    bool Resize(int width, int height) override;

    // Moves every cell of `layer` towards this field's by one part in `steps`, in slice order. As many cells as
    // both have.
    virtual void BlendInto(ZephorXYDeltaLayer& layer, int steps);

    // The same, and a plain copy, at the pace of ContinueShadowMove. Whoever reads `layer` meanwhile calls
    // FinishShadowMove first.
    void StartBlendInto(ZephorXYDeltaLayer& layer, int steps);
    void StartCopyInto(ZephorXYDeltaLayer& layer);
    void ContinueShadowMove();
    void FinishShadowMove();

    // To be called before cells are written with RowToWrite.
    void WillWrite();

    // Grows whenever cells may have changed.
    [[nodiscard]] std::uint64_t Version() const { return mVersion; }

    [[nodiscard]] int SliceCount() const { return mSliceCount; }

    // At least 1.
    void SetSliceCount(int count) { mSliceCount = count; }

    bool ready = true; // cleared while a field is being computed

private:
    int mSliceCount; // at least 2, a power of two
    std::uint64_t mVersion = 1;
    ShadowMove mMove;
};

} // namespace orvane::zephor
