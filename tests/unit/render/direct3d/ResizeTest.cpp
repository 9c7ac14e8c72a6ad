// ResizeRenderTarget: what it asks of the platform, and that drawing goes on afterwards.
#include "support/direct3d/Direct3DTest.h"
#include "support/direct3d/Hook.h"

#include "render/PipelineKind.h"

#include <limits>
#include <memory>

namespace orvane::tests {
namespace {

using namespace render;

constexpr double kTwice[4] = { 0, 0, 128, 96 };

class ResizeRenderTarget : public Direct3DTest {};

TEST_F(ResizeRenderTarget, TheSameSceneIsDrawnInTheNewSizeWithTheOldResources) {
    const Colour texels[] = { { 255, 0, 0, 255 }, { 0, 255, 0, 255 } };
    const TexturePtr texture = MakeTexture(mRenderer, 2, texels);
    const std::uint8_t index = 200;
    const TexturePtr image(mRenderer.CreateTexture(&index, 1, 1, 1, 0, kPixelFormat_R8UInt, "", 0, false));
    const std::unique_ptr<IBufferTexture> table(mRenderer.CreateBufferTexture(256, "", 1));
    std::vector<float> entries(256 * 4, 1.0f);
    entries[200 * 4] = 0;
    ASSERT_TRUE(table->UpdateData(entries.data(), entries.size() * sizeof(float)));
    const int tinted = Buffer(kPos_BlendingOFF, kPrimitive_TriangleStrip, StripOf(-1, 0, 0, 1));
    const int textured =
        Buffer(kPos_TexCoord_BlendingOFF, kPrimitive_TriangleStrip, StripOf(0, 0, 1, 1, [](int corner) {
                   return Floats{ corner % 2 ? 1.0f : 0, 0.5f };
               }));
    const int sprite = Buffer(kPosition_Color_PointSprite_BlendingOFF, kPrimitive_Points,
                              { -0.5f, -0.5f, 0, 1, 1, 1, 1, 0.5f / 0.707106f });
    const int indexed = Buffer(kPosition_TextureCoord_CLUT_TexelFetch_BlendingOFF, kPrimitive_TriangleStrip,
                               StripOf(0, -1, 1, 0, [](int) {
                                   return Floats{ 0, 0 };
                               }));
    const auto drawScene = [&] {
        mRenderer.Clear(kFloatBlack);
        const float blue[4] = { 0, 0, 1, 1 };
        mRenderer.SetColor(blue, 1);
        mRenderer.DrawVertexBuffer(nullptr, tinted, 0, 4);
        mRenderer.SetColor(kFloatWhite, 1);
        mRenderer.DrawVertexBuffer(texture.get(), textured, 0, 4);
        mRenderer.DrawVertexBuffer(texture.get(), sprite, 0, 1);
        table->Bind();
        mRenderer.DrawVertexBuffer(image.get(), indexed, 0, 4);
    };
    const auto checkScene = [this](int width, int height) {
        const Picture picture = Read();
        ASSERT_EQ(picture.Width(), width);
        ASSERT_EQ(picture.Height(), height);
        const int x = width / 2, y = height / 2;
        EXPECT_TRUE(picture.IsFilled({ 0, 0, x, y }, { 0, 0, 255, 255 }));
        for (const int top : { 0, y }) { // the quad on the upper right and the sprite on the lower left
            const int left = top == 0 ? x : 0;
            EXPECT_TRUE(picture.IsFilled({ left, top, left + x / 4, top + y }, { 255, 0, 0, 255 }));
            EXPECT_TRUE(picture.IsFilled({ left + x - x / 4, top, left + x, top + y }, { 0, 255, 0, 255 }));
        }
        EXPECT_TRUE(picture.IsFilled({ x, y, width, height }, { 0, 255, 255, 255 }));
    };
    drawScene();
    checkScene(64, 64);
    mRenderer.Present();
    mWindow.Resize(128, 96);
    mRenderer.ResizeRenderTarget(kTwice);
    drawScene();
    checkScene(128, 96);
    const double smaller[4] = { 0, 0, 32, 16 };
    mRenderer.ResizeRenderTarget(smaller);
    drawScene();
    checkScene(32, 16);
}

TEST_F(ResizeRenderTarget, AsksForOneBufferOfThatManyWholePixelsInTheOldFormat) {
    const Hook<&IDXGISwapChain::ResizeBuffers> calls(SwapChain());
    const double rect[4] = { 5, 6, 100.9, 50.2 };
    mRenderer.ResizeRenderTarget(rect);
    ASSERT_EQ(calls.Calls().size(), 1u);
    EXPECT_EQ(calls.Calls()[0],
              (std::tuple<UINT, UINT, UINT, DXGI_FORMAT, UINT>(1, 100, 50, DXGI_FORMAT(0), 0)));
    double viewport[4];
    mRenderer.GetViewport(viewport);
    EXPECT_EQ(viewport[2], 100.9);
    EXPECT_EQ(viewport[3], 50.2);
    EXPECT_EQ(Picture(mRenderer).Width(), 100);
}

TEST_F(ResizeRenderTarget, ASizeOfZeroIsPassedOnAsItStands) {
    const Hook<&IDXGISwapChain::ResizeBuffers> calls(SwapChain());
    const double nothing[4] = { 0, 0, 0, 0 };
    mRenderer.ResizeRenderTarget(nothing);
    ASSERT_EQ(calls.Calls().size(), 1u);
    EXPECT_EQ(std::get<1>(calls.Calls()[0]), 0u);
    EXPECT_EQ(std::get<2>(calls.Calls()[0]), 0u);
    const double negative[4] = { 0, 0, -5, std::numeric_limits<double>::quiet_NaN() };
    mRenderer.ResizeRenderTarget(negative);
    EXPECT_EQ(std::get<1>(calls.Calls()[1]), 0u);
    EXPECT_EQ(std::get<2>(calls.Calls()[1]), 0u);
    // Drawing into nothing, or what the platform made of it, is harmless; the next size is in force.
    mRenderer.Clear(kFloatWhite);
    mRenderer.Present();
    mRenderer.ResizeRenderTarget(kTwice);
    mRenderer.Clear(kFloatWhite);
    EXPECT_EQ(Read().Count({ 255, 255, 255, 255 }), 128 * 96);
}

TEST_F(ResizeRenderTarget, FillsSolidAfterwardsEvenIfWireframeWasSet) {
    mRenderer.SetWireframe(true);
    mRenderer.ResizeRenderTarget(kTwice);
    mRenderer.Clear(kFloatBlack);
    mRenderer.SetColor(kFloatWhite, 1);
    Draw(kPos_BlendingOFF, kPrimitive_TriangleStrip, StripOf(-1, -1, 1, 1));
    EXPECT_EQ(Read().Count({ 255, 255, 255, 255 }), 128 * 96);
}

TEST_F(ResizeRenderTarget, KeepsTheBlendModeButNotTheStateOnTheDevice) {
    mRenderer.SetBlendMode(kBlendMode_Additive);
    mRenderer.ResizeRenderTarget(kTwice);
    ComPtr<ID3D11BlendState> state;
    Context()->OMGetBlendState(&state, nullptr, nullptr);
    EXPECT_EQ(state, nullptr);
    // Additive is still told to be in force, so setting it again reaches no device.
    const Hook<&ID3D11DeviceContext::OMSetBlendState> calls(Context());
    EXPECT_EQ(mRenderer.SetBlendMode(kBlendMode_Additive), kBlendMode_Additive);
    EXPECT_EQ(calls.Calls().size(), 0u);
    EXPECT_EQ(mRenderer.SetBlendMode(kBlendMode_Off), kBlendMode_Additive);
    EXPECT_EQ(calls.Calls().size(), 1u); // the note says that a state is set, so it is cleared
}

TEST_F(ResizeRenderTarget, UnbindsTheTintUntilSetColorBindsIt) {
    mRenderer.SetColor(kFloatWhite, 1);
    mRenderer.ResizeRenderTarget(kTwice);
    ComPtr<ID3D11Buffer> bound;
    Context()->PSGetConstantBuffers(0, 1, &bound);
    EXPECT_EQ(bound, nullptr);
    mRenderer.SetColor(kFloatWhite, 1);
    Context()->PSGetConstantBuffers(0, 1, &bound);
    EXPECT_NE(bound, nullptr);
}

TEST_F(ResizeRenderTarget, AFailureLeavesNoTargetUntilTheNextResize) {
    {
        const Hook<&IDXGISwapChain::ResizeBuffers> fails(SwapChain(),
                                                         Always(HRESULT(DXGI_ERROR_INVALID_CALL)));
        mRenderer.ResizeRenderTarget(kTwice);
    }
    EXPECT_EQ(mRenderer.RenderTarget(), nullptr);
    ComPtr<ID3D11RenderTargetView> bound;
    Context()->OMGetRenderTargets(1, &bound, nullptr);
    EXPECT_EQ(bound, nullptr);
    mRenderer.Clear(kFloatWhite);
    mRenderer.SetColor(kFloatWhite, 1);
    Draw(kPos_BlendingOFF, kPrimitive_TriangleStrip, StripOf(-1, -1, 1, 1));
    mRenderer.Present();
    double viewport[4];
    EXPECT_EQ(mRenderer.GetViewport(viewport)[2], 64); // as before
    mRenderer.ResizeRenderTarget(kTwice);
    mRenderer.Clear(kFloatWhite);
    EXPECT_EQ(Read().Count({ 255, 255, 255, 255 }), 128 * 96);
}

} // namespace
} // namespace orvane::tests
