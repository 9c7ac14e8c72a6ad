// "SimplePixelShader", set A: every pixel takes the colour of the last SetColor.
cbuffer ColourConstant : register(b0)
{
    float4 tint;
};

float4 main() : SV_Target
{
    return tint;
}
