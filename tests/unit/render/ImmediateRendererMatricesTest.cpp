#include "unit/render/ImmediateRendererFixture.h"
#include "unit/render/MatrixOracle.h"

#include <gtest/gtest.h>

#include <utility>

namespace orvane::render {
namespace {

TEST_F(ImmediateRendererTest, BothStacksStartWithOneIdentity) {
    EXPECT_EQ(mRenderer.ModelViewDepth(), 1u);
    EXPECT_EQ(mRenderer.ProjectionDepth(), 1u);
    EXPECT_EQ(ModelView(), kIdentityMatrix);
    EXPECT_EQ(DrawnMatrix(), kIdentityMatrix);
}

TEST_F(ImmediateRendererTest, TranslateAtDepthOneLeavesTheMatrixAndWorksAfterAPush) {
    mRenderer.Translate(1, 2, 3);
    EXPECT_EQ(ModelView(), kIdentityMatrix);
    mRenderer.PushModelView();
    mRenderer.Translate(1, 2, 3);
    EXPECT_EQ(ModelView(), TranslationMatrix(1, 2, 3));
}

TEST_F(ImmediateRendererTest, NoTransformWorksAtDepthOne) {
    const float offset[3] = { 1, 2, 3 };
    mRenderer.TranslateVector(offset);
    mRenderer.Rotate(1, 2, 3);
    mRenderer.Scale(1, 2, 3);
    mRenderer.Scale2D(1, 2);
    mRenderer.LoadIdentityModelView();
    EXPECT_EQ(ModelView(), kIdentityMatrix);
}

TEST_F(ImmediateRendererTest, TransformsMultiplyFromTheRight) {
    const float offset[3] = { 4, -5, 6 };
    mRenderer.PushModelView();
    mRenderer.Scale(2, 3, 4);
    mRenderer.Rotate(0.3f, 0.5f, 0.7f);
    mRenderer.TranslateVector(offset);
    ExpectNear(ModelView(), Product(Product(ExactScale(2, 3, 4), ExactRotation(0.3f, 0.5f, 0.7f)),
                                    ExactTranslation(4, -5, 6)));
    mRenderer.LoadIdentityModelView();
    EXPECT_EQ(ModelView(), kIdentityMatrix);
    EXPECT_EQ(mRenderer.ModelViewDepth(), 2u);
}

TEST_F(ImmediateRendererTest, Scale2DTouchesTwoElementsAndTheContractsOwnBodyScales) {
    mRenderer.PushModelView();
    mRenderer.Rotate(0, 0, 0.5f);
    const Matrix rotated = ModelView();
    mRenderer.Scale2D(2, 3);
    Matrix expected = rotated;
    expected[0] *= 2;
    expected[5] *= 3;
    EXPECT_EQ(ModelView(), expected);

    mRenderer.SetModelView(rotated.data());
    mRenderer.IRenderer::Scale2D(2, 3);
    EXPECT_EQ(ModelView(), rotated * ScaleMatrix(2, 3, 1));
}

TEST_F(ImmediateRendererTest, SeventeenthPushModelViewIsIgnoredAndItsPopTakesAnOuterLevel) {
    for (int push = 1; push <= 15; ++push) {
        mRenderer.PushModelView();
        mRenderer.Translate(1, 0, 0);
    }
    EXPECT_EQ(mRenderer.ModelViewDepth(), 16u);
    mRenderer.PushModelView();
    EXPECT_EQ(mRenderer.ModelViewDepth(), 16u);
    EXPECT_EQ(ModelView()[12], 15.0f);
    EXPECT_EQ(mRenderer.PopModelView(), 15u);
    EXPECT_EQ(ModelView()[12], 14.0f);
    for (int pop = 0; pop < 16; ++pop) mRenderer.PopModelView();
    EXPECT_EQ(mRenderer.PopModelView(), 1u) << "pops stop at depth 1";
    EXPECT_EQ(ModelView(), kIdentityMatrix);
}

TEST_F(ImmediateRendererTest, PopProjectionAtDepthOneReturnsOneAndLeavesIt) {
    EXPECT_EQ(mRenderer.PopProjection(), 1u);
    EXPECT_EQ(mRenderer.ProjectionDepth(), 1u);
    mRenderer.PushIdentityProjection();
    EXPECT_EQ(mRenderer.ProjectionDepth(), 2u);
    EXPECT_EQ(mRenderer.PopProjection(), 1u);
}

TEST_F(ImmediateRendererTest, PushIdentityModelViewHidesWhatIsBelow) {
    mRenderer.PushModelView();
    mRenderer.Translate(1, 2, 3);
    mRenderer.PushIdentityModelView();
    EXPECT_EQ(ModelView(), kIdentityMatrix);
    EXPECT_EQ(mRenderer.PopModelView(), 2u);
    EXPECT_EQ(ModelView(), TranslationMatrix(1, 2, 3));
}

TEST_F(ImmediateRendererTest, SetModelViewReplacesTheTopAndNullDoesNothing) {
    const Matrix matrix = TranslationMatrix(7, 8, 9);
    mRenderer.SetModelView(matrix.data());
    EXPECT_EQ(ModelView(), matrix) << "at depth 1 too";
    mRenderer.SetModelView(nullptr);
    mRenderer.GetModelView(nullptr);
    EXPECT_EQ(ModelView(), matrix);
}

TEST_F(ImmediateRendererTest, PerspectiveWithAnyNearPlaneIsTheSameMatrix) {
    mRenderer.PushPerspectiveProjection(1.0f, 1.25f, 0.1f, 500);
    const Matrix first = DrawnMatrix();
    mRenderer.PushPerspectiveProjection(1.0f, 1.25f, 10, 500);
    EXPECT_EQ(DrawnMatrix(), first);
    EXPECT_EQ(mRenderer.ProjectionDepth(), 3u);
    ExpectNear(first, ExactPerspective(1.0, 1.25, 500));
}

TEST_F(ImmediateRendererTest, OrthographicNeedsTwoPositiveSizes) {
    for (const auto& [width, height] :
         { std::pair(0.0f, 1.0f), { 1.0f, 0.0f }, { -1.0f, 1.0f }, { 1.0f, -1.0f } })
        mRenderer.PushOrthographicProjection(width, height);
    EXPECT_EQ(mRenderer.ProjectionDepth(), 1u);
    mRenderer.PushOrthographicProjection(640, 480);
    EXPECT_EQ(mRenderer.ProjectionDepth(), 2u);
    ExpectNear(DrawnMatrix(), ExactOrthographic(640, 480));
}

TEST_F(ImmediateRendererTest, ADrawIsGivenModelViewTimesProjection) {
    mRenderer.PushPerspectiveProjection(1.0471976f, 1.5f, 10, 5000);
    mRenderer.PushModelView();
    mRenderer.Translate(3, 4, 50);
    mRenderer.Rotate(0.1f, 0.2f, 0.3f);
    const Exact modelView = Product(ExactTranslation(3, 4, 50), ExactRotation(0.1f, 0.2f, 0.3f));
    ExpectNear(DrawnMatrix(), Product(modelView, ExactPerspective(1.0471976f, 1.5, 5000)));
}

} // namespace
} // namespace orvane::render
