#include "unit/render/ImmediateRendererFixture.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <vector>

namespace orvane::render {
namespace {

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

} // namespace
} // namespace orvane::render
