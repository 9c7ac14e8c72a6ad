#include "unit/render/ImmediateRendererFixture.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cstdint>
#include <vector>

namespace orvane::render {
namespace {

class TexturedQuadDraw : public ImmediateRendererTest {
protected:
    std::uint32_t Draw(float alpha, std::uint32_t colorMode, int bufferId) {
        const double destination[4] = { 0.25, 0.125, 0.5, 0.25 }, source[4] = { 0, 0, 1, 1 };
        return mRenderer.DrawTexturedQuad(mTexture.get(), bufferId, destination, source, alpha, colorMode);
    }

    const std::array<float, 4>& Tint() const { return mRenderer.Draws().back().tint; }

    const std::uint32_t mPixels[4] = { 1, 2, 3, 4 };
    const TexturePtr mTexture{ mRenderer.CreateTexture(mPixels, 2, 2, 8, 0, kPixelFormat_BGRA8, "t", 0,
                                                       false) };
    const int mQuad = MakeBuffer(kPos_TexCoord_SrcAlpha_DstAlphaOne, 4, kPrimitive_TriangleStrip);
};

TEST_F(TexturedQuadDraw, DrawsFourVerticesOfAStripWithTheTexture) {
    EXPECT_EQ(Draw(1, kColorMode_White, mQuad), kStatus_Success);
    ASSERT_EQ(mRenderer.Draws().size(), 1u);
    const DrawRecord& draw = mRenderer.Draws()[0];
    EXPECT_EQ(draw.primitive, kPrimitive_TriangleStrip);
    EXPECT_EQ(draw.texture, mTexture.get());
    ASSERT_TRUE(draw.unitImages[0]);
    EXPECT_EQ(draw.unitImages[0]->Texel(1, 1), 4u);
    const float z = std::bit_cast<float>(0x3DCCCCCDu);
    EXPECT_EQ(draw.vertices, (std::vector<float>{ 0.5f,  -0.75f, z, 1, 1, //
                                                  0.5f,  -0.25f, z, 1, 0, //
                                                  -0.5f, -0.75f, z, 0, 1, //
                                                  -0.5f, -0.25f, z, 0, 0 }));
}

TEST_F(TexturedQuadDraw, AlphaTwoDrawsWithOneAndAlphaMinusOneWithZero) {
    Draw(2, kColorMode_White, mQuad);
    EXPECT_EQ(Tint(), (std::array<float, 4>{ 1, 1, 1, 1 }));
    Draw(-1, kColorMode_White, mQuad);
    EXPECT_EQ(Tint(), (std::array<float, 4>{ 1, 1, 1, 0 }));
    Draw(0.25f, kColorMode_White, mQuad);
    EXPECT_EQ(Tint(), (std::array<float, 4>{ 1, 1, 1, 0.25f }));
}

TEST_F(TexturedQuadDraw, ColorModesSetWhiteOrBlackAndOthersLeaveTheColour) {
    const float colour[4] = { 0.1f, 0.2f, 0.3f, 9 };
    Draw(0.5f, kColorMode_Black, mQuad);
    EXPECT_EQ(Tint(), (std::array<float, 4>{ 0, 0, 0, 0.5f }));
    mRenderer.SetColor(colour, 0.75f);
    Draw(0.5f, 2, mQuad);
    EXPECT_EQ(Tint(), (std::array<float, 4>{ 0.1f, 0.2f, 0.3f, 0.75f }));
}

TEST_F(TexturedQuadDraw, AnUnknownOrTooSmallBufferIsAFailure) {
    EXPECT_EQ(Draw(1, kColorMode_White, 0), kStatus_Failure);
    EXPECT_EQ(Draw(1, kColorMode_White, mQuad + 1), kStatus_Failure);
    const int three = MakeBuffer(kPos_TexCoord_SrcAlpha_DstAlphaOne, 3, kPrimitive_TriangleStrip);
    EXPECT_EQ(Draw(1, kColorMode_White, three), kStatus_Failure);
    EXPECT_TRUE(mRenderer.Draws().empty());
}

TEST_F(TexturedQuadDraw, AFailedMappingStillDraws) {
    mRenderer.Refuse(Refusal::VertexMapping);
    EXPECT_EQ(Draw(1, kColorMode_White, mQuad), kStatus_Success);
    EXPECT_EQ(mRenderer.Draws().size(), 1u);
}

TEST_F(TexturedQuadDraw, IsDrawnUnderTheMatricesInForce) {
    mRenderer.PushIdentityModelView();
    mRenderer.Translate(0.5f, 0, 0);
    Draw(1, kColorMode_White, mQuad);
    EXPECT_EQ(mRenderer.Draws()[0].matrix, TranslationMatrix(0.5f, 0, 0));
}

} // namespace
} // namespace orvane::render
