// "GeometryParticleShader", set E: each point becomes a square in clip space.
//
// KEEP: the offsets are added before the division by w and know nothing of the view's aspect, and the radius
// is half the diagonal. So sprites shrink with distance as the geometry does and are squeezed in a wide view.
// Sizes of particles were chosen by eye with it.
// Pinned by Shaders.TheSpriteStageTakesTheRadiusForHalfTheDiagonal.
static const float kRadiusToHalfSide = 0.707106;

struct vtxPosColorOutput
{
    float4 position : SV_Position;
    float4 colour : COLOR;
    float radius : RADIUS;
};

// The order in which the fragment stage takes them.
struct GSOutput
{
    float4 colour : COLOR;
    float2 tex : TEXCOORD;
    float4 pos : SV_Position;
};

GSOutput Corner(vtxPosColorOutput centre, float2 tex, float2 offset)
{
    GSOutput output;
    output.colour = centre.colour;
    output.tex = tex;
    output.pos = float4(centre.position.xy + offset, centre.position.zw);
    return output;
}

[maxvertexcount(4)]
void main(point vtxPosColorOutput input[1], inout TriangleStream<GSOutput> stream)
{
    const float halfSide = input[0].radius * kRadiusToHalfSide;
    stream.Append(Corner(input[0], float2(1, 0), float2(halfSide, -halfSide)));
    stream.Append(Corner(input[0], float2(1, 1), float2(halfSide, halfSide)));
    stream.Append(Corner(input[0], float2(0, 0), float2(-halfSide, -halfSide)));
    stream.Append(Corner(input[0], float2(0, 1), float2(-halfSide, halfSide)));
}
