// "PixelPositionColorPointSpriteShader", set E: the particle's colour times the sprite image.
Texture2D shaderTexture : register(t0);
SamplerState textureSampler : register(s0);

struct GSOutput
{
    float4 colour : COLOR;
    float2 tex : TEXCOORD;
    float4 pos : SV_Position;
};

float4 main(GSOutput input) : SV_Target
{
    return input.colour * shaderTexture.Sample(textureSampler, input.tex);
}
