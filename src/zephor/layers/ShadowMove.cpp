#include "zephor/layers/ShadowMove.h"

#include <algorithm>

namespace orvane::zephor {

namespace {

RowRange RowsInBoth(const FeedbackField& from, const ZephorXYDeltaLayer& to, RowRange rows) {
    return { rows.first, std::min({ rows.end, from.height, to.Height() }) };
}

} // namespace

void BlendRows(const FeedbackField& from, ZephorXYDeltaLayer& to, RowRange rows, float part) {
    if (!from.cells || !to.Field().cells) return;
    const RowRange inBoth = RowsInBoth(from, to, rows);
    const int floats = 2 * std::min(from.width, to.Width());
    for (int y = inBoth.first; y < inBoth.end; ++y) {
        const auto* const next = &from.Row(y)->x;
        float* const current = &to.RowToWrite(y)->x;
        for (int i = 0; i < floats; ++i) current[i] = current[i] + (next[i] - current[i]) * part;
    }
}

void CopyRows(const FeedbackField& from, ZephorXYDeltaLayer& to, RowRange rows) {
    if (!from.cells || !to.Field().cells) return;
    const RowRange inBoth = RowsInBoth(from, to, rows);
    const int columns = std::min(from.width, to.Width());
    for (int y = inBoth.first; y < inBoth.end; ++y) std::copy_n(from.Row(y), columns, to.RowToWrite(y));
}

void ShadowMove::StartBlend(ZephorXYDeltaLayer& to, int height, float part) {
    mTo = &to;
    mNextRow = 0;
    mHeight = height;
    mIsCopy = false;
    mPart = part;
}

void ShadowMove::StartCopy(ZephorXYDeltaLayer& to, int height) {
    StartBlend(to, height, 1.0f);
    mIsCopy = true;
}

void ShadowMove::Continue(const FeedbackField& from) {
    Move(from, (mHeight + kFrames - 1) / kFrames);
}

void ShadowMove::Finish(const FeedbackField& from) {
    Move(from, mHeight);
}

void ShadowMove::Move(const FeedbackField& from, int rows) {
    if (!mTo) return;
    const RowRange range{ mNextRow, std::min(mNextRow + rows, mHeight) };
    if (mIsCopy)
        CopyRows(from, *mTo, range);
    else
        BlendRows(from, *mTo, range, mPart);
    mNextRow = range.end;
    if (mNextRow == mHeight) mTo = nullptr;
}

} // namespace orvane::zephor
