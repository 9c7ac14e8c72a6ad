#include "zephor/deltafields/ComputeDeltaField.h"

#include "zephor/deltafields/CartesianMember.h"
#include "zephor/deltafields/PolarMember.h"

#include "support/SlotOrder.h"
#include "unit/zephor/deltafields/Fields.h"
#include "unit/zephor/deltafields/NamedMember.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <memory>
#include <string_view>

namespace orvane::zephor {
namespace {

using tests::CartesianByPoint;
using tests::MakeNamed;
using tests::PolarByPoint;
using tests::TestField;

constexpr double kInf = std::numeric_limits<double>::infinity();

TEST(DeltafieldFunctor, HasItsSlotsInOrder) {
    tests::ExpectSlotOrder(
        { ORVANE_SLOT(1, DeltafieldFunctor, MapPolar), ORVANE_SLOT(2, DeltafieldFunctor, MapCartesian) }, 0,
        0);
}

TEST(DeltafieldFunctor, DefaultsAreTheSamePointAndTheCentre) {
    const DeltafieldFunctor functor("Plain", { 0, false });
    EXPECT_EQ(functor.MapPolar(0.5f, 2.0f), std::pair(0.5f, 2.0f));
    EXPECT_EQ(functor.MapCartesian(0.5f, 0.25f), std::pair(0.0, 0.0));
}

std::uint16_t AsOneValue(DeltafieldFlags flags) {
    std::uint16_t value;
    std::memcpy(&value, &flags, sizeof value);
    return value;
}

TEST(DeltafieldFunctor, FlagsAsOneValueAre256ForPolarAnd0ForCartesianMembers) {
    EXPECT_EQ(AsOneValue(MakeNamed("Tripping Hard")->flags) & ~1, 256);
    EXPECT_EQ(AsOneValue(MakeNamed("Boxilight")->flags) & ~1, 0);
}

TEST(ComputeDeltaField, WithoutCellsOnlySetsReady) {
    ZephorLayerNextDeltaField field(5);
    field.ready = false;
    const PolarByPoint functor([](float r, float theta) { return std::pair(r, theta); });
    ComputeDeltaField(field, functor);
    EXPECT_TRUE(field.ready);
    EXPECT_TRUE(functor.mAsked.empty());
    EXPECT_EQ(field.Field().cells, nullptr);
}

TEST(ComputeDeltaField, SetsReadyAndANewVersion) {
    TestField field(5, 4);
    field->ready = false;
    const std::uint64_t version = field->Version();
    ComputeDeltaField(field.Get(), *MakeNamed("Constant Out"));
    EXPECT_TRUE(field->ready);
    EXPECT_GT(field->Version(), version);
}

TEST(ComputeDeltaField, AsksForEveryCellInReadingOrderWhateverTheSlices) {
    for (const int slices : { 1, 2, 4, 16 }) {
        TestField field(3, 5);
        field->SetSliceCount(slices);
        const CartesianByPoint functor([](float, float) { return std::pair(0.0, 0.0); });
        ComputeDeltaField(field.Get(), functor);
        ASSERT_EQ(functor.mAsked.size(), 15u);
        for (std::size_t i = 1; i < 15; ++i) {
            const auto [x, y] = functor.mAsked[i];
            const auto [lastX, lastY] = functor.mAsked[i - 1];
            EXPECT_TRUE(y > lastY || (y == lastY && x > lastX)) << slices << " slices, call " << i;
        }
    }
}

TEST(ComputeDeltaField, AngleAtTheCentreIsZeroWhereASizeHitsIt) {
    TestField field(4, 2); // column 2 and row 1 are the axes
    const PolarByPoint functor([](float r, float theta) { return std::pair(r, theta); });
    ComputeDeltaField(field.Get(), functor);
    EXPECT_EQ(functor.mAsked[1 * 4 + 2], std::pair(0.0f, 0.0f));
    EXPECT_EQ(field.Cell(2, 1).x, 2.0f);
    EXPECT_EQ(field.Cell(2, 1).y, 1.0f);
}

TEST(ComputeDeltaField, CentreIsHitByNoCellOfAnOddSize) {
    TestField field(5, 3);
    const PolarByPoint functor([](float r, float theta) { return std::pair(r, theta); });
    ComputeDeltaField(field.Get(), functor);
    for (const auto& [r, theta] : functor.mAsked) EXPECT_GT(r, 0.0f) << theta;
}

class CollapseMember final : public PolarMember<CollapseMember> {
public:
    CollapseMember()
        : PolarMember("Collapse") {}

    template <class T>
    [[gnu::always_inline]] PolarPoint<T> Map(T /*r*/, T theta) const {
        return { T{}, theta };
    }
};

TEST(ComputeDeltaField, PolarMemberOfDistanceZeroGivesTheCentreToEveryPixel) {
    TestField field(37, 10);
    ComputeDeltaField(field.Get(), CollapseMember());
    for (int row = 0; row < 10; ++row) {
        for (int column = 0; column < 37; ++column) {
            EXPECT_EQ(field.Cell(column, row).x, 18.5f);
            EXPECT_EQ(field.Cell(column, row).y, 5.0f);
        }
    }
}

TEST(ComputeDeltaField, DefaultMapCartesianGivesTheCentreToEveryPixel) {
    TestField field(6, 4);
    ComputeDeltaField(field.Get(), DeltafieldFunctor("Plain", { 0, false }));
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 6; ++column) {
            EXPECT_EQ(field.Cell(column, row).x, 3.0f);
            EXPECT_EQ(field.Cell(column, row).y, 2.0f);
        }
    }
}

