// A move of the shadow field, spread over the frames that follow it.
//
// The fade blends or copies a whole field within one frame, every fifth frame; at the size of a large screen that
// frame would be late. Nothing reads the shadow field from frame to frame, so a fifth of the rows is done in
// each frame, and the rest at once if somebody looks or the other field is about to change: then the cells are
// the ones that a move on time makes.
#pragma once

#include "zephor/layers/Slices.h"
#include "zephor/layers/ZephorXYDeltaLayer.h"

namespace orvane::zephor {

// to = to + (from - to) * part, for as many rows and columns as both have.
void BlendRows(const FeedbackField& from, ZephorXYDeltaLayer& to, RowRange rows, float part);
void CopyRows(const FeedbackField& from, ZephorXYDeltaLayer& to, RowRange rows);

class ShadowMove {
public:
    static constexpr int kFrames = 5; // from one blend of a fade to the next

    void StartBlend(ZephorXYDeltaLayer& to, int height, float part);
    void StartCopy(ZephorXYDeltaLayer& to, int height);
    // A frame's share.
    void Continue(const FeedbackField& from);
    void Finish(const FeedbackField& from);

private:
    void Move(const FeedbackField& from, int rows);

    ZephorXYDeltaLayer* mTo = nullptr; // null: nothing is left to do
    int mNextRow = 0, mHeight = 0;
    bool mIsCopy = false;
    float mPart = 0;
};

} // namespace orvane::zephor
