// One cell of a delta field: the source address that feeds a pixel, in the image's pixel coordinates.
#pragma once

namespace orvane::zephor {

struct DeltaCell {
    float x, y;
};

static_assert(sizeof(DeltaCell) == 8);

} // namespace orvane::zephor
