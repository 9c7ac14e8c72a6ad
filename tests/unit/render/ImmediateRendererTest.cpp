// The state of a renderer and the order of its draws, seen through a recorder.
#include "render/ImmediateRenderer.h"

#include "render/TexturedQuad.h"
#include "render/recording/RecordingRenderer.h"
#include "unit/render/MatrixOracle.h"

#include <gtest/gtest.h>

#include <bit>
#include <vector>

namespace orvane::render {
namespace {

class ImmediateRendererTest : public testing::Test {
protected:
    int MakeBuffer(std::uint32_t kind, std::uint32_t vertexCount,
                   std::uint32_t primitive = kPrimitive_Triangles) {
        return static_cast<int>(mRenderer.CreateVertexBuffer("buffer", primitive, mRenderer.GetPipeline(kind),
                                                             vertexCount, 1, nullptr));
    }

    Matrix ModelView() {
        Matrix matrix;
        mRenderer.GetModelView(matrix.data());
        return matrix;
    }

    // The matrix that a draw under the present stacks is given.
    Matrix DrawnMatrix() {
        if (mMatrixProbe == 0) mMatrixProbe = MakeBuffer(kPos_BlendingOFF, 3);
        EXPECT_TRUE(mRenderer.DrawVertexBuffer(nullptr, mMatrixProbe, 0, 3));
        return mRenderer.Draws().back().matrix.value();
    }

