#include "zephor/deltafields/DeltafieldFunctor.h"

#include "zephor/deltafields/CellsOfPoints.h"

namespace orvane::zephor {

std::pair<float, float> DeltafieldFunctor::MapPolar(float r, float theta) const {
    return { r, theta };
}

std::pair<double, double> DeltafieldFunctor::MapCartesian(float /*x*/, float /*y*/) const {
    return { 0.0, 0.0 };
}

void DeltafieldFunctor::MapRow(const FieldRow& row, DeltaCell* cells) const {
    for (int column = 0; column < row.width; ++column) {
        const float x = row.x[column];
        if (flags.isPolar) {
            const PolarPoint<float> from = PolarOf(x, row.y);
            const auto [r, theta] = MapPolar(from.r, from.theta);
            StorePolar<float>(row, { r, theta }, cells + column);
        } else {
            const auto [a, b] = MapCartesian(x, row.y);
            StoreCells(row, Scaled(a, row.halfWidth), Scaled(b, row.halfHeight), cells + column);
        }
    }
}

bool DeltafieldFunctor::IsPure() const {
    return false;
}

} // namespace orvane::zephor
