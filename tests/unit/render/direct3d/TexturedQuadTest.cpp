// DrawTexturedQuad, the way in which panels and pictures get onto the target.
#include "support/direct3d/Direct3DTest.h"

#include "render/PipelineKind.h"

namespace orvane::tests {
namespace {

using namespace render;

constexpr Colour kRed = { 255, 0, 0, 255 }, kGreen = { 0, 255, 0, 255 };
constexpr Colour kBlue = { 0, 0, 255, 255 }, kWhite = { 255, 255, 255, 255 };
constexpr double kUnitSquare[4] = { 0, 0, 1, 1 };
constexpr std::uint32_t kLeaveColour = 2;

class TexturedQuad : public Direct3DTest {
protected:
    void SetUp() override {
        Direct3DTest::SetUp();
        const Colour texels[] = { kRed, kGreen, kBlue, kWhite };
        mTexture = MakeTexture(mRenderer, 2, texels);
        const Colour white[] = { kWhite };
        mWhite = MakeTexture(mRenderer, 1, white);
        mOpaque = Quad(kPos_TexCoord_BlendingOFF);
        mAdding = Quad(kPos_TexCoord_SrcAlpha_DstAlphaOne); // as the panels'
    }

    int Quad(std::uint32_t kind) {
        return static_cast<int>(mRenderer.CreateVertexBuffer("quad", kPrimitive_TriangleStrip,
                                                             mRenderer.GetPipeline(kind), 4, 1, nullptr));
    }

    TexturePtr mTexture, mWhite;
    int mOpaque = 0, mAdding = 0;
};

// x from 16 to 48; y grows upward, so 0.5 to 0.75 of it is the rows 16 to 32.
TEST_F(TexturedQuad, StandsAtItsStatedCornersWithTheTextureUpright) {
    const double destination[4] = { 0.25, 0.5, 0.5, 0.25 };
    EXPECT_EQ(
        mRenderer.DrawTexturedQuad(mTexture.get(), mOpaque, destination, kUnitSquare, 1, kColorMode_White),
        kStatus_Success);
    const Picture picture = Read();
    EXPECT_EQ(picture.DrawnArea(), (Area{ 16, 16, 48, 32 }));
    EXPECT_TRUE(picture.IsFilled({ 16, 16, 24, 20 }, kRed));
    EXPECT_TRUE(picture.IsFilled({ 40, 16, 48, 20 }, kGreen));
    EXPECT_TRUE(picture.IsFilled({ 16, 28, 24, 32 }, kBlue));
    EXPECT_TRUE(picture.IsFilled({ 40, 28, 48, 32 }, kWhite));
}

// A source that is one texel's own quarter: y grows downward in it.
TEST_F(TexturedQuad, ShowsTheSourceRectangleOnly) {
    const struct {
        double source[4];
        Colour texel;
    } kCases[] = { { { 0, 0, 0.25, 0.25 }, kRed },
                   { { 0.75, 0, 0.25, 0.25 }, kGreen },
                   { { 0, 0.75, 0.25, 0.25 }, kBlue },
                   { { 0.75, 0.75, 0.25, 0.25 }, kWhite } };

    for (const auto& row : kCases) {
        mRenderer.DrawTexturedQuad(mTexture.get(), mOpaque, kUnitSquare, row.source, 1, kColorMode_White);
        EXPECT_TRUE(Read().IsFilled({ 0, 0, 64, 64 }, row.texel)) << testing::PrintToString(row.texel);
    }
}

TEST_F(TexturedQuad, AlphaTwoDrawsWithOneAndAlphaMinusOneWithZero) {
    mRenderer.DrawTexturedQuad(mWhite.get(), mAdding, kUnitSquare, kUnitSquare, -1, kColorMode_White);
    EXPECT_EQ(Read().DrawnArea(), Area{});
    mRenderer.DrawTexturedQuad(mWhite.get(), mAdding, kUnitSquare, kUnitSquare, 0.5f, kColorMode_White);
    EXPECT_TRUE(Read().IsFilled({ 0, 0, 64, 64 }, { 128, 128, 128, 255 }));
    mRenderer.Clear(kFloatBlack);
    mRenderer.DrawTexturedQuad(mWhite.get(), mAdding, kUnitSquare, kUnitSquare, 2, kColorMode_White);
    EXPECT_TRUE(Read().IsFilled({ 0, 0, 64, 64 }, kWhite));
    // What the texture is multiplied with, alpha too, shows unblended.
    mRenderer.DrawTexturedQuad(mWhite.get(), mOpaque, kUnitSquare, kUnitSquare, 2, kColorMode_White);
    EXPECT_TRUE(Read().IsFilled({ 0, 0, 64, 64 }, kWhite));
    mRenderer.DrawTexturedQuad(mWhite.get(), mOpaque, kUnitSquare, kUnitSquare, -1, kColorMode_White);
    EXPECT_TRUE(Read().IsFilled({ 0, 0, 64, 64 }, { 255, 255, 255, 0 }));
}

TEST_F(TexturedQuad, TheColourModeIsWhiteOrBlackOrLeavesTheColour) {
    const float orange[4] = { 1, 0.5f, 0, 1 };
    mRenderer.SetColor(orange, 1);
    mRenderer.DrawTexturedQuad(mWhite.get(), mOpaque, kUnitSquare, kUnitSquare, 0.5f, kLeaveColour);
    EXPECT_TRUE(Read().IsFilled({ 0, 0, 64, 64 }, { 255, 128, 0, 255 }));
    mRenderer.DrawTexturedQuad(mWhite.get(), mOpaque, kUnitSquare, kUnitSquare, 0.5f, kColorMode_Black);
    EXPECT_TRUE(Read().IsFilled({ 0, 0, 64, 64 }, { 0, 0, 0, 128 }));
    mRenderer.DrawTexturedQuad(mWhite.get(), mOpaque, kUnitSquare, kUnitSquare, 0.5f, kColorMode_White);
    EXPECT_TRUE(Read().IsFilled({ 0, 0, 64, 64 }, { 255, 255, 255, 128 }));
}

TEST_F(TexturedQuad, IsDrawnUnderWhateverTheStacksHold) {
    mRenderer.PushModelView();
    mRenderer.Scale2D(0.5f, 0.25f);
    mRenderer.DrawTexturedQuad(mWhite.get(), mOpaque, kUnitSquare, kUnitSquare, 1, kColorMode_White);
    EXPECT_EQ(Read().DrawnArea(), (Area{ 16, 24, 48, 40 }));
}

TEST_F(TexturedQuad, AnUnknownBufferIsAFailure) {
    EXPECT_EQ(mRenderer.DrawTexturedQuad(mWhite.get(), 0, kUnitSquare, kUnitSquare, 1, kColorMode_White),
              kStatus_Failure);
    EXPECT_EQ(mRenderer.DrawTexturedQuad(mWhite.get(), 3, kUnitSquare, kUnitSquare, 1, kColorMode_White),
              kStatus_Failure);
    EXPECT_EQ(Read().DrawnArea(), Area{});
}

} // namespace
} // namespace orvane::tests
