#include "zephor/layers/ZephorLayerNextDeltaField.h"

#include "platform/Cores.h"

namespace orvane::zephor {

namespace {

float PartOf(int steps) {
    return 1.0f / float(steps);
}

} // namespace

ZephorLayerNextDeltaField::ZephorLayerNextDeltaField(int storageKind)
    : ZephorXYDeltaLayer(storageKind)
    , mSliceCount(SliceCountForCores(platform::ProcessorCores())) {}

bool ZephorLayerNextDeltaField::Resize(int width, int height) {
    WillWrite();
    return ZephorXYDeltaLayer::Resize(width, height);
}

void ZephorLayerNextDeltaField::BlendInto(ZephorXYDeltaLayer& layer, int steps) {
    SettleShadow();
    for (int i = 0; i < mSliceCount; ++i)
        BlendRows(Field(), layer, RowsOfSlice(mHeight, mSliceCount, i), PartOf(steps));
}

void ZephorLayerNextDeltaField::OweBlend(ZephorXYDeltaLayer& layer, int steps) {
    mDebt.OweBlend(Field(), layer, PartOf(steps));
}

void ZephorLayerNextDeltaField::OweCopy(ZephorXYDeltaLayer& layer) {
    mDebt.OweCopy(Field(), layer);
}

void ZephorLayerNextDeltaField::SettleShadow() {
    mDebt.Settle(Field());
}

void ZephorLayerNextDeltaField::WillWrite() {
    SettleShadow();
    ++mVersion;
}

} // namespace orvane::zephor
