// What the shadow field is owed: the moves of a fade that nobody has needed yet.
//
// A fade blends or copies a whole field within one frame; at the size of a large screen that frame would be late.
// Nothing reads the shadow field from frame to frame, so a move is only noted, and all are carried out, one after
// the other, when somebody looks or before the field that they come from changes. The cells are then those that
// moves on time make. A copy wipes out what was owed before it, so a fade that ends in peace costs one copy, in the
// frame that builds the next field.
#pragma once

#include "zephor/layers/Slices.h"
#include "zephor/layers/ZephorXYDeltaLayer.h"

#include <array>

namespace orvane::zephor {

// to = to + (from - to) * part, for as many rows and columns as both have.
void BlendRows(const FeedbackField& from, ZephorXYDeltaLayer& to, RowRange rows, float part);
void CopyRows(const FeedbackField& from, ZephorXYDeltaLayer& to, RowRange rows);

class ShadowDebt {
public:
    void OweBlend(const FeedbackField& from, ZephorXYDeltaLayer& to, float part);
    void OweCopy(const FeedbackField& from, ZephorXYDeltaLayer& to);
    // Carries out what is owed. `from` holds the cells that it held when the moves were noted.
    void Settle(const FeedbackField& from);

private:
    static constexpr int kMostBlends = 8; // a fade has seven

    ZephorXYDeltaLayer* mTo = nullptr; // null: nothing is owed
    bool mBeginsWithCopy = false;
    std::array<float, kMostBlends> mParts{};
    int mBlends = 0;
};

} // namespace orvane::zephor
