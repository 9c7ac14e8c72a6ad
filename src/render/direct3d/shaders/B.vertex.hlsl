// "PositionTexCoordBlendOffPipeline", set B.
cbuffer MatrixConstant : register(b0)
{
    float4 ctm[4]; // rows
};

float4 Transform(float3 position)
{
    return position.x * ctm[0] + position.y * ctm[1] + position.z * ctm[2] + ctm[3];
}

struct vtxPosTexInput
{
    float3 position : POSITION;
    float2 tex : TEXCOORD;
};

// The position stands last, since the fragment stage doesn't read it: stages are linked by register.
struct vtxPosTexOutput
{
    float2 tex : TEXCOORD;
    float4 position : SV_Position;
};

vtxPosTexOutput main(vtxPosTexInput input)
{
    vtxPosTexOutput output;
    output.tex = input.tex;
    output.position = Transform(input.position);
    return output;
}
