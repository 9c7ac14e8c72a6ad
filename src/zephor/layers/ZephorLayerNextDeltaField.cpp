#include "zephor/layers/ZephorLayerNextDeltaField.h"

#include "platform/Cores.h"

namespace orvane::zephor {

ZephorLayerNextDeltaField::ZephorLayerNextDeltaField(int storageKind)
    : ZephorXYDeltaLayer(storageKind)
    , mSliceCount(SliceCountForCores(platform::ProcessorCores())) {}

bool ZephorLayerNextDeltaField::Resize(int width, int height) {
    WillWrite();
    return ZephorXYDeltaLayer::Resize(width, height);
}

void ZephorLayerNextDeltaField::BlendInto(ZephorXYDeltaLayer& layer, int steps) {
    FinishShadowMove();
    for (int i = 0; i < mSliceCount; ++i)
        BlendRows(Field(), layer, RowsOfSlice(mHeight, mSliceCount, i), 1.0f / float(steps));
}

void ZephorLayerNextDeltaField::StartBlendInto(ZephorXYDeltaLayer& layer, int steps) {
    FinishShadowMove();
    mMove.StartBlend(layer, mHeight, 1.0f / float(steps));
}

void ZephorLayerNextDeltaField::StartCopyInto(ZephorXYDeltaLayer& layer) {
    FinishShadowMove();
    mMove.StartCopy(layer, mHeight);
}

void ZephorLayerNextDeltaField::ContinueShadowMove() {
    mMove.Continue(Field());
}

void ZephorLayerNextDeltaField::FinishShadowMove() {
    mMove.Finish(Field());
}

void ZephorLayerNextDeltaField::WillWrite() {
    FinishShadowMove();
    ++mVersion;
}

} // namespace orvane::zephor
