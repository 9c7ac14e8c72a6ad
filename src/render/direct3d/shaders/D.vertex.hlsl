// "VertexPositionColorShader", set D.
cbuffer MatrixConstant : register(b0)
{
    float4 ctm[4]; // rows
};

float4 Transform(float3 position)
{
    return position.x * ctm[0] + position.y * ctm[1] + position.z * ctm[2] + ctm[3];
}

struct vtxPosColorInput
{
    float3 position : POSITION;
    float4 colour : COLOR;
};

// The position stands last, since the fragment stage doesn't read it: stages are linked by register.
struct vtxPosColorOutput
{
    float4 colour : COLOR;
    float4 position : SV_Position;
};

vtxPosColorOutput main(vtxPosColorInput input)
{
    vtxPosColorOutput output;
    output.colour = input.colour;
    output.position = Transform(input.position);
    return output;
}
