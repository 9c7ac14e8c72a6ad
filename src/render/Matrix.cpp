#include "render/Matrix.h"

#include <cmath>
#include <cstddef>
#include <numbers>

namespace orvane::render {
namespace {

constexpr std::size_t kSide = 4;
constexpr float kPi = std::numbers::pi_v<float>;
constexpr float kTwoPi = 2.0f * kPi;
constexpr float kHalfPi = 0.5f * kPi;

struct SineCosine {
    float sine, cosine;
};

SineCosine SineCosineOf(float angle) {
    return { std::sin(angle), std::cos(angle) };
}

// Takes the angle to -pi..pi and folds it into -pi/2..pi/2, where the cosine's sign is known.
SineCosine FoldedSineCosine(float angle) {
    const float wrapped = angle - kTwoPi * std::round(angle / kTwoPi);
    if (std::fabs(wrapped) <= kHalfPi) return SineCosineOf(wrapped);
    const SineCosine folded = SineCosineOf(std::copysign(kPi, wrapped) - wrapped);
    return { folded.sine, -folded.cosine };
}

} // namespace

Matrix operator*(const Matrix& a, const Matrix& b) {
    Matrix product;
    for (std::size_t row = 0; row < kSide; ++row) {
        const float* const left = a.data() + row * kSide;
        for (std::size_t column = 0; column < kSide; ++column) {
            product[row * kSide + column] = left[0] * b[column] + left[1] * b[kSide + column] +
                                            left[2] * b[2 * kSide + column] + left[3] * b[3 * kSide + column];
        }
    }
    return product;
}

Matrix TranslationMatrix(float x, float y, float z) {
    return { 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, x, y, z, 1 };
}

Matrix ScaleMatrix(float x, float y, float z) {
    return { x, 0, 0, 0, 0, y, 0, 0, 0, 0, z, 0, 0, 0, 0, 1 };
}

// KEEP: the z angle goes in with its sign inverted, the other two don't.
// So a positive z turns the picture the other way than x and y would lead one to expect.
// Scenes were laid out with it.
// Pinned by Matrix.RotationTurnsAboutZTheOtherWay.
Matrix RotationMatrix(float x, float y, float z) {
    const auto [sp, cp] = SineCosineOf(x);
    const auto [sy, cy] = SineCosineOf(y);
    const auto [sr, cr] = SineCosineOf(-z);
    return {
        cr * cy + sr * sp * sy,
        sr * cp,
        sr * sp * cy - cr * sy,
        0, //
        cr * sp * sy - sr * cy,
        cr * cp,
        sr * sy + cr * sp * cy,
        0, //
        cp * sy,
        -sp,
        cp * cy,
        0, //
        0,
        0,
        0,
        1,
    };
}

Matrix PerspectiveMatrix(float fovY, float aspect, float farPlane) {
    const auto [sine, cosine] = FoldedSineCosine(fovY / 2);
    const float c = cosine / sine;
    const float q = farPlane / (farPlane - 1);
    return { c / aspect, 0, 0, 0, 0, c, 0, 0, 0, 0, q, 1, 0, 0, -q, 0 };
}

Matrix OrthographicMatrix(float width, float height) {
    return { 2 / width, 0, 0, 0, 0, 2 / height, 0, 0, 0, 0, 0.5f, 0, 0, 0, 0.5f, 1 };
}

} // namespace orvane::render
