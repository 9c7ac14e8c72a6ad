#include "render/Matrix.h"

#include "unit/render/MatrixOracle.h"

#include <gtest/gtest.h>

#include <numbers>

namespace orvane::render {
namespace {

constexpr float kQuarter = std::numbers::pi_v<float> / 2;

TEST(Matrix, ProductActsLeftFirstOnRowVectors) {
    const Matrix scaledThenMoved = ScaleMatrix(2, 3, 4) * TranslationMatrix(5, 6, 7);
    const Matrix expected = { 2, 0, 0, 0, 0, 3, 0, 0, 0, 0, 4, 0, 5, 6, 7, 1 };
    EXPECT_EQ(scaledThenMoved, expected);
    const Matrix movedThenScaled = TranslationMatrix(5, 6, 7) * ScaleMatrix(2, 3, 4);
    EXPECT_EQ(movedThenScaled, (Matrix{ 2, 0, 0, 0, 0, 3, 0, 0, 0, 0, 4, 0, 10, 18, 28, 1 }));
}

TEST(Matrix, ProductOfUnlikeElementsIsWorkedOutByHand) {
    const Matrix a = { 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16 };
    const Matrix b = { 1, 0, 2, 0, 0, 3, 0, 1, 4, 0, 0, 5, 0, 6, 1, 0 };
    const Matrix expected = { 13, 30, 6, 17, 33, 66, 18, 41, 53, 102, 30, 65, 73, 138, 42, 89 };
    EXPECT_EQ(a * b, expected);
    EXPECT_EQ(a * kIdentityMatrix, a);
    EXPECT_EQ(kIdentityMatrix * a, a);
}

TEST(Matrix, RotationAgreesWithRollPitchYawInDoubles) {
    for (const float x : { 0.0f, 0.3f, -1.2f, 2.9f })
        for (const float y : { 0.0f, -0.7f, 1.9f })
            for (const float z : { 0.0f, 0.5f, -2.4f, 6.5f }) {
                SCOPED_TRACE(testing::Message() << x << " " << y << " " << z);
                ExpectNear(RotationMatrix(x, y, z), ExactRotation(x, y, z));
            }
}

TEST(Matrix, RotationHasTheSinesAndCosinesInTheirPlaces) {
    const double sp = std::sin(0.4), cp = std::cos(0.4), sy = std::sin(0.9), cy = std::cos(0.9);
    const double sr = std::sin(-1.3), cr = std::cos(-1.3);
    const Exact expected = { { { cr * cy + sr * sp * sy, sr * cp, sr * sp * cy - cr * sy, 0 },
                               { cr * sp * sy - sr * cy, cr * cp, sr * sy + cr * sp * cy, 0 },
                               { cp * sy, -sp, cp * cy, 0 },
                               { 0, 0, 0, 1 } } };
    ExpectNear(RotationMatrix(0.4f, 0.9f, 1.3f), expected);
}

TEST(Matrix, RotationTurnsAboutZTheOtherWay) {
    // A quarter about z takes (1, 0, 0) to (0, -1, 0); about x it takes (0, 1, 0) to (0, 0, 1), and about y
    // (0, 0, 1) to (1, 0, 0).
    ExpectNear(RotationMatrix(0, 0, kQuarter),
               { { { 0, -1, 0, 0 }, { 1, 0, 0, 0 }, { 0, 0, 1, 0 }, { 0, 0, 0, 1 } } });
    ExpectNear(RotationMatrix(kQuarter, 0, 0),
               { { { 1, 0, 0, 0 }, { 0, 0, 1, 0 }, { 0, -1, 0, 0 }, { 0, 0, 0, 1 } } });
    ExpectNear(RotationMatrix(0, kQuarter, 0),
               { { { 0, 0, -1, 0 }, { 0, 1, 0, 0 }, { 1, 0, 0, 0 }, { 0, 0, 0, 1 } } });
}

TEST(Matrix, PerspectiveAgreesWithItsDefinition) {
    for (const float fovY : { 0.1f, 1.0471976f, 2.5f })
        for (const float aspect : { 0.5f, 1.25f, 16.0f / 9.0f })
            for (const float farPlane : { 2.0f, 100.0f, 5000.0f }) {
                SCOPED_TRACE(testing::Message() << fovY << " " << aspect << " " << farPlane);
                ExpectNear(PerspectiveMatrix(fovY, aspect, farPlane),
                           ExactPerspective(fovY, aspect, farPlane));
            }
}

TEST(Matrix, PerspectiveMapsDepthOneToZeroAndFarToOne) {
    const Matrix m = PerspectiveMatrix(1, 1, 50);
    EXPECT_EQ(1 * m[10] + m[14], 0.0f);
    EXPECT_NEAR((50 * m[10] + m[14]) / (50 * m[11]), 1.0, 1e-6);
}

TEST(Matrix, PerspectiveTakesAnglesBeyondAHalfTurn) {
    // Half of it is beyond a quarter (folded), beyond a half, negative, and beyond whole turns (wrapped).
    for (const float fovY : { 3.5f, 5.0f, 7.0f, -1.0f, -4.0f, 14.0f, 40.0f }) {
        SCOPED_TRACE(fovY);
        ExpectNear(PerspectiveMatrix(fovY, 1.5f, 10), ExactPerspective(fovY, 1.5, 10), 2e-5);
    }
}

TEST(Matrix, OrthographicAgreesWithItsDefinition) {
    ExpectNear(OrthographicMatrix(1000, 800), ExactOrthographic(1000, 800));
    const Matrix m = OrthographicMatrix(8, 4);
    EXPECT_EQ(m, (Matrix{ 0.25f, 0, 0, 0, 0, 0.5f, 0, 0, 0, 0, 0.5f, 0, 0, 0, 0.5f, 1 }));
}

} // namespace
} // namespace orvane::render
