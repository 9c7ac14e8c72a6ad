// How the device is set up, and what is left of a renderer when a step of it fails.
#include "support/direct3d/DeviceCreationHook.h"
#include "support/direct3d/Direct3DTest.h"
#include "support/direct3d/Hook.h"

#include "render/PipelineKind.h"

#include <bit>
#include <memory>

namespace orvane::tests {
namespace {

using namespace render;

// The renderer of the fixture is there so that a second one can be made while an operation is hooked.
class SetUpOfRenderer : public Direct3DTest {
protected:
    bool CreateSecond() { return mSecond.Create(kSide, kSide, mSecondWindow.AsNative()); }

    ComPtr<IDXGIFactory> Factory() const {
        ComPtr<IDXGIFactory> factory;
        SwapChain()->GetParent(IID_PPV_ARGS(&factory));
        return factory;
    }

    TestWindow mSecondWindow{ kSide, kSide };
    Direct3DRenderer mSecond;
};

TEST_F(SetUpOfRenderer, AsksForTheStatedDeviceAndSwapChain) {
    const DeviceCreationHook hook;
    ASSERT_TRUE(mSecond.Create(48, 32, mSecondWindow.AsNative()));
    ASSERT_EQ(hook.Calls().size(), 1u);
    const DeviceCreation& call = hook.Calls()[0];
    EXPECT_EQ(call.adapter, nullptr);
    EXPECT_EQ(call.driverType, 1);
    EXPECT_EQ(call.software, nullptr);
    EXPECT_EQ(call.flags, 0x21u);
    EXPECT_FALSE(call.hasFeatureLevels);
    EXPECT_EQ(call.featureLevels, 0u);
    EXPECT_EQ(call.sdkVersion, 7u);
    const DXGI_SWAP_CHAIN_DESC& asked = call.swapChain;
    EXPECT_EQ(asked.BufferDesc.Width, 48u);
    EXPECT_EQ(asked.BufferDesc.Height, 32u);
    EXPECT_EQ(asked.BufferDesc.RefreshRate.Numerator, 60u);
    EXPECT_EQ(asked.BufferDesc.RefreshRate.Denominator, 1u);
    EXPECT_EQ(asked.BufferDesc.Format, 28);
    EXPECT_EQ(asked.BufferDesc.ScanlineOrdering, 0);
    EXPECT_EQ(asked.BufferDesc.Scaling, 0);
    EXPECT_EQ(asked.SampleDesc.Count, 1u);
    EXPECT_EQ(asked.SampleDesc.Quality, 0u);
    EXPECT_EQ(asked.BufferUsage, 0x20u);
    EXPECT_EQ(asked.BufferCount, 1u);
    EXPECT_EQ(asked.OutputWindow, mSecondWindow.Handle());
    EXPECT_TRUE(asked.Windowed);
    EXPECT_EQ(asked.SwapEffect, 0);
    EXPECT_EQ(asked.Flags, 2u);
    EXPECT_EQ(mSecond.Parts().featureLevel, mSecond.Parts().device->GetFeatureLevel());
}

TEST_F(SetUpOfRenderer, StartsWithTheWholeTargetAsViewportAndNoDepthTarget) {
    double viewport[4];
    EXPECT_EQ(mRenderer.GetViewport(viewport), viewport);
    EXPECT_EQ(std::vector(viewport, viewport + 4), (std::vector<double>{ 0, 0, 64, 64 }));
    ComPtr<ID3D11RenderTargetView> target;
    ComPtr<ID3D11DepthStencilView> depth;
    Context()->OMGetRenderTargets(1, &target, &depth);
    EXPECT_EQ(target.Get(), mRenderer.RenderTarget());
    EXPECT_EQ(depth, nullptr);
    EXPECT_EQ(mRenderer.ModelViewDepth(), 1u);
    EXPECT_EQ(mRenderer.ProjectionDepth(), 1u);
    EXPECT_EQ(mRenderer.SetBlendMode(kBlendMode_Off), kBlendMode_Off);
}

TEST_F(SetUpOfRenderer, FillsSolidCullsTheBackAndTakesCounterClockwiseForTheFront) {
    for (const bool wire : { false, true, false }) {
        mRenderer.SetWireframe(wire);
        ComPtr<ID3D11RasterizerState> state;
        Context()->RSGetState(&state);
        ASSERT_NE(state, nullptr);
        D3D11_RASTERIZER_DESC description{};
        state->GetDesc(&description);
        EXPECT_EQ(description.FillMode, wire ? 2 : 3);
        EXPECT_EQ(description.CullMode, 3);
        EXPECT_TRUE(description.FrontCounterClockwise);
        EXPECT_EQ(description.DepthBias, 0);
        EXPECT_EQ(description.DepthBiasClamp, 0);
        EXPECT_EQ(description.SlopeScaledDepthBias, 0);
        EXPECT_TRUE(description.DepthClipEnable);
        EXPECT_FALSE(description.ScissorEnable);
        EXPECT_FALSE(description.MultisampleEnable);
        EXPECT_FALSE(description.AntialiasedLineEnable);
    }
}

TEST_F(SetUpOfRenderer, MakesTwoDynamicConstantsAndThreeBlendStates) {
    std::vector<D3D11_BUFFER_DESC> buffers;
    std::vector<D3D11_BLEND_DESC> states;
    const Hook<&ID3D11Device::CreateBuffer> makesBuffers(
        Device(), [&buffers](const auto& next, const auto* description, auto* data, auto** buffer) {
            buffers.push_back(*description);
            return next(description, data, buffer);
        });
    const Hook<&ID3D11Device::CreateBlendState> makesStates(
        Device(), [&states](const auto& next, const auto* description, auto** state) {
            states.push_back(*description);
            return next(description, state);
        });
    ASSERT_TRUE(CreateSecond());
    ASSERT_EQ(buffers.size(), 2u);
    const UINT sizes[] = { 16, 64 };
    for (std::size_t i = 0; i < 2; ++i) {
        EXPECT_EQ(buffers[i].ByteWidth, sizes[i]);
        EXPECT_EQ(buffers[i].Usage, 2);
        EXPECT_EQ(buffers[i].BindFlags, 4u);
        EXPECT_EQ(buffers[i].CPUAccessFlags, 0x10000u);
    }
    ASSERT_EQ(states.size(), 3u);
    // enable, source and target of colour, then of alpha: 1 zero, 2 one, 5 source alpha, 6 its inverse
    const int expected[3][5] = { { 0, 2, 1, 2, 1 }, { 1, 5, 6, 2, 1 }, { 1, 5, 2, 1, 2 } };
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_FALSE(states[i].AlphaToCoverageEnable);
        EXPECT_FALSE(states[i].IndependentBlendEnable);
        const auto& target = states[i].RenderTarget[0];
        EXPECT_EQ(target.BlendEnable, expected[i][0]) << i;
        EXPECT_EQ(target.SrcBlend, expected[i][1]) << i;
        EXPECT_EQ(target.DestBlend, expected[i][2]) << i;
        EXPECT_EQ(target.BlendOp, 1) << i;
        EXPECT_EQ(target.SrcBlendAlpha, expected[i][3]) << i;
        EXPECT_EQ(target.DestBlendAlpha, expected[i][4]) << i;
        EXPECT_EQ(target.BlendOpAlpha, 1) << i;
        EXPECT_EQ(target.RenderTargetWriteMask, 15) << i;
    }
}

TEST_F(SetUpOfRenderer, LeavesAltEnterToTheProgram) {
    const Hook<&IDXGIFactory::MakeWindowAssociation> calls(Factory().Get());
    ASSERT_TRUE(CreateSecond());
    ASSERT_EQ(calls.Calls().size(), 1u);
    EXPECT_EQ(std::get<0>(calls.Calls()[0]), mSecondWindow.Handle());
    EXPECT_EQ(std::get<1>(calls.Calls()[0]), UINT(DXGI_MWA_NO_ALT_ENTER));
}

TEST_F(SetUpOfRenderer, SamplersClampAndFilterAsTheirNamesSay) {
    std::vector<D3D11_SAMPLER_DESC> made;
    const Hook<&ID3D11Device::CreateSamplerState> calls(
        Device(), [&made](const auto& next, const auto* description, auto** state) {
            made.push_back(*description);
            return next(description, state);
        });
    const std::unique_ptr<ISamplerState> linear(mRenderer.CreateLinearSamplerState("name"));
    const std::unique_ptr<ISamplerState> point(mRenderer.CreatePointSamplerState(nullptr));
    EXPECT_NE(linear, nullptr);
    EXPECT_NE(point, nullptr);
    ASSERT_EQ(made.size(), 2u);
    EXPECT_EQ(made[0].Filter, 21);
    EXPECT_EQ(made[1].Filter, 0);
    for (const auto& description : made) {
        EXPECT_EQ(description.AddressU, 3);
        EXPECT_EQ(description.AddressV, 3);
        EXPECT_EQ(description.AddressW, 3);
        EXPECT_EQ(description.MipLODBias, 0);
        EXPECT_EQ(description.MaxAnisotropy, 1u);
        EXPECT_EQ(description.ComparisonFunc, 1);
        for (const float border : description.BorderColor) EXPECT_EQ(border, 0);
        EXPECT_EQ(std::bit_cast<std::uint32_t>(description.MinLOD), 0xFF7FFFFFu);
        EXPECT_EQ(std::bit_cast<std::uint32_t>(description.MaxLOD), 0x7F7FFFFFu);
    }
}

TEST_F(SetUpOfRenderer, NoWindowIsNoRenderer) {
    EXPECT_FALSE(mSecond.Create(kSide, kSide, platform::NativeWindow{}));
}

TEST_F(SetUpOfRenderer, NoDeviceIsNoRendererAndWhatIsLeftOnlyDoesNothing) {
    const DeviceCreationHook fails(DXGI_ERROR_UNSUPPORTED);
    EXPECT_EQ(mSecond.Parts().featureLevel, 0xB000);
    EXPECT_FALSE(CreateSecond());
    EXPECT_EQ(fails.Calls().size(), 1u);
    EXPECT_EQ(mSecond.Parts().device, nullptr);
    const double rect[4] = { 0, 0, 10, 10 };
    mSecond.Clear(kFloatBlack);
    mSecond.SetColor(kFloatBlack, 1);
    mSecond.SetViewport(rect);
    mSecond.ResizeRenderTarget(rect);
    mSecond.SetWireframe(true);
    mSecond.BindTexture(nullptr);
    mSecond.SetBlendMode(kBlendMode_Alpha);
    mSecond.SetFullScreen(false);
    mSecond.Present();
    EXPECT_EQ(mSecond.GetPipeline(kPos_BlendingOFF), nullptr);
    EXPECT_EQ(mSecond.CreateTexture(nullptr, 1, 1, 0, 0, kPixelFormat_R8UInt, "", 0, true), nullptr);
    EXPECT_EQ(mSecond.CreateBufferTexture(1, "", 0), nullptr);
    EXPECT_EQ(mSecond.CreateLinearSamplerState(""), nullptr);
}

TEST_F(SetUpOfRenderer, NoBackBufferIsNoRenderer) {
    const Hook<&IDXGISwapChain::GetBuffer> fails(SwapChain(), Always(E_FAIL));
    EXPECT_FALSE(CreateSecond());
    EXPECT_EQ(fails.Calls().size(), 1u);
}

TEST_F(SetUpOfRenderer, NoTargetIsNoRenderer) {
    const Hook<&ID3D11Device::CreateRenderTargetView> fails(Device(), Always(E_FAIL));
    EXPECT_FALSE(CreateSecond());
    EXPECT_EQ(fails.Calls().size(), 1u);
}

TEST_F(SetUpOfRenderer, AFailedColourConstantEndsSetUpWithTrueAndNothingAfterIt) {
    const Hook<&ID3D11Device::CreateBlendState> states(Device());
    const Hook<&ID3D11Device::CreateRasterizerState> fills(Device());
    const Hook<&IDXGIFactory::MakeWindowAssociation> associations(Factory().Get());
    {
        const Hook<&ID3D11Device::CreateBuffer> fails(Device(), Always(E_OUTOFMEMORY));
        EXPECT_TRUE(CreateSecond());
        EXPECT_EQ(fails.Calls().size(), 1u);
    }
    EXPECT_EQ(states.Calls().size(), 0u);
    EXPECT_EQ(fills.Calls().size(), 0u);
    EXPECT_EQ(associations.Calls().size(), 0u);
    // It draws what needs neither constant; SetColor and the matrix do nothing.
    const Hook<&ID3D11DeviceContext::Map> maps(Context());
    mSecond.Clear(kFloatBlack);
    mSecond.SetColor(kFloatWhite, 1);
    const Floats strip = StripOf(-1, -1, 1, 1);
    const auto buffer = mSecond.CreateVertexBuffer("", kPrimitive_TriangleStrip,
                                                   mSecond.GetPipeline(kPos_BlendingOFF), 4, 1, strip.data());
    EXPECT_TRUE(mSecond.DrawVertexBuffer(nullptr, static_cast<int>(buffer), 0, 4));
    EXPECT_EQ(maps.Calls().size(), 0u);
    EXPECT_EQ(Picture(mSecond).DrawnArea(), Area{});
}

TEST_F(SetUpOfRenderer, AFailedMatrixConstantLeavesTheColourConstant) {
    {
        const Hook<&ID3D11Device::CreateBuffer> fails(Device(), After(1, E_OUTOFMEMORY));
        EXPECT_TRUE(CreateSecond());
        EXPECT_EQ(fails.Calls().size(), 2u);
    }
    const Hook<&ID3D11DeviceContext::Map> maps(Context());
    mSecond.SetColor(kFloatWhite, 1);
    EXPECT_EQ(maps.Calls().size(), 1u);
}

TEST_F(SetUpOfRenderer, AFailedBlendStateLeavesItselfAndTheLaterOnesUnset) {
    {
        const Hook<&ID3D11Device::CreateBlendState> fails(Device(), After(1, E_OUTOFMEMORY));
        EXPECT_TRUE(CreateSecond());
        EXPECT_EQ(fails.Calls().size(), 2u);
    }
    const Hook<&ID3D11DeviceContext::OMSetBlendState> sets(Context());
    mSecond.SetBlendMode(kBlendMode_Alpha);
    mSecond.SetBlendMode(kBlendMode_Additive);
    ASSERT_EQ(sets.Calls().size(), 2u);
    EXPECT_EQ(std::get<0>(sets.Calls()[0]), nullptr);
    EXPECT_EQ(std::get<0>(sets.Calls()[1]), nullptr);
}

TEST_F(SetUpOfRenderer, AFailedWindowAssociationHasNoEffect) {
    const Hook<&IDXGIFactory::MakeWindowAssociation> fails(Factory().Get(), Always(E_FAIL));
    EXPECT_TRUE(CreateSecond());
    EXPECT_EQ(fails.Calls().size(), 1u);
}

TEST_F(SetUpOfRenderer, AStageThatCannotBeMadeIsNoPipelineUntilItCan) {
    const auto kind = kPosition_Color_PointSprite_BlendingOFF; // has all three
    {
        const Hook<&ID3D11Device::CreateVertexShader> fails(Device(), Always(E_FAIL));
        EXPECT_EQ(mRenderer.GetPipeline(kind), nullptr);
    }
    {
        const Hook<&ID3D11Device::CreatePixelShader> fails(Device(), Always(E_FAIL));
        EXPECT_EQ(mRenderer.GetPipeline(kind), nullptr);
    }
    {
        const Hook<&ID3D11Device::CreateGeometryShader> fails(Device(), Always(E_FAIL));
        EXPECT_EQ(mRenderer.GetPipeline(kind), nullptr);
    }
    EXPECT_EQ(mRenderer.FindPipeline(kind), nullptr);
    const Hook<&ID3D11Device::CreateSamplerState> fails(Device(), Always(E_FAIL));
    EXPECT_NE(mRenderer.GetPipeline(kind), nullptr); // a missing sampler is no failure
    EXPECT_EQ(fails.Calls().size(), 1u);
    EXPECT_EQ(mRenderer.CreatePointSamplerState(""), nullptr);
}

TEST_F(SetUpOfRenderer, WhatIsNoCodeIsNoFunction) {
    const char text[] = "this is not compiled code";
    EXPECT_EQ(mRenderer.CreateVertexFunction(text, sizeof text, ""), nullptr);
    EXPECT_EQ(mRenderer.CreateFragmentFunction(text, sizeof text, ""), nullptr);
    EXPECT_EQ(mRenderer.CreateGeometryFunction(text, sizeof text, ""), nullptr);
    EXPECT_EQ(mRenderer.CreateVertexFunction(nullptr, 0, ""), nullptr);
    EXPECT_EQ(mRenderer.CreateFragmentFunction(nullptr, 0, ""), nullptr);
    EXPECT_EQ(mRenderer.CreateGeometryFunction(nullptr, 0, ""), nullptr);
}

TEST_F(SetUpOfRenderer, AChildWindowIsDrawnIntoAsWell) {
    const TestWindow child(48, 32, WindowPlace::Child);
    Direct3DRenderer renderer;
    ASSERT_TRUE(renderer.Create(48, 32, child.AsNative()));
    const float colour[4] = { 0.2f, 0.4f, 0.6f, 1 };
    renderer.Clear(colour);
    const Picture picture(renderer);
    EXPECT_EQ(picture.Width(), 48);
    EXPECT_EQ(picture.Height(), 32);
    EXPECT_EQ(picture.Count({ 51, 102, 153, 255 }), 48 * 32);
    renderer.Present();
    PumpMessages();
    EXPECT_NE(GetParent(child.Handle()), nullptr);
    EXPECT_TRUE(GetWindowLongPtrW(child.Handle(), GWL_STYLE) & WS_CHILD);
}

} // namespace
} // namespace orvane::tests
