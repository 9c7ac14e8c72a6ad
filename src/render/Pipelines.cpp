#include "render/Pipelines.h"

#include "render/Enumerations.h"
#include "render/PipelineKind.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace orvane::render {
namespace {

using enum ShaderSet;

constexpr std::uint32_t kOff = kBlendMode_Off, kAlpha = kBlendMode_Alpha, kAdd = kBlendMode_Additive;

// KEEP: 18 and 19 draw with blending off, whatever their names say.
// So all three kinds of set F draw alike.
// By design: the colour table's alpha is not meant to blend the image with what lies under it.
// Pinned by Pipelines.TheBlendVariantsOfSetFDrawWithBlendingOff.
// clang-format off
constexpr PipelineRow kPipelines[] = {
    // kind, label                                                         class                                                       set blend
    {  0, "kPos_BlendingOFF",                                              "PositionBlendOffPipeline",                                   A, kOff },
    {  1, "kPos_SrcAlpha_DstOneMinusSrcAlpha",                             "PositionBlendSrcAlpha_DstOneMinusSrcAlphaPipeline",          A, kAlpha },
    {  2, "kPos_SrcAlpha_DstAlphaOne",                                     "PositionBlendSrcAlpha_DstAlphaOnePipeline",                  A, kAdd },
    {  3, "kPos_TexCoord_BlendingOFF",                                     "PositionTexCoordBlendOffPipeline",                           B, kOff },
    {  4, "kPos_TexCoord_SrcAlpha_DstOneMinusSrcAlpha",                    "PositionTexCoordSrcAlpha_DstOneMinusSrcAlphaPipeline",       B, kAlpha },
    {  5, "kPos_TexCoord_SrcAlpha_DstAlphaOne",                            "PositionTexCoord_SrcAlpha_DstAlphaOnePipeline",              B, kAdd },
    {  6, "kPos_Colr_TexCoord_BlendingOFF",                                "PositionColorTexCoordBlendOffPipeline",                      C, kOff },
    {  7, "kPos_Colr_TexCoord_SrcAlpha_DstOneMinusSrcAlpha",               "PositionColorTexCoordSrcAlpha_DstOneMinusSrcAlphaPipeline",  C, kAlpha },
    {  8, "kPos_Colr_TexCoord_SrcAlpha_DstAlphaOne",                       "PositionColorTexCoordSrcAlpha_DstAlphaOnePipeline",          C, kAdd },
    { 10, "kPos_Colr_BlendingOFF",                                         "PositionColorBlendOffPipeline",                              D, kOff },
    { 11, "kPos_Colr_SrcAlpha_DstOneMinusSrcAlpha",                        "PositionColorSrcAlpha_DstOneMinusSrcAlphaPipeline",          D, kAlpha },
    { 12, "kPos_Colr_SrcAlpha_DstAlphaOne",                                "PositionColorSrcAlpha_DstAlphaOnePipeline",                  D, kAdd },
    { 13, "kPosition_Color_PointSprite_BlendingOFF",                       "PositionColorPointSpriteBlendOffPipeline",                   E, kOff },
    { 14, "kPosition_Color_Normalized_PointSprite_SrcAlpha_DstOneMinusSrcAlpha", "PositionColorPointSpriteSrcAlpha_DstOneMinusSrcAlphaPipeline", E, kAlpha },
    { 15, "kPosition_Color_Normalized_PointSprite_SrcAlpha_DstAlphaOne",   "PositionColorPointSpriteSrcAlpha_DstAlphaOnePipeline",       E, kAdd },
    { 16, "kPosition_TextureCoord_CLUT_TexelFetch_BlendingOFF",            "PositionTextureCoord_CLUT_BlendingOFFPipeline",              F, kOff },
    { 18, "kPosition_TextureCoord_CLUT_SrcAlpha_DstOneMinusSrcAlpha",      "PositionTextureCoord_CLUT_SrcAlpha_DstOneMinusSrcAlphaPipeline", F, kOff },
    { 19, "kPosition_TextureCoord_CLUT_SrcAlpha_DstAlphaOne",              "PositionTextureCoord_CLUT_SrcAlpha_DstAlphaOnePipeline",     F, kOff },
};
static_assert(std::size(kPipelines) == 18, "one row for each kind; 9 and 17 are aliases");

constexpr VertexElement kPositionOnly[]     = { { "POSITION", 3, 0 } };
constexpr VertexElement kPositionTexCoord[] = { { "POSITION", 3, 0 }, { "TEXCOORD", 2, 12 } };
constexpr VertexElement kPositionColorTex[] = { { "POSITION", 3, 0 }, { "COLOR", 4, 12 }, { "TEXCOORD", 2, 28 } };
constexpr VertexElement kPositionColor[]    = { { "POSITION", 3, 0 }, { "COLOR", 4, 12 } };
constexpr VertexElement kPositionColorRad[] = { { "POSITION", 3, 0 }, { "COLOR", 4, 12 }, { "RADIUS", 1, 28 } };

constexpr std::array<ShaderSetRow, kShaderSets> kSets = { {
    // set stride elements
    { A, 12, kPositionOnly,
      "SimpleVertexShader", "SimplePixelShader", nullptr,
      nullptr, true },
    { B, 20, kPositionTexCoord,
      "PositionTexCoordBlendOffPipeline", "PixelPositionTextureShader", nullptr,
      "PositionTexCoordBlendOffPipeline-LinearSamplerState", true },
    { C, 36, kPositionColorTex,
      "VertexPositionColorTextureShader", "PixelPositionColorTextureShader", nullptr,
      "PositionColorTexCoordBlendOffPipeline-LinearSamplerState", true },
    { D, 28, kPositionColor,
      "VertexPositionColorShader", "PixelPositionColorShader", nullptr,
      nullptr, true },
    { E, 32, kPositionColorRad,
      "VertexPositionColorPointSpriteShader", "PixelPositionColorPointSpriteShader", "GeometryParticleShader",
      "PositionColorPointSpriteBlendOffPipeline::LinearSamplerState", true },
    { F, 20, kPositionTexCoord,
      "VertexPosTextureINTextureOutShader", "PixelTextureCLUTShader", nullptr,
      nullptr, false },
} };

// clang-format on

// KEEP: kinds 9 and 17 are accepted though they have no row.
// So they yield a second pipeline object whose kind reads 8 or 16.
// By design: callers with the old numbers still draw.
// Pinned by Pipelines.KindsNineAndSeventeenStandForEightAndSixteen.
constexpr std::uint32_t WithoutAlias(std::uint32_t kind) {
    constexpr std::uint32_t kAliasOf8 = 9, kAliasOf16 = 17;
    return kind == kAliasOf8 || kind == kAliasOf16 ? kind - 1 : kind;
}

} // namespace

std::span<const PipelineRow> PipelineRows() {
    return kPipelines;
}

const PipelineRow* FindPipelineRow(std::uint32_t kind) {
    const auto* const row = std::ranges::find(kPipelines, WithoutAlias(kind), &PipelineRow::kind);
    return row == std::end(kPipelines) ? nullptr : row;
}

const ShaderSetRow& ShaderSetRowOf(ShaderSet set) {
    return kSets[static_cast<std::size_t>(set)];
}

} // namespace orvane::render