    RecordingRenderer mRenderer;
    int mMatrixProbe = 0;
};

// ---- Matrices.

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

// ---- Blend mode.

TEST_F(ImmediateRendererTest, SetBlendModeWithTheCurrentModeReturnsItAndCallsNoDevice) {
    EXPECT_EQ(mRenderer.SetBlendMode(kBlendMode_Off), kBlendMode_Off) << "the mode of a new renderer";
    EXPECT_TRUE(mRenderer.Calls().empty());
    mRenderer.SetBlendMode(kBlendMode_Additive);
    mRenderer.ForgetRecords();
    EXPECT_EQ(mRenderer.SetBlendMode(kBlendMode_Additive), kBlendMode_Additive);
    EXPECT_TRUE(mRenderer.Calls().empty());
}

TEST_F(ImmediateRendererTest, SetBlendModeReturnsThePreviousModeAndSetsOrClearsTheState) {
    EXPECT_EQ(mRenderer.SetBlendMode(kBlendMode_Alpha), kBlendMode_Off);
    EXPECT_EQ(mRenderer.SetBlendMode(kBlendMode_Additive), kBlendMode_Alpha);
    EXPECT_EQ(mRenderer.SetBlendMode(kBlendMode_Off), kBlendMode_Additive);
    const std::vector<DeviceCallRecord> expected = {
        { DeviceCall::SetBlendState, kBlendMode_Alpha },
        { DeviceCall::SetBlendState, kBlendMode_Additive },
        { DeviceCall::ClearBlendState, 0 },
    };
    EXPECT_EQ(mRenderer.Calls(), expected);
}

TEST_F(ImmediateRendererTest, AnUnknownBlendModeIsKeptAndBlendsAdditively) {
    EXPECT_EQ(mRenderer.SetBlendMode(77), kBlendMode_Off);
    EXPECT_EQ(mRenderer.Calls().back(), (DeviceCallRecord{ DeviceCall::SetBlendState, kBlendMode_Additive }));
    EXPECT_EQ(mRenderer.SetBlendMode(kBlendMode_Off), 77u);
}

// ---- Textures.

TEST_F(ImmediateRendererTest, CreateTextureOf16384SucceedsAndOf16385FailsInEitherDirection) {
    const std::vector<std::uint8_t> pixels(16385, 0);
    const auto make = [&](std::uint32_t width, std::uint32_t height) {
        return TexturePtr(mRenderer.CreateTexture(pixels.data(), width, height, width, 0, kPixelFormat_R8UInt,
                                                  "t", 0, false));
    };
    EXPECT_TRUE(make(16384, 1));
    EXPECT_FALSE(make(16385, 1));
    EXPECT_TRUE(make(1, 16384));
    EXPECT_FALSE(make(1, 16385));
    EXPECT_FALSE(make(0, 1));
    EXPECT_FALSE(make(1, 0));
}

TEST_F(ImmediateRendererTest, CreateTextureTakesFourFormatsAndNoOther) {
    const std::uint32_t pixels[16] = {};
    for (std::uint32_t format = 0; format < 9; ++format) {
        const TexturePtr texture(mRenderer.CreateTexture(pixels, 2, 2, 32, 0, format, "t", 0, true));
        const bool known = format == 0 || format == 1 || format == 4 || format == 5;
        EXPECT_EQ(texture != nullptr, known) << format;
    }
    EXPECT_EQ(mRenderer.CreateTexture(pixels, 2, 2, 32, 0, 0xFFFFFFFF, "t", 0, true), nullptr);
}

TEST_F(ImmediateRendererTest, OnlyADynamicTextureNeedsNoPixels) {
    EXPECT_EQ(mRenderer.CreateTexture(nullptr, 2, 2, 8, 0, kPixelFormat_BGRA8, "t", 0, false), nullptr);
    EXPECT_TRUE(TexturePtr(mRenderer.CreateTexture(nullptr, 2, 2, 8, 0, kPixelFormat_BGRA8, "t", 0, true)));
}

// ---- Vertex buffers.

TEST_F(ImmediateRendererTest, BufferIdsCountFromOneInTheOrderOfCreation) {
    EXPECT_EQ(MakeBuffer(kPos_BlendingOFF, 3), 1);
    EXPECT_EQ(MakeBuffer(kPos_Colr_BlendingOFF, 1), 2);
    EXPECT_EQ(MakeBuffer(kPos_BlendingOFF, 0), 0) << "no vertices";
    EXPECT_EQ(MakeBuffer(20, 3), 0) << "no such pipeline";
    mRenderer.Refuse(Refusal::VertexBuffer);
    EXPECT_EQ(MakeBuffer(kPos_BlendingOFF, 3), 0) << "no resource";
    mRenderer.Refuse(Refusal::VertexBuffer, false);
    EXPECT_EQ(MakeBuffer(kPos_BlendingOFF, 3), 3) << "a failure takes no id";
}

TEST_F(ImmediateRendererTest, ABufferTooLargeForItsSizeInBytesIsRefused) {
    EXPECT_EQ(MakeBuffer(kPos_Colr_TexCoord_SrcAlpha_DstAlphaOne, 0x10000000), 0);
}

TEST_F(ImmediateRendererTest, TheLargestBufferOfTheProgramIsMadeInOnePiece) {
    const int id = MakeBuffer(kPos_Colr_TexCoord_SrcAlpha_DstAlphaOne, 120960);
    ASSERT_NE(id, 0);
    EXPECT_EQ(mRenderer.BufferBytes(id).size(), 120960u * 36);
}

TEST_F(ImmediateRendererTest, DrawsOfUnknownIdsAreFalseAndDrawNothing) {
    const int count = MakeBuffer(kPos_BlendingOFF, 3);
    mRenderer.ForgetRecords();
    for (const int id : { 0, count + 1, -1, INT32_MIN, INT32_MAX }) {
        EXPECT_FALSE(mRenderer.DrawVertexBuffer(nullptr, id, 0, 3)) << id;
        EXPECT_FALSE(mRenderer.DrawVertexBufferInstances(id, 0, 3, 1, [](int&) { ADD_FAILURE(); })) << id;
    }
    EXPECT_TRUE(mRenderer.Calls().empty());
    EXPECT_EQ(mRenderer.ModelViewDepth(), 1u);
}

TEST_F(ImmediateRendererTest, ADrawRunsUnderItsPipelinesBlendModeAndPutsTheOldOneBack) {
    const int id = MakeBuffer(kPos_SrcAlpha_DstAlphaOne, 3);
    mRenderer.SetBlendMode(kBlendMode_Alpha);
    mRenderer.ForgetRecords();
    EXPECT_TRUE(mRenderer.DrawVertexBuffer(nullptr, id, 0, 3));
    EXPECT_EQ(mRenderer.Draws()[0].blendMode, kBlendMode_Additive);
    const std::vector<DeviceCallRecord> expected = {
        { DeviceCall::SetBlendState, kBlendMode_Additive },
        { DeviceCall::Draw, 0 },
        { DeviceCall::SetBlendState, kBlendMode_Alpha },
    };
    EXPECT_EQ(mRenderer.Calls(), expected);
}

TEST_F(ImmediateRendererTest, ABufferInClipSpaceIsDrawnWithoutAMatrixAfterAnyDraw) {
    const int id = MakeBuffer(kPosition_TextureCoord_CLUT_TexelFetch_BlendingOFF, 4);
    mRenderer.PushModelView();
    mRenderer.Translate(1, 2, 3);
    EXPECT_EQ(DrawnMatrix(), TranslationMatrix(1, 2, 3)) << "unbound behind that draw";
    EXPECT_TRUE(mRenderer.DrawVertexBuffer(nullptr, id, 0, 4));
    EXPECT_FALSE(mRenderer.Draws()[1].matrix.has_value());
}

TEST_F(ImmediateRendererTest, AccessGivesTheWholeBufferAndTheDrawShowsWhatWasWritten) {
    const int id = MakeBuffer(kPos_BlendingOFF, 3);
    EXPECT_TRUE(mRenderer.AccessVertexBuffer(id, [](void* vertices) {
        for (int i = 0; i < 9; ++i) static_cast<float*>(vertices)[i] = float(i);
    }));
    EXPECT_TRUE(mRenderer.DrawVertexBuffer(nullptr, id, 1, 2));
    const DrawRecord& draw = mRenderer.Draws()[0];
    EXPECT_EQ(draw.firstVertex, 1u);
    EXPECT_EQ(draw.vertexCount, 2u);
    EXPECT_EQ(draw.vertices, (std::vector<float>{ 3, 4, 5, 6, 7, 8 }));
}

TEST_F(ImmediateRendererTest, AccessWithAFailedMappingOrNoWriterIsFalse) {
    const int id = MakeBuffer(kPos_BlendingOFF, 3);
    EXPECT_FALSE(mRenderer.AccessVertexBuffer(id, nullptr));
    mRenderer.Refuse(Refusal::VertexMapping);
    EXPECT_FALSE(mRenderer.AccessVertexBuffer(id, [](void*) { ADD_FAILURE() << "not to be called"; }));
}

// Destroyed means that nothing of what it holds is left after the call.
TEST_F(ImmediateRendererTest, CallbacksAreDestroyedInEveryCase) {
    const int id = MakeBuffer(kPos_BlendingOFF, 3);
    const auto held = std::make_shared<int>(0);
    for (const int bufferId : { id, 0 }) {
        mRenderer.AccessVertexBuffer(bufferId, [copy = held](void*) { ++*copy; });
        mRenderer.DrawVertexBufferInstances(bufferId, 0, 3, 2, [copy = held](int&) { ++*copy; });
        mRenderer.DrawVertexBufferInstances(bufferId, 0, 0, 2, [copy = held](int&) { ++*copy; });
    }
    EXPECT_EQ(held.use_count(), 1);
    EXPECT_EQ(*held, 3) << "one access and two instances";
}

// ---- Instances.

TEST_F(ImmediateRendererTest, EachInstanceIsDrawnUnderItsOwnTransform) {
    const int id = MakeBuffer(kPos_BlendingOFF, 3);
    mRenderer.PushModelView();
    mRenderer.Translate(100, 0, 0);
    EXPECT_TRUE(mRenderer.DrawVertexBufferInstances(id, 0, 3, 3, [this](int& index) {
        EXPECT_EQ(mRenderer.ModelViewDepth(), 3u);
        mRenderer.Translate(float(index), 0, 0);
    }));
    ASSERT_EQ(mRenderer.Draws().size(), 3u);
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(mRenderer.Draws()[i].matrix, TranslationMatrix(100 + float(i), 0, 0));
        EXPECT_EQ(mRenderer.Draws()[i].texture, nullptr);
    }
    EXPECT_EQ(mRenderer.ModelViewDepth(), 2u);
}

TEST_F(ImmediateRendererTest, InstancesOfNoVerticesAreTrueAndNothingIsDrawn) {
    const int id = MakeBuffer(kPos_BlendingOFF, 3);
    EXPECT_TRUE(mRenderer.DrawVertexBufferInstances(id, 0, 0, 3, [](int&) { ADD_FAILURE(); }));
    EXPECT_TRUE(mRenderer.DrawVertexBufferInstances(0, 0, 0, 3, nullptr)) << "the id is not looked at";
    EXPECT_TRUE(mRenderer.Draws().empty());
}

TEST_F(ImmediateRendererTest, NoInstancesNeedNoTransform) {
    const int id = MakeBuffer(kPos_BlendingOFF, 3);
    EXPECT_TRUE(mRenderer.DrawVertexBufferInstances(id, 0, 3, 0, nullptr));
    EXPECT_TRUE(mRenderer.DrawVertexBufferInstances(id, 0, 3, -1, nullptr));
    EXPECT_TRUE(mRenderer.Draws().empty());
}

TEST_F(ImmediateRendererTest, ATransformThatChangesItsIndexChangesNotTheNumberOfDraws) {
    const int id = MakeBuffer(kPos_BlendingOFF, 3);
    std::vector<int> indices;
    EXPECT_TRUE(mRenderer.DrawVertexBufferInstances(id, 0, 3, 3, [&](int& index) {
        indices.push_back(index);
        index += 10;
    }));
    EXPECT_EQ(indices, (std::vector<int>{ 0, 1, 2 }));
}

TEST_F(ImmediateRendererTest, InstancesWriteTheMatrixEvenForABufferInClipSpace) {
    const int id = MakeBuffer(kPosition_TextureCoord_CLUT_TexelFetch_BlendingOFF, 4);
    EXPECT_TRUE(
        mRenderer.DrawVertexBufferInstances(id, 0, 4, 1, [this](int&) { mRenderer.Translate(1, 2, 3); }));
    EXPECT_EQ(mRenderer.Draws()[0].matrix, TranslationMatrix(1, 2, 3));
    EXPECT_TRUE(mRenderer.DrawVertexBuffer(nullptr, id, 0, 4));
    EXPECT_EQ(mRenderer.Draws()[1].matrix, TranslationMatrix(1, 2, 3)) << "it stays bound";
}

TEST_F(ImmediateRendererTest, InstancesAtAFullStackTakeALevelOfAnOuterPush) {
    const int id = MakeBuffer(kPos_BlendingOFF, 3);
    for (int push = 1; push <= 15; ++push) mRenderer.PushModelView();
    mRenderer.DrawVertexBufferInstances(id, 0, 3, 1, [](int&) {});
    EXPECT_EQ(mRenderer.ModelViewDepth(), 15u);
}

using ImmediateRendererDeathTest = ImmediateRendererTest;

TEST_F(ImmediateRendererDeathTest, AMissingTransformEndsTheProcess) {
    const int id = MakeBuffer(kPos_BlendingOFF, 3);
    EXPECT_DEATH(mRenderer.DrawVertexBufferInstances(id, 0, 3, 1, nullptr), "");
}

// ---- The textured quad.

class TexturedQuadDraw : public ImmediateRendererTest {
protected:
    std::uint32_t Draw(float alpha, std::uint32_t colorMode, int bufferId) {
        const double destination[4] = { 0.25, 0.125, 0.5, 0.25 }, source[4] = { 0, 0, 1, 1 };
        return mRenderer.DrawTexturedQuad(mTexture.get(), bufferId, destination, source, alpha, colorMode);
    }

