// The fade of the delta fields.
//
// KEEP: what it makes is read by nobody. The feedback step reads the next field, which so takes effect in full,
// and beside it the shadow field walks there over 40 frames. It stays because the shadow field is part of the
// state that a change of field leaves behind.
// Pinned by DeltaFieldFade.AChangeOfFieldShowsAtOnce and DeltaFieldFade.RunsSevenBlendsAndACopy.
#pragma once

#include "zephor/layers/ZephorLayerSet.h"

namespace orvane::zephor {

class DeltaFieldFade {
public:
    static constexpr int kFrames = 40;
    static constexpr int kFramesPerBlend = 5;

    // At the start of each frame.
    void StartFrame(ZephorLayerSet& layers);

    // A new field was computed. A fade that is under way begins again, from where the shadow field is.
    void FieldChanged() { mFramesLeft = kFrames; }

    // The layers have a new size: the field goes into the shadow field whole with the next frame.
    void Resized();

    [[nodiscard]] int FramesLeft() const { return mFramesLeft; }

    // Whether a finished field has reached the shadow field since the start or the last change of size. Until
    // then the image isn't drawn.
    [[nodiscard]] bool IsFieldInstalled() const { return mIsFieldInstalled; }

private:
    int mFramesLeft = 0;
    bool mIsFieldInstalled = false;
};

} // namespace orvane::zephor
