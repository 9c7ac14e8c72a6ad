// "VertexPositionColorPointSpriteShader", set E.
cbuffer MatrixConstant : register(b0)
{
    float4 ctm[4]; // rows
};

float4 Transform(float3 position)
{
    return position.x * ctm[0] + position.y * ctm[1] + position.z * ctm[2] + ctm[3];
}

struct vtxPosColorRadiusInput
{
    float3 position : POSITION;
    float4 colour : COLOR;
    float radius : RADIUS;
};

// The position stands first: the geometry stage takes it so.
struct vtxPosColorOutput
{
    float4 position : SV_Position;
    float4 colour : COLOR;
    float radius : RADIUS;
};

vtxPosColorOutput main(vtxPosColorRadiusInput input)
{
    vtxPosColorOutput output;
    output.position = Transform(input.position);
    output.colour = input.colour;
    output.radius = input.radius;
    return output;
}