    const std::array<float, 4>& Tint() const { return mRenderer.Draws().back().tint; }

    const std::uint32_t mPixels[4] = { 1, 2, 3, 4 };
    const TexturePtr mTexture{ mRenderer.CreateTexture(mPixels, 2, 2, 8, 0, kPixelFormat_BGRA8, "t", 0,
                                                       false) };
    const int mQuad = MakeBuffer(kPos_TexCoord_SrcAlpha_DstAlphaOne, 4, kPrimitive_TriangleStrip);
};

TEST_F(TexturedQuadDraw, DrawsFourVerticesOfAStripWithTheTexture) {
    EXPECT_EQ(Draw(1, kColorMode_White, mQuad), kStatus_Success);
    ASSERT_EQ(mRenderer.Draws().size(), 1u);
    const DrawRecord& draw = mRenderer.Draws()[0];
    EXPECT_EQ(draw.primitive, kPrimitive_TriangleStrip);
    EXPECT_EQ(draw.texture, mTexture.get());
    ASSERT_TRUE(draw.unitImages[0]);
    EXPECT_EQ(draw.unitImages[0]->Texel(1, 1), 4u);
    const float z = std::bit_cast<float>(0x3DCCCCCDu);
    EXPECT_EQ(draw.vertices, (std::vector<float>{ 0.5f,  -0.75f, z, 1, 1, //
                                                  0.5f,  -0.25f, z, 1, 0, //
                                                  -0.5f, -0.75f, z, 0, 1, //
                                                  -0.5f, -0.25f, z, 0, 0 }));
}

TEST_F(TexturedQuadDraw, AlphaTwoDrawsWithOneAndAlphaMinusOneWithZero) {
    Draw(2, kColorMode_White, mQuad);
    EXPECT_EQ(Tint(), (std::array<float, 4>{ 1, 1, 1, 1 }));
    Draw(-1, kColorMode_White, mQuad);
    EXPECT_EQ(Tint(), (std::array<float, 4>{ 1, 1, 1, 0 }));
    Draw(0.25f, kColorMode_White, mQuad);
    EXPECT_EQ(Tint(), (std::array<float, 4>{ 1, 1, 1, 0.25f }));
}

TEST_F(TexturedQuadDraw, ColorModesSetWhiteOrBlackAndOthersLeaveTheColour) {
    const float colour[4] = { 0.1f, 0.2f, 0.3f, 9 };
    Draw(0.5f, kColorMode_Black, mQuad);
    EXPECT_EQ(Tint(), (std::array<float, 4>{ 0, 0, 0, 0.5f }));
    mRenderer.SetColor(colour, 0.75f);
    Draw(0.5f, 2, mQuad);
    EXPECT_EQ(Tint(), (std::array<float, 4>{ 0.1f, 0.2f, 0.3f, 0.75f }));
}

TEST_F(TexturedQuadDraw, AnUnknownOrTooSmallBufferIsAFailure) {
    EXPECT_EQ(Draw(1, kColorMode_White, 0), kStatus_Failure);
    EXPECT_EQ(Draw(1, kColorMode_White, mQuad + 1), kStatus_Failure);
    const int three = MakeBuffer(kPos_TexCoord_SrcAlpha_DstAlphaOne, 3, kPrimitive_TriangleStrip);
    EXPECT_EQ(Draw(1, kColorMode_White, three), kStatus_Failure);
    EXPECT_TRUE(mRenderer.Draws().empty());
}

TEST_F(TexturedQuadDraw, AFailedMappingStillDraws) {
    mRenderer.Refuse(Refusal::VertexMapping);
    EXPECT_EQ(Draw(1, kColorMode_White, mQuad), kStatus_Success);
    EXPECT_EQ(mRenderer.Draws().size(), 1u);
}

TEST_F(TexturedQuadDraw, IsDrawnUnderTheMatricesInForce) {
    mRenderer.PushIdentityModelView();
    mRenderer.Translate(0.5f, 0, 0);
    Draw(1, kColorMode_White, mQuad);
    EXPECT_EQ(mRenderer.Draws()[0].matrix, TranslationMatrix(0.5f, 0, 0));
}

// ---- Viewport and pipelines.

TEST_F(ImmediateRendererTest, SetViewportIgnoresXAndY) {
    const double rect[4] = { 100, 50, 640, 480 };
    mRenderer.SetViewport(rect);
    EXPECT_EQ(mRenderer.Viewports().back(), (ViewportRecord{ 0, 0, 640, 480 }));
    double out[4] = { 9, 9, 9, 9 };
    EXPECT_EQ(mRenderer.GetViewport(out), out);
    EXPECT_EQ(out[0], 0);
    EXPECT_EQ(out[1], 0);
    EXPECT_EQ(out[2], 640);
    EXPECT_EQ(out[3], 480);
}

TEST_F(ImmediateRendererTest, GetPipelineBuildsOnceAndFindPipelineOnlyLooks) {
    EXPECT_EQ(mRenderer.FindPipeline(5), nullptr);
    IRenderingPipeline* const pipeline = mRenderer.GetPipeline(5);
    ASSERT_NE(pipeline, nullptr);
    EXPECT_EQ(mRenderer.GetPipeline(5), pipeline);
    EXPECT_EQ(mRenderer.FindPipeline(5), pipeline);
    EXPECT_EQ(mRenderer.FindPipeline(4), nullptr);
}

TEST_F(ImmediateRendererTest, GetPipelineNineHasAKindThatReadsEightAndSeventeenSixteen) {
    EXPECT_EQ(mRenderer.GetPipeline(9)->Kind(), 8u);
    EXPECT_EQ(mRenderer.GetPipeline(17)->Kind(), 16u);
    EXPECT_EQ(mRenderer.FindPipeline(8), nullptr) << "kept under 9";
    EXPECT_NE(mRenderer.GetPipeline(8), mRenderer.GetPipeline(9));
    EXPECT_EQ(mRenderer.GetPipeline(9), mRenderer.FindPipeline(9));
    const int id = MakeBuffer(9, 2);
    EXPECT_EQ(mRenderer.BufferBytes(id).size(), 72u);
}

TEST_F(ImmediateRendererTest, GetPipelineMakesEveryKindUpToNineteenAndNoneAbove) {
    for (std::uint32_t kind = 0; kind <= 19; ++kind) EXPECT_NE(mRenderer.GetPipeline(kind), nullptr) << kind;
    EXPECT_EQ(mRenderer.GetPipeline(20), nullptr);
    EXPECT_EQ(mRenderer.GetPipeline(0xFFFFFFFF), nullptr);
}

TEST_F(ImmediateRendererTest, APipelineThatCantBeBuiltIsNullAndNotKept) {
    mRenderer.Refuse(Refusal::FragmentFunction);
    EXPECT_EQ(mRenderer.GetPipeline(5), nullptr);
    EXPECT_EQ(mRenderer.FindPipeline(5), nullptr);
    EXPECT_EQ(mRenderer.LiveFunctions(), 0);
    mRenderer.Refuse(Refusal::FragmentFunction, false);
    EXPECT_NE(mRenderer.GetPipeline(5), nullptr) << "the next request tries again";
}

TEST_F(ImmediateRendererTest, ABlendVariantOfSetFDrawsExactlyLikeKindSixteen) {
    for (const std::uint32_t kind : { 16u, 18u, 19u }) {
        const int id = MakeBuffer(kind, 4, kPrimitive_TriangleStrip);
        mRenderer.SetBlendMode(kBlendMode_Additive);
        mRenderer.ForgetRecords();
        mRenderer.DrawVertexBuffer(nullptr, id, 0, 4);
        const std::vector<DeviceCallRecord> expected = {
            { DeviceCall::ClearBlendState, 0 },
            { DeviceCall::Draw, 0 },
            { DeviceCall::SetBlendState, kBlendMode_Additive },
        };
        EXPECT_EQ(mRenderer.Calls(), expected) << kind;
        EXPECT_EQ(mRenderer.Draws()[0].blendMode, kBlendMode_Off) << kind;
    }
}

// ---- Plain accessors and reserved places.

TEST_F(ImmediateRendererTest, ScaleFlagAndFullScreenStartAsTheyMustAndAreKept) {
    EXPECT_EQ(mRenderer.GetContentScale(), 1.0);
    EXPECT_FALSE(mRenderer.IsFullScreen());
    EXPECT_FALSE(mRenderer.GetRendererFlag());
    mRenderer.SetContentScale(1.5);
    mRenderer.SetFullScreen(true);
    mRenderer.SetRendererFlag(true);
    EXPECT_EQ(mRenderer.GetContentScale(), 1.5);
    EXPECT_TRUE(mRenderer.IsFullScreen());
    EXPECT_TRUE(mRenderer.GetRendererFlag());
    EXPECT_EQ(mRenderer.Calls().back(), (DeviceCallRecord{ DeviceCall::SetFullScreen, 1 }));
}

TEST_F(ImmediateRendererTest, ReservedOperationsDoNothing) {
    mRenderer.Reserved20();
    EXPECT_EQ(mRenderer.Reserved24(), 0u);
    mRenderer.Reserved31();
    mRenderer.Reserved33();
    mRenderer.Reserved34();
    EXPECT_EQ(mRenderer.Reserved44(), 0u);
    mRenderer.Reserved53();
    mRenderer.Reserved54();
    mRenderer.Reserved55();
    EXPECT_EQ(mRenderer.Reserved57(), 0u);
    mRenderer.Reserved58();
    mRenderer.Reserved59();
    mRenderer.Reserved60();
    mRenderer.Reserved61();
    EXPECT_TRUE(mRenderer.Calls().empty());
}

} // namespace
} // namespace orvane::render
