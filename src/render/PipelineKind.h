// The key of IRenderer::GetPipeline: a vertex layout, a shader set and a blend mode in one number.
// What each kind is made of stands in Pipelines.h.
#pragma once

#include <cstdint>

namespace orvane::render {

// 9 and 17 have no name of their own; GetPipeline takes them for 8 and 16.
enum PipelineKind : std::uint32_t {
    kPos_BlendingOFF = 0,
    kPos_SrcAlpha_DstOneMinusSrcAlpha = 1,
    kPos_SrcAlpha_DstAlphaOne = 2,
    kPos_TexCoord_BlendingOFF = 3,
    kPos_TexCoord_SrcAlpha_DstOneMinusSrcAlpha = 4,
    kPos_TexCoord_SrcAlpha_DstAlphaOne = 5,
    kPos_Colr_TexCoord_BlendingOFF = 6,
    kPos_Colr_TexCoord_SrcAlpha_DstOneMinusSrcAlpha = 7,
    kPos_Colr_TexCoord_SrcAlpha_DstAlphaOne = 8,
    kPos_Colr_BlendingOFF = 10,
    kPos_Colr_SrcAlpha_DstOneMinusSrcAlpha = 11,
    kPos_Colr_SrcAlpha_DstAlphaOne = 12,
    kPosition_Color_PointSprite_BlendingOFF = 13,
    kPosition_Color_Normalized_PointSprite_SrcAlpha_DstOneMinusSrcAlpha = 14,
    kPosition_Color_Normalized_PointSprite_SrcAlpha_DstAlphaOne = 15,
    kPosition_TextureCoord_CLUT_TexelFetch_BlendingOFF = 16,
    kPosition_TextureCoord_CLUT_SrcAlpha_DstOneMinusSrcAlpha = 18,
    kPosition_TextureCoord_CLUT_SrcAlpha_DstAlphaOne = 19,
};

} // namespace orvane::render
