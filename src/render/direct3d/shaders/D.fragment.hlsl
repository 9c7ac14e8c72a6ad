// "PixelPositionColorShader", set D: the vertex colour as it is.
//
// KEEP: the constant is declared and not read, so SetColor has no effect in this set.
// The passes that use it put everything, alpha too, into their vertices.
// Pinned by Shaders.SetDReadsNoConstantInItsFragmentStage.
cbuffer ColourConstant : register(b0)
{
    float4 tint;
};

float4 main(float4 colour : COLOR) : SV_Target
{
    // colour *= tint;
    return colour;
}
