// "PixelPositionColorTextureShader", set C: the vertex colour times the texture; SetColor has no part in it.
Texture2D shaderTexture : register(t0);
SamplerState textureSampler : register(s0);

float4 main(float4 colour : COLOR, float2 tex : TEXCOORD) : SV_Target
{
    return colour * shaderTexture.Sample(textureSampler, tex);
}
