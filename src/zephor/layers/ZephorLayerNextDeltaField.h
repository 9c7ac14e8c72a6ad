// The field that functors fill and the feedback step reads.
#pragma once

#include "zephor/layers/ShadowDebt.h"
#include "zephor/layers/ZephorXYDeltaLayer.h"

#include <cstdint>

namespace orvane::zephor {

class ZephorLayerNextDeltaField final : public ZephorXYDeltaLayer {
public:
    explicit ZephorLayerNextDeltaField(int storageKind);

    // The same operation as the base's, after what the shadow field is owed of the old cells.
    bool Resize(int width, int height) override;

    // Moves every cell of `layer` towards this field's by one part in `steps`, in slice order. As many cells as
    // both have.
    virtual void BlendInto(ZephorXYDeltaLayer& layer, int steps);

    // The same, and a plain copy, to be done when they are needed (see ShadowDebt.h). Whoever reads `layer` calls
    // SettleShadow first. One layer at a time is owed anything.
    void OweBlend(ZephorXYDeltaLayer& layer, int steps);
    void OweCopy(ZephorXYDeltaLayer& layer);
    void SettleShadow();

    // To be called before cells are written with RowToWrite, once for all of them.
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
    ShadowDebt mDebt;
};

} // namespace orvane::zephor
