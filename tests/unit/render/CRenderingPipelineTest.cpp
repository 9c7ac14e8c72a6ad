#include "render/CRenderingPipeline.h"

#include "render/recording/RecordingRenderer.h"

#include <gtest/gtest.h>

#include <memory>

namespace orvane::render {
namespace {

constexpr std::byte kCode[] = { std::byte(1), std::byte(2), std::byte(3) };

std::unique_ptr<CRenderingPipeline> PipelineOf(std::uint32_t kind) {
    return std::make_unique<CRenderingPipeline>(*FindPipelineRow(kind), ShaderSetCode{ kCode, kCode, kCode });
}

const RecordingFragmentFunction& FragmentOf(CRenderingPipeline& pipeline) {
    return static_cast<const RecordingFragmentFunction&>(*pipeline.GetFragmentFunction());
}

TEST(CRenderingPipeline, ReservedOperationsAnswerAsTheyMust) {
    const auto pipeline = PipelineOf(0);
    EXPECT_FALSE(pipeline->Reserved1() || pipeline->Reserved2() || pipeline->Reserved3() ||
                 pipeline->Reserved4() || pipeline->Reserved5() || pipeline->Reserved6() ||
                 pipeline->Reserved7() || pipeline->Reserved8() || pipeline->Reserved9() ||
                 pipeline->Reserved10());
    EXPECT_EQ(pipeline->Reserved11(42), 42u);
    for (const std::uint32_t value : { pipeline->Reserved12(), pipeline->Reserved13(), pipeline->Reserved14(),
                                       pipeline->Reserved15(), pipeline->Reserved19() })
        EXPECT_EQ(value, 0xFFFFFFFFu);
}

TEST(CRenderingPipeline, HasNoStagesBeforeTheyAreAttached) {
    const auto pipeline = PipelineOf(0);
    EXPECT_EQ(pipeline->GetVertexFunction(), nullptr);
    EXPECT_EQ(pipeline->GetFragmentFunction(), nullptr);
    EXPECT_EQ(pipeline->GetGeometryFunction(), nullptr);
}

TEST(CRenderingPipeline, BuildsTheStagesAndTheSamplerOfEachSetUnderTheirNames) {
    for (const std::uint32_t kind : { 0u, 3u, 6u, 10u, 13u, 16u }) {
        RecordingRenderer renderer;
        const auto pipeline = PipelineOf(kind);
        ASSERT_TRUE(pipeline->BuildFunctions(&renderer));
        const ShaderSetRow& set = ShaderSetRowOf(pipeline->Row().set);
        SCOPED_TRACE(set.vertexName);
        auto& vertex = static_cast<RecordingVertexFunction&>(*pipeline->GetVertexFunction());
        EXPECT_EQ(vertex.Name(), set.vertexName);
        EXPECT_EQ(vertex.GetFunctionCodeSize(), 3u);
        EXPECT_NE(vertex.GetFunctionCode(), static_cast<const void*>(kCode)) << "a private copy";
        EXPECT_EQ(*static_cast<const std::byte*>(vertex.GetFunctionCode()), kCode[0]);
        EXPECT_EQ(FragmentOf(*pipeline).Name(), set.fragmentName);
        EXPECT_EQ(FragmentOf(*pipeline).Samplers().size(), set.samplerName == nullptr ? 0u : 1u);
        if (set.samplerName != nullptr) {
            const auto& sampler =
                static_cast<const RecordingSamplerState&>(*FragmentOf(*pipeline).Samplers()[0]);
            EXPECT_EQ(sampler.Name(), set.samplerName);
            EXPECT_TRUE(sampler.IsLinear());
        }
        auto* const geometry = static_cast<RecordingGeometryFunction*>(pipeline->GetGeometryFunction());
        ASSERT_EQ(geometry != nullptr, set.geometryName != nullptr);
        if (geometry != nullptr) {
            EXPECT_EQ(geometry->Name(), set.geometryName);
        }
        EXPECT_EQ(vertex.GetFunctionId(), kNoValue);
    }
}

TEST(CRenderingPipeline, OwnsItsStagesAndSamplers) {
    RecordingRenderer renderer;
    auto pipeline = PipelineOf(13);
    ASSERT_TRUE(pipeline->BuildFunctions(&renderer));
    EXPECT_EQ(renderer.LiveFunctions(), 4) << "vertex, fragment, geometry, sampler";
    pipeline.reset();
    EXPECT_EQ(renderer.LiveFunctions(), 0);
}

TEST(CRenderingPipeline, BuildingWithoutARendererFails) {
    EXPECT_FALSE(PipelineOf(0)->BuildFunctions(nullptr));
}

TEST(CRenderingPipeline, AMissingStageFailsAndDeletesThoseMadeBeforeIt) {
    for (const Refusal stage :
         { Refusal::VertexFunction, Refusal::FragmentFunction, Refusal::GeometryFunction }) {
        RecordingRenderer renderer;
        renderer.Refuse(stage);
        const auto pipeline = PipelineOf(13);
        EXPECT_FALSE(pipeline->BuildFunctions(&renderer));
        EXPECT_EQ(pipeline->GetVertexFunction(), nullptr);
        EXPECT_EQ(renderer.LiveFunctions(), 0);
    }
}

TEST(CRenderingPipeline, AMissingSamplerIsNoFailure) {
    RecordingRenderer renderer;
    renderer.Refuse(Refusal::Sampler);
    const auto pipeline = PipelineOf(3);
    EXPECT_TRUE(pipeline->BuildFunctions(&renderer));
    EXPECT_TRUE(FragmentOf(*pipeline).Samplers().empty());
}

TEST(CRenderingPipeline, AFragmentFunctionCountsItsSamplersFromZeroAndRefusesNull) {
    RecordingRenderer renderer;
    const std::unique_ptr<IFragmentFunction> fragment(renderer.CreateFragmentFunction(kCode, 3, "f"));
    EXPECT_EQ(fragment->AddSamplerState(renderer.CreatePointSamplerState("p")), 0u);
    EXPECT_EQ(fragment->AddSamplerState(nullptr), kNoValue);
    EXPECT_EQ(fragment->AddSamplerState(renderer.CreateLinearSamplerState("l")), 1u);
}

TEST(CRenderingPipeline, BeginSetsItsBlendModeAndEndTheOneBefore) {
    RecordingRenderer renderer;
    const auto pipeline = PipelineOf(kPos_SrcAlpha_DstAlphaOne);
    renderer.SetBlendMode(kBlendMode_Alpha);
    pipeline->BeginPipeline(&renderer);
    EXPECT_EQ(renderer.BlendModeInForce(), kBlendMode_Additive);
    pipeline->EndPipeline(&renderer);
    EXPECT_EQ(renderer.BlendModeInForce(), kBlendMode_Alpha);
}

TEST(CRenderingPipeline, EndWithoutBeginSwitchesBlendingOff) {
    RecordingRenderer renderer;
    renderer.SetBlendMode(kBlendMode_Additive);
    PipelineOf(kPos_SrcAlpha_DstAlphaOne)->EndPipeline(&renderer);
    EXPECT_EQ(renderer.BlendModeInForce(), kBlendMode_Off);
}

} // namespace
} // namespace orvane::render
