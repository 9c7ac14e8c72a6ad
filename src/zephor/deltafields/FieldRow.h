// What a functor is given to fill one row of a delta field.
#pragma once

#include "zephor/layers/DeltaCell.h"
#include "zephor/math/LaneForm.h"

namespace orvane::zephor {

// A point of the plane in which effects are written: -1 to 1 from edge to edge, in both directions.
template <class T>
struct CartesianPoint {
    T x, y;
};

// The same plane from its centre: distance and angle. A negative distance is mirrored through the centre.
template <class T>
struct PolarPoint {
    T r, theta;
};

struct FieldRow {
    const float* x; // of each column
    float y;
    int width;                   // in cells
    float halfWidth, halfHeight; // half of the field's size, in cells
    float lastColumn, lastRow;   // the largest coordinates that a cell can hold
    single::LaneForm form;
};

} // namespace orvane::zephor
