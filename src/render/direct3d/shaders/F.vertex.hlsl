// "VertexPosTextureINTextureOutShader", set F: vertices are in clip space already.
//
// So a buffer of this set has its matrix flag off, and there is no
// cbuffer MatrixConstant : register(b0) { float4 ctm[4]; };
struct vtxPosTexInput
{
    float3 position : POSITION;
    float2 tex : TEXCOORD;
};

// The position stands first: the fragment stage of this set takes it so.
struct vtxPosTexOutput
{
    float4 position : SV_Position;
    float2 tex : TEXCOORD;
};

vtxPosTexOutput main(vtxPosTexInput input)
{
    vtxPosTexOutput output;
    output.position = float4(input.position, 1.0);
    output.tex = input.tex;
    return output;
}
