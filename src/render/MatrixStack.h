// One of a renderer's two matrix stacks: 16 levels and their depth.
//
// Before Reset the depth is 0, and all but Reset and PushCopy leave an empty stack alone or push on it.
// Afterwards the bottom is an identity that no Pop takes and no transform changes.
#pragma once

#include "render/Matrix.h"

#include <array>
#include <cstdint>

namespace orvane::render {

class MatrixStack {
public:
    static constexpr std::uint64_t kLevels = 16;

    // One identity: depth 1.
    void Reset();

    // Pushes a copy of the top, on an empty stack above a fresh identity; or pushes `matrix`.
    void PushCopy();
    void Push(const Matrix& matrix);

    // Takes one level, never the bottom. Returns the depth that is left.
    std::uint64_t Pop();

    [[nodiscard]] std::uint64_t Depth() const { return mDepth; }

    // The matrix in force; identity while the stack is empty.
    [[nodiscard]] const Matrix& Top() const;

    // top = top * transform. Nothing at depth 0 and 1.
    void Multiply(const Matrix& transform);
    void Scale2D(float x, float y);
    void LoadIdentity();

    // Copy the top out or replace it. Nothing for null or at depth 0.
    void Get(float* out) const;
    void Set(const float* in);

private:
    [[nodiscard]] bool IsAboveBottom() const { return mDepth >= 2; }

    Matrix& TopLevel() { return mLevels[mDepth - 1]; }

    std::array<Matrix, kLevels> mLevels{};
    std::uint64_t mDepth = 0;
};

} // namespace orvane::render
