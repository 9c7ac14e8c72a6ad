#include "zephor/layers/DeltaFieldFade.h"

namespace orvane::zephor {

void DeltaFieldFade::Resized() {
    mFramesLeft = 0;
    mIsFieldInstalled = false;
}

void DeltaFieldFade::StartFrame(ZephorLayerSet& layers) {
    const bool isReady = layers.nextDeltaField->ready;
    const bool isCutShort = !isReady && mFramesLeft != 0;
    const bool isFirstField = isReady && !mIsFieldInstalled;
    if (isFirstField) mIsFieldInstalled = true;
    if (isCutShort || isFirstField) {
        mFramesLeft = 0;
        layers.CopyIntoShadow();
    }
    if (mFramesLeft == 0) return;
    --mFramesLeft;
    if (mFramesLeft == 0)
        layers.CopyIntoShadow();
    else if (mFramesLeft % kFramesPerBlend == 0)
        layers.BlendIntoShadow(mFramesLeft / kFramesPerBlend);
}

} // namespace orvane::zephor
