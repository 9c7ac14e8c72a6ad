// "PixelTextureCLUTShader", set F: an image of indices shown through a table of 256 colours. Texels and
// entries are fetched, not sampled: nothing is mixed.
cbuffer dims : register(b0)
{
    float width;  // of the index texture, in texels
    float height;
};

Texture2D<uint> shaderTexture : register(t0);
Texture2D<float4> clutTexture : register(t1);

struct vtxPosTexOutput
{
    float4 position : SV_Position;
    float2 tex : TEXCOORD;
};

float4 main(vtxPosTexOutput input) : SV_Target
{
    const int2 texel = int2(int(input.tex.x * width), int(input.tex.y * height));
    const uint index = shaderTexture.Load(int3(texel, 0));
    return clutTexture.Load(int3(index, 0, 0));
}
