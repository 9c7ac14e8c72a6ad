#include "zephor/layers/FeedbackStep.h"

namespace orvane::zephor {

namespace {

constexpr float kFirstBeyondInt = 2147483648.0f;

// To the nearest integer, ties to even, of a value from 0 up to what an int holds.
int RoundToEven(float value) {
    const int whole = int(value);
    const float rest = value - float(whole); // exact: a float with a fraction is small
    const bool up = rest > 0.5f || (rest == 0.5f && (whole & 1) != 0);
    return whole + int(up);
}

} // namespace

int PairedAddress(float coordinate, int last) {
    if (!(coordinate > 0.0f) || coordinate >= kFirstBeyondInt) return 0;
    return std::min(RoundToEven(coordinate) & kAddressBits, last);
}

int UnpairedAddress(float coordinate, int last) {
    if (!(coordinate > 0.0f) || coordinate >= kFirstBeyondInt) return 0;
    return std::min(int(coordinate), last);
}

void FeedbackRows(const FeedbackImages& images, const FeedbackField& field, RowRange rows) {
    const int lastColumn = images.width - 1, lastRow = images.height - 1;
    for (int y = rows.first; y < rows.end; ++y) {
        const DeltaCell* const cells = field.Row(y);
        std::uint8_t* const target = images.target + y * images.targetRowBytes;
        for (int x = 0; x < images.width; ++x) {
            const int sx = FeedbackAddress(cells[x].x, lastColumn, x, images.width);
            const int sy = FeedbackAddress(cells[x].y, lastRow, x, images.width);
            const std::uint8_t* const at = images.source + sy * images.sourceRowBytes + sx;
            int sum = at[0] + at[1];
            if (sy < lastRow) sum = (sum + at[images.sourceRowBytes + 1] + at[images.sourceRowBytes]) / 2;
            target[x] = Decayed(sum / 2);
        }
    }
}

} // namespace orvane::zephor
