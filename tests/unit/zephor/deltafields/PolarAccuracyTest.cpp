// The error of the polar framework, with the identity, against double precision.
#include "zephor/deltafields/PolarMember.h"

#include "unit/zephor/deltafields/Fields.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace orvane::zephor {
namespace {

using tests::TestField;

class IdentityMember final : public PolarMember<IdentityMember> {
public:
    IdentityMember()
        : PolarMember("Identity") {}

    template <class T>
    [[gnu::always_inline]] PolarPoint<T> Map(T r, T theta) const {
        return { r, theta };
    }
};

struct Size {
    int width, height;
};

class PolarAccuracy : public testing::TestWithParam<Size> {};

// Turned there and back, a pixel is where it was; the last column and row, which name themselves, are held at
// that.
TEST_P(PolarAccuracy, IdentityGivesEachPixelItsOwnCoordinatesWithinAThousandth) {
    const auto [width, height] = GetParam();
    TestField field(width, height);
    ComputeDeltaField(field.Get(), IdentityMember());
    double largest = 0;
    for (int row = 0; row < height; ++row) {
        for (int column = 0; column < width; ++column) {
            const DeltaCell cell = field.Cell(column, row);
            largest =
                std::max({ largest, std::abs(double(cell.x) - column), std::abs(double(cell.y) - row) });
        }
    }
    RecordProperty("LargestErrorInMillionthsOfAPixel", int(largest * 1e6));
    EXPECT_LE(largest, 0.001);
    EXPECT_LE(field.Cell(width - 1, height / 2).x, float(width - 1));
    EXPECT_LE(field.Cell(width / 2, height - 1).y, float(height - 1));
}

struct Point {
    double x, y;
};

Point Turned(int column, int row, Size size, double zoom, double turn) {
    const double x = column * 2.0 / size.width - 1, y = row * 2.0 / size.height - 1;
    const double r = std::sqrt(x * x + y * y) * zoom, theta = std::atan2(y, x) + turn;
    const auto held = [](double value, int extent) {
        return std::clamp((value + 1) * extent * 0.5, 0.0, extent - 1.0);
    };
    return { held(std::cos(theta) * r, size.width), held(std::sin(theta) * r, size.height) };
}

class TurningMember final : public PolarMember<TurningMember> {
public:
    static constexpr float kZoom = 0.96875f, kTurn = -0.203125f; // exact in both precisions

    TurningMember()
        : PolarMember("Turning") {}

    template <class T>
    [[gnu::always_inline]] PolarPoint<T> Map(T r, T theta) const {
        return { r * kZoom, theta + kTurn };
    }
};

TEST_P(PolarAccuracy, TurnAndZoomAreWithinAThousandth) {
    const Size size = GetParam();
    TestField field(size.width, size.height);
    ComputeDeltaField(field.Get(), TurningMember());
    double largest = 0;
    for (int row = 0; row < size.height; row += 3) {
        for (int column = row % 2; column < size.width; column += 2) {
            const Point expected =
                Turned(column, row, size, double(TurningMember::kZoom), double(TurningMember::kTurn));
            const DeltaCell cell = field.Cell(column, row);
            largest = std::max(
                { largest, std::abs(double(cell.x) - expected.x), std::abs(double(cell.y) - expected.y) });
        }
    }
    RecordProperty("LargestErrorInMillionthsOfAPixel", int(largest * 1e6));
    EXPECT_LE(largest, 0.001);
}

INSTANTIATE_TEST_SUITE_P(Sizes, PolarAccuracy,
                         testing::Values(Size{ 1002, 802 }, Size{ 1922, 1082 }, Size{ 3842, 2162 }));

} // namespace
} // namespace orvane::zephor
