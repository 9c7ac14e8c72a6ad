// "SimpleVertexShader", set A.
//
// In all vertex shaders but that of set F a position is a row vector, and `ctm` holds the rows of the matrix
// modelview * projection.
cbuffer MatrixConstant : register(b0)
{
    float4 ctm[4]; // rows
};

float4 main(float4 position : POSITION) : SV_Position
{
    // The vertex has three components; the fourth arrives as 1.
    return position.x * ctm[0] + position.y * ctm[1] + position.z * ctm[2] + position.w * ctm[3];
}
