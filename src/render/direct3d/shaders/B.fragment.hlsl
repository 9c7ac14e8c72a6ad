// "PixelPositionTextureShader", set B: the texture times the colour of the last SetColor, alpha too.
cbuffer ColourConstant : register(b0)
{
    float4 tint;
};

Texture2D shaderTexture : register(t0);
SamplerState textureSampler : register(s0);

float4 main(float2 tex : TEXCOORD) : SV_Target
{
    return tint * shaderTexture.Sample(textureSampler, tex);
}
