// 4 by 4 matrices of floats and the few of them that the drawing contract makes.
//
// Elements stand row by row, for row vectors: a point goes through as point * matrix, so in a * b the left
// one acts first. Angles are radians. Sums are taken in column order in single precision and nothing is
// fused, so a product has the same bits on every machine.
#pragma once

#include <array>

namespace orvane::render {

using Matrix = std::array<float, 16>;

constexpr Matrix kIdentityMatrix = { 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1 };

[[nodiscard]] Matrix operator*(const Matrix& a, const Matrix& b);

[[nodiscard]] Matrix TranslationMatrix(float x, float y, float z);
[[nodiscard]] Matrix ScaleMatrix(float x, float y, float z);

// Roll about z, then pitch about x, then yaw about y, the z angle with its sign inverted.
[[nodiscard]] Matrix RotationMatrix(float x, float y, float z);

// Depth 1 to `farPlane` maps to 0 to 1: the near plane is fixed.
[[nodiscard]] Matrix PerspectiveMatrix(float fovY, float aspect, float farPlane);

// `width` by `height` about the origin; depth -1 to 1 maps to 0 to 1.
[[nodiscard]] Matrix OrthographicMatrix(float width, float height);

} // namespace orvane::render
