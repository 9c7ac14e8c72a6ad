#include "zephor/layers/ShadowDebt.h"

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
    const int columns = std::min(from.width, to.Width());
    for (int y = inBoth.first; y < inBoth.end; ++y) {
        const DeltaCell* const next = from.Row(y);
        DeltaCell* const current = to.RowToWrite(y);
        for (int x = 0; x < columns; ++x) {
            current[x].x = current[x].x + (next[x].x - current[x].x) * part;
            current[x].y = current[x].y + (next[x].y - current[x].y) * part;
        }
    }
}

void CopyRows(const FeedbackField& from, ZephorXYDeltaLayer& to, RowRange rows) {
    if (!from.cells || !to.Field().cells) return;
    const RowRange inBoth = RowsInBoth(from, to, rows);
    const int columns = std::min(from.width, to.Width());
    for (int y = inBoth.first; y < inBoth.end; ++y) std::copy_n(from.Row(y), columns, to.RowToWrite(y));
}

void ShadowDebt::OweBlend(const FeedbackField& from, ZephorXYDeltaLayer& to, float part) {
    if (mTo != &to || mBlends == kMostBlends) Settle(from);
    mTo = &to;
    mParts[std::size_t(mBlends++)] = part;
}

void ShadowDebt::OweCopy(const FeedbackField& from, ZephorXYDeltaLayer& to) {
    if (mTo != &to) Settle(from);
    mTo = &to;
    mBeginsWithCopy = true;
    mBlends = 0;
}

void ShadowDebt::Settle(const FeedbackField& from) {
    // Row by row, so that a row stays at hand for all its moves.
    for (int y = 0; mTo && y < from.height; ++y) {
        const RowRange row{ y, y + 1 };
        if (mBeginsWithCopy) CopyRows(from, *mTo, row);
        for (int i = 0; i < mBlends; ++i) BlendRows(from, *mTo, row, mParts[std::size_t(i)]);
    }
    mTo = nullptr;
    mBeginsWithCopy = false;
    mBlends = 0;
}

} // namespace orvane::zephor
