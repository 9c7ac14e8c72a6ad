#include "render/Pipelines.h"

#include "render/Enumerations.h"
#include "render/PipelineKind.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace orvane::render {
namespace {

using enum ShaderSet;

struct Expected {
    std::uint32_t kind;
    std::string label, className;
    ShaderSet set;
    std::uint32_t blend;
};

TEST(Pipelines, EachKindHasItsLabelClassSetAndBlendMode) {
    const std::vector<Expected> expected = {
        { 0, "kPos_BlendingOFF", "PositionBlendOffPipeline", A, 2 },
        { 1, "kPos_SrcAlpha_DstOneMinusSrcAlpha", "PositionBlendSrcAlpha_DstOneMinusSrcAlphaPipeline", A, 0 },
        { 2, "kPos_SrcAlpha_DstAlphaOne", "PositionBlendSrcAlpha_DstAlphaOnePipeline", A, 1 },
        { 3, "kPos_TexCoord_BlendingOFF", "PositionTexCoordBlendOffPipeline", B, 2 },
        { 4, "kPos_TexCoord_SrcAlpha_DstOneMinusSrcAlpha",
          "PositionTexCoordSrcAlpha_DstOneMinusSrcAlphaPipeline", B, 0 },
        { 5, "kPos_TexCoord_SrcAlpha_DstAlphaOne", "PositionTexCoord_SrcAlpha_DstAlphaOnePipeline", B, 1 },
        { 6, "kPos_Colr_TexCoord_BlendingOFF", "PositionColorTexCoordBlendOffPipeline", C, 2 },
        { 7, "kPos_Colr_TexCoord_SrcAlpha_DstOneMinusSrcAlpha",
          "PositionColorTexCoordSrcAlpha_DstOneMinusSrcAlphaPipeline", C, 0 },
        { 8, "kPos_Colr_TexCoord_SrcAlpha_DstAlphaOne", "PositionColorTexCoordSrcAlpha_DstAlphaOnePipeline",
          C, 1 },
        { 10, "kPos_Colr_BlendingOFF", "PositionColorBlendOffPipeline", D, 2 },
        { 11, "kPos_Colr_SrcAlpha_DstOneMinusSrcAlpha", "PositionColorSrcAlpha_DstOneMinusSrcAlphaPipeline",
          D, 0 },
        { 12, "kPos_Colr_SrcAlpha_DstAlphaOne", "PositionColorSrcAlpha_DstAlphaOnePipeline", D, 1 },
        { 13, "kPosition_Color_PointSprite_BlendingOFF", "PositionColorPointSpriteBlendOffPipeline", E, 2 },
        { 14, "kPosition_Color_Normalized_PointSprite_SrcAlpha_DstOneMinusSrcAlpha",
          "PositionColorPointSpriteSrcAlpha_DstOneMinusSrcAlphaPipeline", E, 0 },
        { 15, "kPosition_Color_Normalized_PointSprite_SrcAlpha_DstAlphaOne",
          "PositionColorPointSpriteSrcAlpha_DstAlphaOnePipeline", E, 1 },
        { 16, "kPosition_TextureCoord_CLUT_TexelFetch_BlendingOFF",
          "PositionTextureCoord_CLUT_BlendingOFFPipeline", F, 2 },
        { 18, "kPosition_TextureCoord_CLUT_SrcAlpha_DstOneMinusSrcAlpha",
          "PositionTextureCoord_CLUT_SrcAlpha_DstOneMinusSrcAlphaPipeline", F, 2 },
        { 19, "kPosition_TextureCoord_CLUT_SrcAlpha_DstAlphaOne",
          "PositionTextureCoord_CLUT_SrcAlpha_DstAlphaOnePipeline", F, 2 },
    };
    ASSERT_EQ(PipelineRows().size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        const PipelineRow& row = PipelineRows()[i];
        SCOPED_TRACE(expected[i].kind);
        EXPECT_EQ(row.kind, expected[i].kind);
        EXPECT_EQ(row.label, expected[i].label);
        EXPECT_EQ(row.className, expected[i].className);
        EXPECT_EQ(row.set, expected[i].set);
        EXPECT_EQ(row.blendMode, expected[i].blend);
        EXPECT_EQ(FindPipelineRow(row.kind), &row);
    }
}

TEST(Pipelines, TheNamesOfTheKindsAreTheirLabels) {
#define EXPECT_LABEL(kind) EXPECT_STREQ(FindPipelineRow(kind)->label, #kind)
    EXPECT_LABEL(kPos_BlendingOFF);
    EXPECT_LABEL(kPos_SrcAlpha_DstOneMinusSrcAlpha);
    EXPECT_LABEL(kPos_SrcAlpha_DstAlphaOne);
    EXPECT_LABEL(kPos_TexCoord_BlendingOFF);
    EXPECT_LABEL(kPos_TexCoord_SrcAlpha_DstOneMinusSrcAlpha);
    EXPECT_LABEL(kPos_TexCoord_SrcAlpha_DstAlphaOne);
    EXPECT_LABEL(kPos_Colr_TexCoord_BlendingOFF);
    EXPECT_LABEL(kPos_Colr_TexCoord_SrcAlpha_DstOneMinusSrcAlpha);
    EXPECT_LABEL(kPos_Colr_TexCoord_SrcAlpha_DstAlphaOne);
    EXPECT_LABEL(kPos_Colr_BlendingOFF);
    EXPECT_LABEL(kPos_Colr_SrcAlpha_DstOneMinusSrcAlpha);
    EXPECT_LABEL(kPos_Colr_SrcAlpha_DstAlphaOne);
    EXPECT_LABEL(kPosition_Color_PointSprite_BlendingOFF);
    EXPECT_LABEL(kPosition_Color_Normalized_PointSprite_SrcAlpha_DstOneMinusSrcAlpha);
    EXPECT_LABEL(kPosition_Color_Normalized_PointSprite_SrcAlpha_DstAlphaOne);
    EXPECT_LABEL(kPosition_TextureCoord_CLUT_TexelFetch_BlendingOFF);
    EXPECT_LABEL(kPosition_TextureCoord_CLUT_SrcAlpha_DstOneMinusSrcAlpha);
    EXPECT_LABEL(kPosition_TextureCoord_CLUT_SrcAlpha_DstAlphaOne);
#undef EXPECT_LABEL
}

TEST(Pipelines, KindsNineAndSeventeenStandForEightAndSixteen) {
    EXPECT_EQ(FindPipelineRow(9), FindPipelineRow(8));
    EXPECT_EQ(FindPipelineRow(17), FindPipelineRow(16));
    EXPECT_EQ(FindPipelineRow(9)->kind, 8u);
    EXPECT_EQ(FindPipelineRow(17)->kind, 16u);
}

TEST(Pipelines, KindsAboveNineteenHaveNoRow) {
    for (const std::uint32_t kind : { 20u, 21u, 0x80000000u, 0xFFFFFFFFu })
        EXPECT_EQ(FindPipelineRow(kind), nullptr) << kind;
}

TEST(Pipelines, TheBlendVariantsOfSetFDrawWithBlendingOff) {
    for (const std::uint32_t kind : { 16u, 18u, 19u })
        EXPECT_EQ(FindPipelineRow(kind)->blendMode, kBlendMode_Off) << kind;
}

std::string LayoutOf(ShaderSet set) {
    const ShaderSetRow& row = ShaderSetRowOf(set);
    std::string text = std::to_string(row.stride) + ":";
    for (const VertexElement& element : row.elements)
        text += std::string(" ") + element.semantic + " " + std::to_string(element.components) + " at " +
                std::to_string(element.offset);
    return text;
}

TEST(Pipelines, EachSetHasItsVertexLayout) {
    EXPECT_EQ(LayoutOf(A), "12: POSITION 3 at 0");
    EXPECT_EQ(LayoutOf(B), "20: POSITION 3 at 0 TEXCOORD 2 at 12");
    EXPECT_EQ(LayoutOf(C), "36: POSITION 3 at 0 COLOR 4 at 12 TEXCOORD 2 at 28");
    EXPECT_EQ(LayoutOf(D), "28: POSITION 3 at 0 COLOR 4 at 12");
    EXPECT_EQ(LayoutOf(E), "32: POSITION 3 at 0 COLOR 4 at 12 RADIUS 1 at 28");
    EXPECT_EQ(LayoutOf(F), "20: POSITION 3 at 0 TEXCOORD 2 at 12");
}

TEST(Pipelines, ElementsArePackedWithoutGapsUpToTheStride) {
    for (const ShaderSet set : { A, B, C, D, E, F }) {
        std::uint32_t offset = 0;
        for (const VertexElement& element : ShaderSetRowOf(set).elements) {
            EXPECT_EQ(element.offset, offset) << element.semantic;
            offset += 4 * element.components;
        }
        EXPECT_EQ(ShaderSetRowOf(set).stride, offset);
        EXPECT_EQ(ShaderSetRowOf(set).set, set);
    }
}

TEST(Pipelines, EachSetHasTheNamesOfItsStagesAndSampler) {
    const auto names = [](ShaderSet set) {
        const ShaderSetRow& row = ShaderSetRowOf(set);
        std::vector<std::string> all;
        for (const char* name : { row.vertexName, row.fragmentName, row.geometryName, row.samplerName })
            all.emplace_back(name == nullptr ? "none" : name);
        return all;
    };
    using Names = std::vector<std::string>;
    EXPECT_EQ(names(A), (Names{ "SimpleVertexShader", "SimplePixelShader", "none", "none" }));
    EXPECT_EQ(names(B), (Names{ "PositionTexCoordBlendOffPipeline", "PixelPositionTextureShader", "none",
                                "PositionTexCoordBlendOffPipeline-LinearSamplerState" }));
    EXPECT_EQ(names(C), (Names{ "VertexPositionColorTextureShader", "PixelPositionColorTextureShader", "none",
                                "PositionColorTexCoordBlendOffPipeline-LinearSamplerState" }));
    EXPECT_EQ(names(D), (Names{ "VertexPositionColorShader", "PixelPositionColorShader", "none", "none" }));
    EXPECT_EQ(names(E), (Names{ "VertexPositionColorPointSpriteShader", "PixelPositionColorPointSpriteShader",
                                "GeometryParticleShader",
                                "PositionColorPointSpriteBlendOffPipeline::LinearSamplerState" }));
    EXPECT_EQ(names(F),
              (Names{ "VertexPosTextureINTextureOutShader", "PixelTextureCLUTShader", "none", "none" }));
}

TEST(Pipelines, OnlySetFIsInClipSpaceAlready) {
    for (const ShaderSet set : { A, B, C, D, E }) EXPECT_TRUE(ShaderSetRowOf(set).usesMatrices);
    EXPECT_FALSE(ShaderSetRowOf(F).usesMatrices);
}

} // namespace
} // namespace orvane::render
