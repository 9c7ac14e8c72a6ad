// What each shader set puts on the target, read back.
#include "support/direct3d/Direct3DTest.h"

#include "render/PipelineKind.h"

namespace orvane::tests {
namespace {

using namespace render;

class ShaderSets : public Direct3DTest {};

constexpr Area kWhole = { 0, 0, 64, 64 };
constexpr Area kMiddle = { 16, 16, 48, 48 }; // clip -0.5 to 0.5 in both axes

constexpr Colour kRed = { 255, 0, 0, 255 }, kGreen = { 0, 255, 0, 255 };
constexpr Colour kBlue = { 0, 0, 255, 255 }, kWhite = { 255, 255, 255, 255 };

// Texture coordinates of StripOf's corners, v growing downward.
Floats Coordinates(int corner) {
    return { corner % 2 ? 1.0f : 0.0f, corner / 2 ? 0.0f : 1.0f };
}

TEST_F(ShaderSets, AShowsTheTintInEveryPixelAlphaToo) {
    const float colour[4] = { 1.0f, 0.5f, 0.25f, 0.1f }; // the fourth is not read
    mRenderer.SetColor(colour, 0.75f);
    Draw(kPos_BlendingOFF, kPrimitive_TriangleStrip, StripOf(-0.5f, -0.5f, 0.5f, 0.5f));
    const Picture picture = Read();
    EXPECT_EQ(picture.DrawnArea(), kMiddle);
    EXPECT_TRUE(picture.IsFilled(kMiddle, { 255, 128, 64, 191 })); // 0.5, 0.25 and 0.75 of 255
}

TEST_F(ShaderSets, APositionIsARowVectorTimesModelViewTimesProjection) {
    mRenderer.SetColor(kFloatWhite, 1);
    mRenderer.PushOrthographicProjection(64, 64); // one unit is one pixel, the origin in the middle
    mRenderer.PushModelView();
    mRenderer.Translate(8, 4, 0);
    mRenderer.Scale(2, 2, 1);
    Draw(kPos_BlendingOFF, kPrimitive_TriangleStrip, StripOf(-2, -2, 2, 2));
    mRenderer.PopModelView();
    mRenderer.PopProjection();
    // Translated first, scaled then: the centre comes to (16, 8), y upward, and the half side to 4.
    EXPECT_EQ(Read().DrawnArea(), (Area{ 44, 20, 52, 28 }));
}

TEST_F(ShaderSets, APerspectiveDividesByTheDistance) {
    constexpr float kRightAngle = 1.57079633f;
    mRenderer.SetColor(kFloatWhite, 1);
    mRenderer.PushPerspectiveProjection(kRightAngle, 1, 1, 100);
    mRenderer.PushModelView();
    mRenderer.Translate(0, 0, 2.001f); // a right angle: half the view's side is the distance
    Draw(kPos_BlendingOFF, kPrimitive_TriangleStrip, StripOf(-1, -1, 1, 1));
    EXPECT_EQ(Read().DrawnArea(), kMiddle);
}

TEST_F(ShaderSets, NothingIsDrawnNearerThanDistanceOne) {
    mRenderer.SetColor(kFloatWhite, 1);
    mRenderer.PushPerspectiveProjection(1, 1, 0.1f, 100);
    mRenderer.PushModelView();
    mRenderer.Translate(0, 0, 0.9f);
    Draw(kPos_BlendingOFF, kPrimitive_TriangleStrip, StripOf(-1, -1, 1, 1));
    EXPECT_EQ(Read().DrawnArea(), Area{});
}

TEST_F(ShaderSets, BShowsTheTextureTimesTheTint) {
    const Colour texels[] = { kRed, kGreen, kBlue, kWhite };
    const TexturePtr texture = MakeTexture(mRenderer, 2, texels);
    const float tint[4] = { 1, 0.5f, 0.25f, 1 };
    mRenderer.SetColor(tint, 0.5f);
    Draw(kPos_TexCoord_BlendingOFF, kPrimitive_TriangleStrip, StripOf(-1, -1, 1, 1, Coordinates),
         texture.get());
    const Picture picture = Read();
    // Within a quarter of the side from a corner nothing is mixed: the sampler clamps.
    EXPECT_TRUE(picture.IsFilled({ 0, 0, 16, 16 }, { 255, 0, 0, 128 }));
    EXPECT_TRUE(picture.IsFilled({ 48, 0, 64, 16 }, { 0, 128, 0, 128 }));
    EXPECT_TRUE(picture.IsFilled({ 0, 48, 16, 64 }, { 0, 0, 64, 128 }));
    EXPECT_TRUE(picture.IsFilled({ 48, 48, 64, 64 }, { 255, 128, 64, 128 }));
}

TEST_F(ShaderSets, BMixesTexelsLinearly) {
    const Colour texels[] = { { 0, 0, 0, 255 }, { 255, 255, 255, 255 } };
    const TexturePtr texture = MakeTexture(mRenderer, 2, texels);
    mRenderer.SetColor(kFloatWhite, 1);
    Draw(kPos_TexCoord_BlendingOFF, kPrimitive_TriangleStrip, StripOf(-1, -1, 1, 1, Coordinates),
         texture.get());
    const Picture picture = Read();
    // Texel centres lie at a quarter and three quarters; column 24 is at (24.5 / 64 - 1/4) * 2 between them.
    EXPECT_TRUE(IsNear(picture.At(24, 30), { 68, 68, 68, 255 }));
    EXPECT_TRUE(IsNear(picture.At(39, 30), { 187, 187, 187, 255 }));
}

TEST_F(ShaderSets, CShowsTheTextureTimesTheVertexColourAndNoTint) {
    const Colour texels[] = { kRed, kGreen, kBlue, kWhite };
    const TexturePtr texture = MakeTexture(mRenderer, 2, texels);
    mRenderer.SetColor(kFloatBlack, 0);
    Draw(kPos_Colr_TexCoord_BlendingOFF, kPrimitive_TriangleStrip,
         StripOf(-1, -1, 1, 1,
                 [](int corner) {
                     const Floats at = Coordinates(corner);
                     return Floats{ 0.5f, 1.0f, 0.25f, 0.75f, at[0], at[1] };
                 }),
         texture.get());
    const Picture picture = Read();
    EXPECT_TRUE(picture.IsFilled({ 0, 0, 16, 16 }, { 128, 0, 0, 191 }));
    EXPECT_TRUE(picture.IsFilled({ 48, 0, 64, 16 }, { 0, 255, 0, 191 }));
    EXPECT_TRUE(picture.IsFilled({ 0, 48, 16, 64 }, { 0, 0, 64, 191 }));
    EXPECT_TRUE(picture.IsFilled({ 48, 48, 64, 64 }, { 128, 255, 64, 191 }));
}

TEST_F(ShaderSets, DShowsTheVertexColourAndNoTint) {
    mRenderer.SetColor(kFloatBlack, 0);
    Draw(kPos_Colr_BlendingOFF, kPrimitive_TriangleStrip, StripOf(-1, -1, 1, 1, [](int) {
             return Floats{ 0.25f, 0.5f, 1.0f, 0.75f };
         }));
    EXPECT_TRUE(Read().IsFilled(kWhole, { 64, 128, 255, 191 }));
}

TEST_F(ShaderSets, DMixesTheColoursOfItsVertices) {
    Draw(kPos_Colr_BlendingOFF, kPrimitive_TriangleStrip, StripOf(-1, -1, 1, 1, [](int corner) {
             return Floats{ corner % 2 ? 1.0f : 0.0f, corner / 2 ? 1.0f : 0.0f, 0, 1 };
         }));
    const Picture picture = Read();
    for (const int at : { 0, 13, 31, 50, 63 }) {
        const double share = (at + 0.5) / 64; // red grows to the right, green upward
        const auto value = static_cast<std::uint8_t>(share * 255 + 0.5);
        EXPECT_TRUE(IsNear(picture.At(at, 10), { value, 213, 0, 255 })) << "column " << at;
        EXPECT_TRUE(IsNear(picture.At(10, 63 - at), { 42, value, 0, 255 })) << "row " << 63 - at;
    }
}

TEST_F(ShaderSets, DKeepsTheFarSideOfDepthOneAndTheNearSideOfZeroAway) {
    mRenderer.SetColor(kFloatWhite, 1);
    for (const float z : { -0.01f, 1.01f }) {
        mRenderer.PushModelView();
        mRenderer.Translate(0, 0, z);
        Draw(kPos_BlendingOFF, kPrimitive_TriangleStrip, StripOf(-1, -1, 1, 1));
        mRenderer.PopModelView();
    }
    EXPECT_EQ(Read().DrawnArea(), Area{});
}

TEST_F(ShaderSets, LaterDrawsCoverEarlierOnesWhateverTheirDepth) {
    mRenderer.PushModelView();
    for (const float z : { 0.1f, 0.9f }) {
        const float colour[4] = { z, z, z, 1 };
        mRenderer.SetColor(colour, 1);
        mRenderer.LoadIdentityModelView();
        mRenderer.Translate(0, 0, z);
        Draw(kPos_BlendingOFF, kPrimitive_TriangleStrip, StripOf(-1, -1, 1, 1));
    }
    EXPECT_TRUE(Read().IsFilled(kWhole, { 230, 230, 230, 255 })); // 0.9 of 255, the farther one
}

TEST_F(ShaderSets, WithoutATextureASetThatReadsOneDrawsBlack) {
    Draw(kPos_Colr_TexCoord_BlendingOFF, kPrimitive_TriangleStrip,
         StripOf(-1, -1, 1, 1, [](int) { return Floats{ 1, 1, 1, 1, 0, 0 }; }));
    EXPECT_TRUE(Read().IsFilled(kWhole, { 0, 0, 0, 0 }));
}

TEST_F(ShaderSets, EveryKindIsBuiltAndNineAndSeventeenReadEightAndSixteen) {
    for (std::uint32_t kind = 0; kind <= 19; ++kind) {
        IRenderingPipeline* const pipeline = mRenderer.GetPipeline(kind);
        ASSERT_NE(pipeline, nullptr) << kind;
        EXPECT_EQ(pipeline->Kind(), kind == 9 ? 8 : kind == 17 ? 16 : kind);
        EXPECT_EQ(mRenderer.GetPipeline(kind), pipeline);
        EXPECT_EQ(mRenderer.FindPipeline(kind), pipeline);
        EXPECT_NE(mRenderer.CreateVertexBuffer("", kPrimitive_Triangles, pipeline, 3, 1, nullptr), 0u)
            << kind;
    }
    EXPECT_EQ(mRenderer.GetPipeline(20), nullptr);
}

} // namespace
} // namespace orvane::tests
