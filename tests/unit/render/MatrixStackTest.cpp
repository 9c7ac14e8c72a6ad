#include "render/MatrixStack.h"

#include "unit/render/MatrixOracle.h"

#include <gtest/gtest.h>

namespace orvane::render {
namespace {

MatrixStack FreshStack() {
    MatrixStack stack;
    stack.Reset();
    return stack;
}

TEST(MatrixStack, StartsEmptyAndResetMakesOneIdentity) {
    MatrixStack stack;
    EXPECT_EQ(stack.Depth(), 0u);
    EXPECT_EQ(stack.Pop(), 0u);
    stack.Reset();
    EXPECT_EQ(stack.Depth(), 1u);
    EXPECT_EQ(stack.Top(), kIdentityMatrix);
}

TEST(MatrixStack, PushCopyOnAnEmptyStackFirstMakesTheBottom) {
    MatrixStack stack;
    stack.PushCopy();
    EXPECT_EQ(stack.Depth(), 2u);
    EXPECT_EQ(stack.Top(), kIdentityMatrix);
    EXPECT_EQ(stack.Pop(), 1u);
    EXPECT_EQ(stack.Top(), kIdentityMatrix);
}

TEST(MatrixStack, PushCopiesTheTopAndPopBringsItBack) {
    MatrixStack stack = FreshStack();
    stack.PushCopy();
    stack.Multiply(TranslationMatrix(1, 2, 3));
    const Matrix outer = stack.Top();
    stack.PushCopy();
    EXPECT_EQ(stack.Top(), outer);
    stack.Multiply(ScaleMatrix(2, 2, 2));
    EXPECT_NE(stack.Top(), outer);
    EXPECT_EQ(stack.Pop(), 2u);
    EXPECT_EQ(stack.Top(), outer);
}

TEST(MatrixStack, TransformsAtTheBottomDoNothing) {
    MatrixStack stack = FreshStack();
    const float other[16] = { 5, 0, 0, 0, 0, 5, 0, 0, 0, 0, 5, 0, 0, 0, 0, 1 };
    stack.Multiply(TranslationMatrix(1, 2, 3));
    stack.Scale2D(4, 4);
    EXPECT_EQ(stack.Top(), kIdentityMatrix);
    stack.Set(other);
    stack.LoadIdentity();
    EXPECT_EQ(stack.Top()[0], 5.0f);
}

TEST(MatrixStack, SeventeenthPushIsIgnoredSoThatItsPopTakesALevelOfAnOuterPush) {
    MatrixStack stack = FreshStack();
    for (std::uint64_t level = 2; level <= MatrixStack::kLevels; ++level) {
        stack.PushCopy();
        stack.Multiply(TranslationMatrix(1, 0, 0));
        EXPECT_EQ(stack.Depth(), level);
    }
    EXPECT_EQ(stack.Top()[12], 15.0f);
    stack.PushCopy();
    stack.Push(ScaleMatrix(9, 9, 9));
    EXPECT_EQ(stack.Depth(), 16u);
    EXPECT_EQ(stack.Top()[12], 15.0f);
    EXPECT_EQ(stack.Pop(), 15u);
    EXPECT_EQ(stack.Top()[12], 14.0f) << "the level of an outer push is gone";
    for (int pops = 0; pops < 20; ++pops) stack.Pop();
    EXPECT_EQ(stack.Depth(), 1u);
    EXPECT_EQ(stack.Top(), kIdentityMatrix);
}

TEST(MatrixStack, PopAtDepthOneReturnsOneAndLeavesIt) {
    MatrixStack stack = FreshStack();
    EXPECT_EQ(stack.Pop(), 1u);
    EXPECT_EQ(stack.Depth(), 1u);
}

TEST(MatrixStack, LoadIdentityAboveTheBottomReplacesTheTop) {
    MatrixStack stack = FreshStack();
    stack.Push(ScaleMatrix(2, 3, 4));
    stack.LoadIdentity();
    EXPECT_EQ(stack.Top(), kIdentityMatrix);
    EXPECT_EQ(stack.Depth(), 2u);
}

TEST(MatrixStack, Scale2DTouchesTwoElementsAndDiffersFromScaleAfterARotation) {
    const Matrix rotated = RotationMatrix(0, 0, 0.7f);
    MatrixStack stack = FreshStack();
    stack.Push(rotated);
    stack.Scale2D(2, 3);
    Matrix expected = rotated;
    expected[0] *= 2;
    expected[5] *= 3;
    EXPECT_EQ(stack.Top(), expected);
    EXPECT_NE(stack.Top(), rotated * ScaleMatrix(2, 3, 1));

    stack.LoadIdentity();
    stack.Scale2D(2, 3);
    EXPECT_EQ(stack.Top(), ScaleMatrix(2, 3, 1)) << "on an unrotated matrix the two agree";
}

TEST(MatrixStack, GetAndSetWorkAtTheBottom) {
    MatrixStack stack = FreshStack();
    float in[16], out[16] = {};
    for (int i = 0; i < 16; ++i) in[i] = float(i);
    stack.Set(in);
    stack.Get(out);
    for (int i = 0; i < 16; ++i) EXPECT_EQ(out[i], float(i));
}

TEST(MatrixStack, GetAndSetDoNothingForNullAndOnAnEmptyStack) {
    MatrixStack stack;
    float words[16] = { 7 };
    stack.Get(words);
    EXPECT_EQ(words[0], 7.0f);
    stack.Set(words);
    EXPECT_EQ(stack.Top(), kIdentityMatrix);
    stack.Reset();
    stack.Set(nullptr);
    stack.Get(nullptr);
    EXPECT_EQ(stack.Top(), kIdentityMatrix);
}

TEST(MatrixStack, AChainOfTransformsAgreesWithDoubles) {
    MatrixStack stack = FreshStack();
    stack.PushCopy();
    Exact exact = kExactIdentity;
    for (int step = 1; step <= 6; ++step) {
        const float t = float(step) * 0.37f;
        stack.Multiply(TranslationMatrix(t, -t, 2 * t));
        stack.Multiply(RotationMatrix(t, 2 * t, 3 * t));
        stack.Multiply(ScaleMatrix(1.1f, 0.9f, 1 + t / 10));
        exact = Product(exact, ExactTranslation(t, -t, 2 * t));
        exact = Product(exact, ExactRotation(t, 2 * t, 3 * t));
        exact = Product(exact, ExactScale(1.1f, 0.9f, 1 + t / 10));
    }
    ExpectNear(stack.Top(), exact, 1e-5);
}

} // namespace
} // namespace orvane::render
