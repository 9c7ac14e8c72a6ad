// The five layers of the classic visualizer, and what moves them from frame to frame.
#pragma once

#include "zephor/layers/FeedbackEngine.h"
#include "zephor/layers/ZephorIndexLayer.h"
#include "zephor/layers/ZephorLayerNextDeltaField.h"
#include "zephor/layers/ZephorXYDeltaLayer.h"

#include <memory>

namespace orvane::zephor {

class ZephorLayerSet {
public:
    // `threads`, the caller's included, share the slices of the feedback step. The pixels don't depend on it.
    explicit ZephorLayerSet(int threads = 1);
    ~ZephorLayerSet();
    ZephorLayerSet(const ZephorLayerSet&) = delete;
    ZephorLayerSet& operator=(const ZephorLayerSet&) = delete;

    // Sizes the four layers that have one. Size in cells: the drawing area's plus 2.
    void Resize(int width, int height);

    // Exchanges the two images and makes the new target from the new source. Without a surface or a field the
    // pixels stay as they are.
    void StepFeedback();

    // The moves of a fade: the shadow field goes towards the next field by one part in `steps`, or becomes a copy of
    // it. They cost nothing until somebody looks (see ShadowDebt.h).
    void BlendIntoShadow(int steps);
    void CopyIntoShadow();

    // The shadow field, up to date.
    [[nodiscard]] ZephorLayer24BitAddressX4y4FracDelta& CurrentDeltaField();

    std::unique_ptr<ZephorIndexLayer> sourceLayer;    // the image of the previous frame
    std::unique_ptr<ZephorIndexLayer> targetLayer;    // the image being made
    std::unique_ptr<ZephorXYDeltaLayer> xyDeltaLayer; // never sized or read
private:
    std::unique_ptr<ZephorLayer24BitAddressX4y4FracDelta> mCurrentDeltaField;

public:
    std::unique_ptr<ZephorLayerNextDeltaField> nextDeltaField;
    FeedbackEngine engine;
};

} // namespace orvane::zephor
