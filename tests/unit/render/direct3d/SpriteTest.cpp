// Set E: points that become squares.
#include "support/direct3d/Direct3DTest.h"

#include "render/PipelineKind.h"

namespace orvane::tests {
namespace {

using namespace render;

constexpr Colour kRed = { 255, 0, 0, 255 }, kGreen = { 0, 255, 0, 255 };
constexpr Colour kBlue = { 0, 0, 255, 255 }, kWhite = { 255, 255, 255, 255 };

constexpr auto kKind = kPosition_Color_PointSprite_BlendingOFF;

class Sprite : public Direct3DTest {
protected:
    // One white point of that radius.
    void DrawPoint(Direct3DRenderer& renderer, float x, float y, float z, float radius,
                   std::span<const Colour> texels, std::uint32_t width) const {
        const TexturePtr texture = MakeTexture(renderer, width, texels);
        const float vertex[] = { x, y, z, 1, 1, 1, 1, radius };
        const auto buffer =
            renderer.CreateVertexBuffer("", kPrimitive_Points, renderer.GetPipeline(kKind), 1, 1, vertex);
        EXPECT_TRUE(renderer.DrawVertexBuffer(texture.get(), static_cast<int>(buffer), 0, 1));
    }

    const Colour mWhite[1] = { kWhite };
};

// 0.707106 of the half side of 32 pixels: from 9.37 to 54.63, so pixels whose centres are 9.5 to 54.5.
TEST_F(Sprite, RadiusOneAtWOneCoversTheSquareOfHalfSide0707106InBothAxes) {
    DrawPoint(mRenderer, 0, 0, 0, 1, mWhite, 1);
    const Picture picture = Read();
    EXPECT_EQ(picture.DrawnArea(), (Area{ 9, 9, 55, 55 }));
    EXPECT_TRUE(picture.IsFilled({ 9, 9, 55, 55 }, kWhite));
}

// Half of that about the centre: from 20.69 to 43.31.
TEST_F(Sprite, ItShrinksWithDistanceLikeTheGeometry) {
    constexpr float kRightAngle = 1.57079633f;
    mRenderer.PushPerspectiveProjection(kRightAngle, 1, 1, 100);
    DrawPoint(mRenderer, 0, 0, 2, 1, mWhite, 1);
    EXPECT_EQ(Read().DrawnArea(), (Area{ 21, 21, 43, 43 }));
}

// Twice as wide as high in a view that is: from 18.75 to 109.25 across.
TEST_F(Sprite, ItKnowsNothingOfTheViewsAspect) {
    const TestWindow window(128, 64);
    Direct3DRenderer renderer;
    ASSERT_TRUE(renderer.Create(128, 64, window.AsNative()));
    renderer.Clear(kFloatBlack);
    DrawPoint(renderer, 0, 0, 0, 1, mWhite, 1);
    EXPECT_EQ(Picture(renderer).DrawnArea(), (Area{ 19, 9, 109, 55 }));
}

// Half side 0.5 about (0.5, -0.25): x from 32 to 64, y from 24 to 56 of 64, downward. A quarter of the side
// from each corner shows one texel alone.
TEST_F(Sprite, ItsImageStandsWithTheFirstRowAtTheBottom) {
    const Colour texels[] = { kRed, kGreen, kBlue, kWhite };
    DrawPoint(mRenderer, 0.5f, -0.25f, 0, 0.5f / 0.707106f, texels, 2);
    const Picture picture = Read();
    EXPECT_EQ(picture.DrawnArea(), (Area{ 32, 24, 64, 56 }));
    EXPECT_TRUE(picture.IsFilled({ 32, 48, 40, 56 }, kRed));
    EXPECT_TRUE(picture.IsFilled({ 56, 48, 64, 56 }, kGreen));
    EXPECT_TRUE(picture.IsFilled({ 32, 24, 40, 32 }, kBlue));
    EXPECT_TRUE(picture.IsFilled({ 56, 24, 64, 32 }, kWhite));
}

TEST_F(Sprite, TheColourMultipliesTheImageAndTheTintDoesNot) {
    const Colour texels[] = { { 255, 128, 255, 128 } };
    const TexturePtr texture = MakeTexture(mRenderer, 1, texels);
    mRenderer.SetColor(kFloatBlack, 0);
    Draw(kKind, kPrimitive_Points, { 0, 0, 0, 0.5f, 1, 0.25f, 1, 2 }, texture.get());
    EXPECT_TRUE(Read().IsFilled({ 0, 0, 64, 64 }, { 128, 128, 64, 128 }));
}

TEST_F(Sprite, TheGeometryStageIsGoneAfterTheDraw) {
    DrawPoint(mRenderer, 0, 0, 0, 0.1f, mWhite, 1);
    ComPtr<ID3D11GeometryShader> stage;
    Context()->GSGetShader(&stage, nullptr, nullptr);
    EXPECT_EQ(stage, nullptr);
    mRenderer.Clear(kFloatBlack);
    mRenderer.SetColor(kFloatWhite, 1);
    Draw(kPos_BlendingOFF, kPrimitive_TriangleStrip, StripOf(-0.5f, -0.5f, 0.5f, 0.5f));
    EXPECT_EQ(Read().DrawnArea(), (Area{ 16, 16, 48, 48 }));
}

} // namespace
} // namespace orvane::tests
