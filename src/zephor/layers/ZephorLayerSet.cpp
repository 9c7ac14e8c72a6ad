#include "zephor/layers/ZephorLayerSet.h"

#include "zephor/layers/FeedbackFunctors.h"

#include <utility>

namespace orvane::zephor {

namespace {

constexpr int kStorageKind = 5; // of all five layers

} // namespace

ZephorLayerSet::ZephorLayerSet(int threads)
    : sourceLayer(std::make_unique<ZephorIndexLayer>(kStorageKind))
    , targetLayer(std::make_unique<ZephorIndexLayer>(kStorageKind))
    , xyDeltaLayer(std::make_unique<ZephorXYDeltaLayer>(kStorageKind))
    , mCurrentDeltaField(std::make_unique<ZephorLayer24BitAddressX4y4FracDelta>(kStorageKind))
    , nextDeltaField(std::make_unique<ZephorLayerNextDeltaField>(kStorageKind))
    , engine(threads) {}

ZephorLayerSet::~ZephorLayerSet() = default;

void ZephorLayerSet::Resize(int width, int height) {
    sourceLayer->Resize(width, height);
    targetLayer->Resize(width, height);
    ZephorLayer24BitAddressX4y4FracDelta& shadow = CurrentDeltaField();
    const bool isFirst = shadow.Field().cells == nullptr;
    shadow.Resize(width, height);
    if (isFirst) shadow.ResetToIdentity();
    nextDeltaField->Resize(width, height);
}

void ZephorLayerSet::StepFeedback() {
    std::swap(sourceLayer, targetLayer);
    const FieldInForce field{ nextDeltaField->SliceCount(), nextDeltaField->Field(),
                              nextDeltaField->Version() };
    if (!targetLayer->Surface() || !field.field.cells) return;
    DstRenderBitMapProcessingFunctor functor(engine, field, sourceLayer->Surface());
    targetLayer->Surface()->ReadPixels(functor);
}

void ZephorLayerSet::BlendIntoShadow(int steps) {
    nextDeltaField->OweBlend(*mCurrentDeltaField, steps);
}

void ZephorLayerSet::CopyIntoShadow() {
    nextDeltaField->OweCopy(*mCurrentDeltaField);
}

ZephorLayer24BitAddressX4y4FracDelta& ZephorLayerSet::CurrentDeltaField() {
    nextDeltaField->SettleShadow();
    return *mCurrentDeltaField;
}

} // namespace orvane::zephor
