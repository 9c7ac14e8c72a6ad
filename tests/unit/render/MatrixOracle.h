// Matrices in double precision, straight from their definitions: what the renderer's are compared with.
#pragma once

#include "render/Matrix.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstddef>

namespace orvane::render {

using Exact = std::array<std::array<double, 4>, 4>;

constexpr Exact kExactIdentity = { { { 1, 0, 0, 0 }, { 0, 1, 0, 0 }, { 0, 0, 1, 0 }, { 0, 0, 0, 1 } } };

inline Exact Product(const Exact& a, const Exact& b) {
    Exact product{};
    for (std::size_t i = 0; i < 4; ++i)
        for (std::size_t j = 0; j < 4; ++j)
            for (std::size_t k = 0; k < 4; ++k) product[i][j] += a[i][k] * b[k][j];
    return product;
}

inline Exact ExactTranslation(double x, double y, double z) {
    Exact m = kExactIdentity;
    m[3] = { x, y, z, 1 };
    return m;
}

inline Exact ExactScale(double x, double y, double z) {
    return { { { x, 0, 0, 0 }, { 0, y, 0, 0 }, { 0, 0, z, 0 }, { 0, 0, 0, 1 } } };
}

// Row vectors: (1, 0, 0) turned about z by a quarter goes to (0, 1, 0), and so on in a circle.
inline Exact ExactRoll(double z) {
    Exact m = kExactIdentity;
    m[0] = { std::cos(z), std::sin(z), 0, 0 };
    m[1] = { -std::sin(z), std::cos(z), 0, 0 };
    return m;
}

inline Exact ExactPitch(double x) {
    Exact m = kExactIdentity;
    m[1] = { 0, std::cos(x), std::sin(x), 0 };
    m[2] = { 0, -std::sin(x), std::cos(x), 0 };
    return m;
}

inline Exact ExactYaw(double y) {
    Exact m = kExactIdentity;
    m[0] = { std::cos(y), 0, -std::sin(y), 0 };
    m[2] = { std::sin(y), 0, std::cos(y), 0 };
    return m;
}

inline Exact ExactRotation(double x, double y, double z) {
    return Product(Product(ExactRoll(-z), ExactPitch(x)), ExactYaw(y));
}

inline Exact ExactPerspective(double fovY, double aspect, double farPlane) {
    const double c = std::cos(fovY / 2) / std::sin(fovY / 2), q = farPlane / (farPlane - 1);
    return { { { c / aspect, 0, 0, 0 }, { 0, c, 0, 0 }, { 0, 0, q, 1 }, { 0, 0, -q, 0 } } };
}

inline Exact ExactOrthographic(double width, double height) {
    return { { { 2 / width, 0, 0, 0 }, { 0, 2 / height, 0, 0 }, { 0, 0, 0.5, 0 }, { 0, 0, 0.5, 1 } } };
}

// Each element within `tolerance` of its own size, or of 1 if it is smaller.
inline void ExpectNear(const Matrix& got, const Exact& want, double tolerance = 2e-6) {
    for (std::size_t i = 0; i < 4; ++i)
        for (std::size_t j = 0; j < 4; ++j)
            EXPECT_NEAR(got[i * 4 + j], want[i][j], tolerance * std::fmax(1, std::fabs(want[i][j])))
                << "row " << i << " column " << j;
}

} // namespace orvane::render
