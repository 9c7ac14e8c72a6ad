#include "zephor/layers/DeltaFieldFade.h"

namespace orvane::zephor {

void DeltaFieldFade::Resized() {
    mFramesLeft = 0;
    mIsFieldInstalled = false;
}

void DeltaFieldFade::StartFrame(ZephorLayerSet& layers) {
    ZephorLayerNextDeltaField& next = *layers.nextDeltaField;
    ZephorXYDeltaLayer& shadow = *layers.mCurrentDeltaField;
    const bool isCutShort = !next.ready && mFramesLeft != 0;
    const bool isFirstField = next.ready && !mIsFieldInstalled;
    if (isCutShort || isFirstField) {
        if (isFirstField) mIsFieldInstalled = true;
        mFramesLeft = 0;
        next.StartCopyInto(shadow);
    }
    if (mFramesLeft != 0) {
        --mFramesLeft;
        if (mFramesLeft == 0)
            next.StartCopyInto(shadow);
        else if (mFramesLeft % kFramesPerBlend == 0)
            next.StartBlendInto(shadow, mFramesLeft / kFramesPerBlend);
    }
    next.ContinueShadowMove();
}

} // namespace orvane::zephor
