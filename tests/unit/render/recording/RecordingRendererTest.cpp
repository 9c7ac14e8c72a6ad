#include "render/recording/RecordingRenderer.h"

#include "support/LogCapture.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <vector>

namespace orvane::render {
namespace {

using tests::LogCapture;

int MakeBuffer(RecordingRenderer& renderer, const char* name, std::uint32_t kind, std::uint32_t count,
               std::uint32_t primitive = kPrimitive_Triangles, const void* data = nullptr) {
    return static_cast<int>(
        renderer.CreateVertexBuffer(name, primitive, renderer.GetPipeline(kind), count, 1, data));
}

TEST(RecordingRenderer, AccessVertexBufferWithAnUnknownIdPrintsNothing) {
    const LogCapture log;
    RecordingRenderer renderer;
    const int count = MakeBuffer(renderer, "b", kPos_BlendingOFF, 3);
    for (const int id : { 0, count + 1, -7 })
        EXPECT_FALSE(renderer.AccessVertexBuffer(id, [](void*) { ADD_FAILURE() << "not to be called"; }));
    EXPECT_EQ(log.Text(), "");
}

TEST(RecordingRenderer, ClearReplacesAlphaByOne) {
    RecordingRenderer renderer;
    const float colour[4] = { 0.25f, 0.5f, 0.75f, 0 };
    renderer.Clear(colour);
    EXPECT_EQ(renderer.Clears(), (std::vector<ClearRecord>{ { 0.25f, 0.5f, 0.75f, 1 } }));
}

TEST(RecordingRenderer, StartsWithAViewportOfItsSizeAndNothingRecorded) {
    RecordingRenderer renderer({ .width = 320, .height = 200 });
    double viewport[4];
    renderer.GetViewport(viewport);
    EXPECT_EQ(viewport[2], 320);
    EXPECT_EQ(viewport[3], 200);
    EXPECT_TRUE(renderer.Calls().empty());
    EXPECT_TRUE(renderer.Viewports().empty());
}

TEST(RecordingRenderer, AFrameIsListedInItsOrder) {
    RecordingRenderer renderer;
    const int id = MakeBuffer(renderer, "b", kPos_BlendingOFF, 3);
    const float black[4] = {};
    renderer.BeginFrame();
    renderer.Clear(black);
    renderer.SetWireframe(true);
    renderer.DrawVertexBuffer(nullptr, id, 0, 3);
    renderer.SetWireframe(false);
    renderer.DrawVertexBuffer(nullptr, id, 0, 3);
    renderer.Present();
    const std::vector<DeviceCallRecord> expected = {
        { DeviceCall::BeginFrame }, { DeviceCall::Clear, 0 },        { DeviceCall::SetWireframe, 1 },
        { DeviceCall::Draw, 0 },    { DeviceCall::SetWireframe, 0 }, { DeviceCall::Draw, 1 },
        { DeviceCall::Present },
    };
    EXPECT_EQ(renderer.Calls(), expected);
    EXPECT_EQ(renderer.CountOf(DeviceCall::Draw), 2u);
    EXPECT_TRUE(renderer.Draws()[0].wireframe);
    EXPECT_FALSE(renderer.Draws()[1].wireframe);
    renderer.ForgetRecords();
    EXPECT_TRUE(renderer.Calls().empty());
    EXPECT_TRUE(renderer.Draws().empty());
    EXPECT_TRUE(renderer.Clears().empty());
}

TEST(RecordingRenderer, BuffersKeepTheirNamesAndInitialData) {
    RecordingRenderer renderer;
    const float data[6] = { 1, 2, 3, 4, 5, 6 };
    const int id = MakeBuffer(renderer, "Ribbon", kPos_BlendingOFF, 2, kPrimitive_Lines, data);
    EXPECT_EQ(renderer.BufferNames(), std::vector<std::string>{ "Ribbon" });
    EXPECT_EQ(std::memcmp(renderer.BufferBytes(id).data(), data, sizeof data), 0);
}

TEST(RecordingRenderer, WhatAnAccessLeavesUnwrittenShowsAsNoNumber) {
    RecordingRenderer renderer;
    const float data[6] = { 1, 2, 3, 4, 5, 6 };
    const int id = MakeBuffer(renderer, "b", kPos_BlendingOFF, 2, kPrimitive_Lines, data);
    renderer.AccessVertexBuffer(id, [](void* vertices) { *static_cast<float*>(vertices) = 7; });
    renderer.DrawVertexBuffer(nullptr, id, 0, 2);
    const std::vector<float>& vertices = renderer.Draws()[0].vertices;
    EXPECT_EQ(vertices[0], 7.0f);
    EXPECT_TRUE(std::isnan(vertices[1]) && std::isnan(vertices[5]));

    RecordingRenderer lenient({ .spoilDiscarded = false });
    const int kept = MakeBuffer(lenient, "b", kPos_BlendingOFF, 2, kPrimitive_Lines, data);
    lenient.AccessVertexBuffer(kept, [](void*) {});
    lenient.DrawVertexBuffer(nullptr, kept, 0, 2);
    EXPECT_EQ(lenient.Draws()[0].vertices, (std::vector<float>(data, data + 6)));
}

TEST(RecordingRenderer, ADrawBeyondTheBufferKeepsTheVerticesThatThereAre) {
    RecordingRenderer renderer;
    const float data[6] = { 1, 2, 3, 4, 5, 6 };
    const int id = MakeBuffer(renderer, "b", kPos_BlendingOFF, 2, kPrimitive_Lines, data);
    EXPECT_TRUE(renderer.DrawVertexBuffer(nullptr, id, 1, 100));
    EXPECT_TRUE(renderer.DrawVertexBuffer(nullptr, id, 2, 1));
    EXPECT_TRUE(renderer.DrawVertexBuffer(nullptr, id, -1, -1));
    EXPECT_EQ(renderer.Draws()[0].vertexCount, 100u);
    EXPECT_EQ(renderer.Draws()[0].vertices, (std::vector<float>{ 4, 5, 6 }));
    EXPECT_EQ(renderer.Draws()[0].KeptVertices(), 1u);
    EXPECT_EQ(renderer.Draws()[0].Vertex(0)[1], 5.0f);
    EXPECT_TRUE(renderer.Draws()[1].vertices.empty());
    EXPECT_TRUE(renderer.Draws()[2].vertices.empty());
}

TEST(RecordingRenderer, VerticesNeedNotBeKept) {
    RecordingRenderer renderer({ .keepVertices = false });
    const int id = MakeBuffer(renderer, "b", kPos_BlendingOFF, 2);
    renderer.DrawVertexBuffer(nullptr, id, 0, 2);
    EXPECT_TRUE(renderer.Draws()[0].vertices.empty());
    EXPECT_EQ(renderer.Draws()[0].vertexCount, 2u);
}

TEST(RecordingRenderer, AnUnassignedPrimitiveLeavesThatOfTheDrawBefore) {
    RecordingRenderer renderer;
    const int unassigned = MakeBuffer(renderer, "u", kPos_BlendingOFF, 3, 2);
    const int points = MakeBuffer(renderer, "p", kPos_BlendingOFF, 3, kPrimitive_Points);
    renderer.DrawVertexBuffer(nullptr, unassigned, 0, 3);
    renderer.DrawVertexBuffer(nullptr, points, 0, 3);
    renderer.DrawVertexBuffer(nullptr, unassigned, 0, 3);
    EXPECT_EQ(renderer.Draws()[0].primitive, kNoValue);
    EXPECT_EQ(renderer.Draws()[1].primitive, kPrimitive_Points);
    EXPECT_EQ(renderer.Draws()[2].primitive, kPrimitive_Points);
}

TEST(RecordingRenderer, PointSpritesRunTheGeometryStageAndASampler) {
    RecordingRenderer renderer;
    const int sprites =
        MakeBuffer(renderer, "s", kPosition_Color_Normalized_PointSprite_SrcAlpha_DstAlphaOne, 1);
    const int plain = MakeBuffer(renderer, "p", kPos_Colr_BlendingOFF, 1);
    renderer.DrawVertexBuffer(nullptr, sprites, 0, 1);
    renderer.DrawVertexBuffer(nullptr, plain, 0, 1);
    EXPECT_TRUE(renderer.Draws()[0].geometryStage);
    EXPECT_EQ(renderer.Draws()[0].samplers, 1u);
    EXPECT_FALSE(renderer.Draws()[1].geometryStage);
    EXPECT_EQ(renderer.Draws()[1].samplers, 0u);
}

TEST(RecordingRenderer, SetColorIgnoresTheFourthElement) {
    RecordingRenderer renderer;
    const float colour[4] = { 0.1f, 0.2f, 0.3f, 0.4f };
    renderer.SetColor(colour, 0.9f);
    EXPECT_EQ(renderer.Tint(), (std::array<float, 4>{ 0.1f, 0.2f, 0.3f, 0.9f }));
}

TEST(RecordingRenderer, FunctionsNeedCodeAndNoneIsLoadedFromAFile) {
    RecordingRenderer renderer;
    const std::byte code{ 1 };
    EXPECT_EQ(renderer.CreateVertexFunction(nullptr, 1, "v"), nullptr);
    EXPECT_EQ(renderer.CreateVertexFunction(&code, 0, "v"), nullptr);
    EXPECT_EQ(renderer.CreateFragmentFunction(nullptr, 1, "f"), nullptr);
    EXPECT_EQ(renderer.CreateGeometryFunction(nullptr, 1, "g"), nullptr);
    EXPECT_EQ(renderer.LoadVertexFunction(nullptr, "v.cso"), nullptr);
    EXPECT_EQ(renderer.LoadFragmentFunction(nullptr, "f.cso"), nullptr);
}

TEST(RecordingRenderer, AResizeKeepsResourcesAndMatricesAndMakesFillsSolid) {
    RecordingRenderer renderer;
    const int id = MakeBuffer(renderer, "b", kPos_BlendingOFF, 3);
    renderer.SetWireframe(true);
    renderer.PushModelView();
    renderer.Translate(1, 0, 0);
    const double rect[4] = { 5, 6, 640.9, 480 };
    renderer.ResizeRenderTarget(rect);
    renderer.DrawVertexBuffer(nullptr, id, 0, 3);
    EXPECT_EQ(renderer.Targets(), (std::vector<TargetRecord>{ { 640, 480 } }));
    EXPECT_EQ(renderer.Viewports().back(), (ViewportRecord{ 0, 0, 640.9, 480 }));
    EXPECT_FALSE(renderer.Draws()[0].wireframe);
    EXPECT_EQ(renderer.Draws()[0].matrix, TranslationMatrix(1, 0, 0));
}

TEST(RecordingRenderer, AResizeUnbindsEverythingButTheBlendModeIsRemembered) {
    RecordingRenderer renderer;
    const std::uint32_t texel = 5;
    const float white[4] = { 1, 1, 1, 1 };
    const TexturePtr texture(renderer.CreateTexture(&texel, 1, 1, 4, 0, kPixelFormat_BGRA8, "t", 0, false));
    const int id = MakeBuffer(renderer, "b", kPos_TexCoord_SrcAlpha_DstAlphaOne, 4);
    texture->Bind();
    renderer.SetColor(white, 1);
    renderer.SetBlendMode(kBlendMode_Additive);
    const double rect[4] = { 0, 0, 640, 480 };
    renderer.ResizeRenderTarget(rect);
    renderer.DrawVertexBuffer(nullptr, id, 0, 4);
    EXPECT_FALSE(renderer.Draws()[0].unitImages[0]);
    EXPECT_FALSE(renderer.Draws()[0].tintBound);
    EXPECT_EQ(renderer.BlendModeInForce(), kBlendMode_Additive);
    EXPECT_EQ(renderer.Draws()[0].blendMode, kBlendMode_Off) << "the mode counts as set, so none was set";
}

TEST(RecordingRenderer, AResizeToNothingIsPassedOnAndAFailedOneLeavesNoTarget) {
    RecordingRenderer renderer;
    const double nothing[4] = { 0, 0, 0, -3 }, some[4] = { 0, 0, 10, 10 };
    const float black[4] = {};
    renderer.ResizeRenderTarget(nothing);
    EXPECT_EQ(renderer.Targets().back(), (TargetRecord{ 0, 0 }));
    renderer.Clear(black);
    EXPECT_EQ(renderer.Clears().size(), 1u);
    renderer.Refuse(Refusal::RenderTarget);
    renderer.ResizeRenderTarget(some);
    renderer.Clear(black);
    EXPECT_EQ(renderer.Clears().size(), 1u) << "nothing to clear";
    renderer.Refuse(Refusal::RenderTarget, false);
    renderer.ResizeRenderTarget(some);
    renderer.Clear(black);
    EXPECT_EQ(renderer.Clears().size(), 2u);
}

} // namespace
} // namespace orvane::render