TEST(ComputeDeltaField, ConstantOutMirrorsPixelsNearTheCentreThroughIt) {
    TestField field(1000, 1000);
    ComputeDeltaField(field.Get(), *MakeNamed("Constant Out"));
    // Three columns right of the centre r is 0.006, so r' is -0.004: two columns left of it.
    EXPECT_NEAR(field.Cell(503, 500).x, 498, 0.001);
    EXPECT_NEAR(field.Cell(503, 500).y, 500, 0.001);
    // Ten columns off it is 0.02, and half of that remains.
    EXPECT_NEAR(field.Cell(510, 500).x, 505, 0.001);
    EXPECT_NEAR(field.Cell(500, 490).y, 495, 0.001);
}

TEST(ComputeDeltaField, CoordinatesAreHeldInTheImage) {
    TestField field(10, 8);
    ComputeDeltaField(field.Get(), CartesianByPoint([](float, float) { return std::pair(-1.01, 1.0); }));
    EXPECT_EQ(field.Cell(3, 3).x, 0.0f);
    EXPECT_EQ(field.Cell(3, 3).y, 7.0f);
    ComputeDeltaField(field.Get(), CartesianByPoint([](float, float) { return std::pair(kInf, -kInf); }));
    EXPECT_EQ(field.Cell(3, 3).x, 9.0f);
    EXPECT_EQ(field.Cell(3, 3).y, 0.0f);
}

TEST(ComputeDeltaField, NaNStaysInTheCell) {
    TestField field(9, 2);
    ComputeDeltaField(field.Get(), PolarByPoint([](float, float theta) {
                          return std::pair(std::numeric_limits<float>::quiet_NaN(), theta);
                      }));
    EXPECT_TRUE(std::isnan(field.Cell(3, 1).x));
    EXPECT_TRUE(std::isnan(field.Cell(3, 1).y));
}

TEST(ComputeDeltaField, CartesianColumnsAddUpTheRoundedStep) {
    constexpr int kWidth = 1002;
    TestField field(kWidth, 3);
    const CartesianByPoint functor([](float, float) { return std::pair(0.0, 0.0); });
    ComputeDeltaField(field.Get(), functor);
    const volatile float step = 2.0f / kWidth; // volatile: rounded to a float in every build
    volatile float x = -1.0f;
    for (int column = 0; column < kWidth; ++column) {
        ASSERT_EQ(functor.mAsked[std::size_t(column)].first, x) << column;
        x = x + step;
    }
    for (int row = 0; row < 3; ++row)
        EXPECT_NEAR(functor.mAsked[std::size_t(row * kWidth)].second, 2.0 * row / 3 - 1, 1e-7);
}

// (a + 1) * half of the width with a = -(0.5 - 2^-25) and 3: 1.5 + 0.75 * 2^-23, whose nearest float is
// 1.5 + 2^-23. In single precision the sum would have been 0.5, and the product 1.5.
TEST(ComputeDeltaField, CartesianSumsAreInDoublePrecision) {
    TestField field(6, 6);
    ComputeDeltaField(field.Get(), CartesianByPoint([](float, float) {
                          const double a = -(0.5 - 0x1p-25);
                          return std::pair(a, a);
                      }));
    EXPECT_EQ(field.Cell(2, 2).x, 1.5f + 0x1p-23f);
    EXPECT_EQ(field.Cell(2, 2).y, 1.5f + 0x1p-23f);
}

class HalfMember final : public CartesianMember<HalfMember> {
public:
    HalfMember()
        : CartesianMember("Half") {}

    template <class T>
    [[gnu::always_inline]] CartesianPoint<T> Map(T /*x*/, T /*y*/) const {
        return { single::All<T>(-(0.5f - 0x1p-25f)), single::All<T>(-(0.5f - 0x1p-25f)) };
    }
};

TEST(ComputeDeltaField, CartesianSumsOfRowKernelsAreInDoublePrecisionToo) {
    for (const single::LaneForm form : single::RunnableLaneForms()) {
        TestField field(6 * 7, 6);
        SliceThreads threads(1);
        ComputeDeltaField(field.Get(), HalfMember(), threads, form);
        EXPECT_EQ(field.Cell(11, 2).y, 1.5f + 0x1p-23f) << NameOf(form);
    }
}

TEST(ComputeDeltaField, FieldsOfOneColumnOrOneRowAreMade) {
    for (const auto& [width, height] : { std::pair(1, 1), std::pair(1, 9), std::pair(9, 1) }) {
        TestField field(width, height);
        ComputeDeltaField(field.Get(), *MakeNamed("Right Turn"));
        EXPECT_GE(field.Cell(width - 1, height - 1).x, 0.0f);
        EXPECT_LE(field.Cell(width - 1, height - 1).x, float(width - 1));
        EXPECT_LE(field.Cell(width - 1, height - 1).y, float(height - 1));
    }
}

} // namespace
} // namespace orvane::zephor
