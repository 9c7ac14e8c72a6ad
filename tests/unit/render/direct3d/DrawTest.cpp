// Frame, state and draws as the device sees them.
#include "support/LogCapture.h"
#include "support/direct3d/Direct3DTest.h"
#include "support/direct3d/Hook.h"

#include "render/PipelineKind.h"

namespace orvane::tests {
namespace {

using namespace render;

class Draw : public Direct3DTest {
protected:
    int Strip() { return Buffer(kPos_BlendingOFF, kPrimitive_TriangleStrip, StripOf(-1, -1, 1, 1)); }

    ComPtr<ID3D11Buffer> VertexConstant() const {
        ComPtr<ID3D11Buffer> bound;
        Context()->VSGetConstantBuffers(0, 1, &bound);
        return bound;
    }

    ComPtr<ID3D11Buffer> GeometryConstant() const {
        ComPtr<ID3D11Buffer> bound;
        Context()->GSGetConstantBuffers(0, 1, &bound);
        return bound;
    }
};

TEST_F(Draw, ClearWithAlphaZeroClearsToAlphaOne) {
    const float colour[4] = { 0.2f, 0.4f, 0.6f, 0 };
    mRenderer.Clear(colour);
    EXPECT_EQ(Read().Count({ 51, 102, 153, 255 }), 64 * 64);
}

TEST_F(Draw, SetViewportAtXHundredStandsAtTheOrigin) {
    const double rect[4] = { 100, 50, 32, 16 };
    mRenderer.SetViewport(rect);
    double viewport[4];
    mRenderer.GetViewport(viewport);
    EXPECT_EQ(std::vector(viewport, viewport + 4), (std::vector<double>{ 0, 0, 32, 16 }));
    D3D11_VIEWPORT onDevice{};
    UINT count = 1;
    Context()->RSGetViewports(&count, &onDevice);
    EXPECT_EQ(count, 1u);
    EXPECT_EQ(onDevice.TopLeftX, 0);
    EXPECT_EQ(onDevice.TopLeftY, 0);
    EXPECT_EQ(onDevice.Width, 32);
    EXPECT_EQ(onDevice.Height, 16);
    EXPECT_EQ(onDevice.MinDepth, 0);
    EXPECT_EQ(onDevice.MaxDepth, 1);
    mRenderer.SetColor(kFloatWhite, 1);
    mRenderer.DrawVertexBuffer(nullptr, Strip(), 0, 4);
    EXPECT_EQ(Read().DrawnArea(), (Area{ 0, 0, 32, 16 }));
}

TEST_F(Draw, PresentDoesNotWaitAndIgnoresItsStatus) {
    const Hook<&IDXGISwapChain::Present> calls(SwapChain(), Always(HRESULT(DXGI_ERROR_DEVICE_REMOVED)));
    mRenderer.Present();
    mRenderer.Present();
    ASSERT_EQ(calls.Calls().size(), 2u);
    EXPECT_EQ(calls.Calls()[1], (std::tuple<UINT, UINT>(0, 0)));
}

TEST_F(Draw, SetFullScreenKeepsTheFlagAndTellsTheSwapChain) {
    const Hook<&IDXGISwapChain::SetFullscreenState> calls(SwapChain(), Always(S_OK));
    EXPECT_FALSE(mRenderer.IsFullScreen());
    mRenderer.SetFullScreen(true);
    EXPECT_TRUE(mRenderer.IsFullScreen());
    mRenderer.SetFullScreen(false);
    EXPECT_FALSE(mRenderer.IsFullScreen());
    ASSERT_EQ(calls.Calls().size(), 2u);
    EXPECT_EQ(calls.Calls()[0], (std::tuple<BOOL, IDXGIOutput*>(TRUE, nullptr)));
    EXPECT_EQ(calls.Calls()[1], (std::tuple<BOOL, IDXGIOutput*>(FALSE, nullptr)));
}

TEST_F(Draw, UnbindsTheMatrixFromTheVertexStageOnly) {
    const int buffer = Strip();
    EXPECT_EQ(VertexConstant(), nullptr);
    ComPtr<ID3D11Buffer> during;
    {
        const Hook<&ID3D11DeviceContext::Draw> draws(Context(),
                                                     [&](const auto& next, UINT count, UINT first) {
                                                         during = VertexConstant();
                                                         next(count, first);
                                                     });
        mRenderer.DrawVertexBuffer(nullptr, buffer, 0, 4);
        ASSERT_EQ(draws.Calls().size(), 1u);
        EXPECT_EQ(draws.Calls()[0], (std::tuple<UINT, UINT>(4, 0)));
    }
    EXPECT_NE(during, nullptr);
    EXPECT_EQ(VertexConstant(), nullptr);
    EXPECT_EQ(GeometryConstant().Get(), during.Get());
}

TEST_F(Draw, InstancesBindTheMatrixToTheVertexStageAloneAndLeaveItThere) {
    const int buffer = Strip();
    const Hook<&ID3D11DeviceContext::Draw> draws(Context());
    mRenderer.DrawVertexBufferInstances(buffer, 0, 4, 3, [](int&) {});
    EXPECT_EQ(draws.Calls().size(), 3u);
    EXPECT_NE(VertexConstant(), nullptr);
    EXPECT_EQ(GeometryConstant(), nullptr);
}

TEST_F(Draw, ATextureIsBoundForTheDrawAndNotAfterIt) {
    const Colour texel[] = { { 255, 255, 255, 255 } };
    const TexturePtr texture = MakeTexture(mRenderer, 1, texel);
    const auto bound = [this] {
        ComPtr<ID3D11ShaderResourceView> view;
        Context()->PSGetShaderResources(0, 1, &view);
        return view;
    };
    ComPtr<ID3D11ShaderResourceView> during;
    const Hook<&ID3D11DeviceContext::Draw> draws(Context(),
                                                 [&](const auto&, UINT, UINT) { during = bound(); });
    mRenderer.DrawVertexBuffer(texture.get(), Strip(), 0, 4);
    EXPECT_NE(during, nullptr);
    EXPECT_EQ(bound(), nullptr);
}

TEST_F(Draw, AFailedMappingSkipsTheWriteAndOnlyTheAccessReportsIt) {
    const float green[4] = { 0, 1, 0, 1 };
    mRenderer.SetColor(green, 1);
    const int buffer = Strip();
    {
        const LogCapture log;
        const Hook<&ID3D11DeviceContext::Map> fails(Context(), Always(E_OUTOFMEMORY));
        const Hook<&ID3D11DeviceContext::Unmap> unmaps(Context());
        mRenderer.SetColor(kFloatWhite, 1);
        EXPECT_FALSE(mRenderer.AccessVertexBuffer(buffer, [](void*) { FAIL(); }));
        EXPECT_EQ(unmaps.Calls().size(), 0u);
        EXPECT_EQ(log.Text(), "");
    }
    mRenderer.DrawVertexBuffer(nullptr, buffer, 0, 4);
    EXPECT_EQ(Read().Count({ 0, 255, 0, 255 }), 64 * 64);
}

TEST_F(Draw, AFailedVertexBufferHasIdZeroAndItsLine) {
    const LogCapture log;
    IRenderingPipeline* const pipeline = mRenderer.GetPipeline(kPos_BlendingOFF);
    const Hook<&ID3D11Device::CreateBuffer> fails(Device(), Always(HRESULT(0x887A0005)));
    EXPECT_EQ(mRenderer.CreateVertexBuffer("", kPrimitive_Triangles, pipeline, 3, 1, nullptr), 0u);
    EXPECT_EQ(log.Lines(), (std::vector<std::string>{ "CreateBuffer failed with error 0x887A0005\n" }));
}

TEST_F(Draw, AFailedVertexBufferOfInvalidArgumentsPrintsNothing) {
    const LogCapture log;
    IRenderingPipeline* const pipeline = mRenderer.GetPipeline(kPos_BlendingOFF);
    const Hook<&ID3D11Device::CreateBuffer> fails(Device(), Always(HRESULT(0x80070057)));
    EXPECT_EQ(mRenderer.CreateVertexBuffer("", kPrimitive_Triangles, pipeline, 3, 1, nullptr), 0u);
    EXPECT_EQ(fails.Calls().size(), 1u);
    EXPECT_EQ(log.Text(), "");
}

TEST_F(Draw, AFailedVertexLayoutHasIdZeroAndNoLine) {
    const LogCapture log;
    IRenderingPipeline* const pipeline = mRenderer.GetPipeline(kPos_BlendingOFF);
    {
        const Hook<&ID3D11Device::CreateInputLayout> fails(Device(), Always(E_FAIL));
        EXPECT_EQ(mRenderer.CreateVertexBuffer("", kPrimitive_Triangles, pipeline, 3, 1, nullptr), 0u);
    }
    EXPECT_EQ(log.Text(), "");
    // Nothing was put on the list: the next one is the first.
    EXPECT_EQ(mRenderer.CreateVertexBuffer("", kPrimitive_Triangles, pipeline, 3, 1, nullptr), 1u);
}

TEST_F(Draw, NoPipelineOrNoVerticesIsIdZero) {
    IRenderingPipeline* const pipeline = mRenderer.GetPipeline(kPos_BlendingOFF);
    EXPECT_EQ(mRenderer.CreateVertexBuffer("", kPrimitive_Triangles, nullptr, 3, 1, nullptr), 0u);
    EXPECT_EQ(mRenderer.CreateVertexBuffer("", kPrimitive_Triangles, pipeline, 0, 1, nullptr), 0u);
}

TEST_F(Draw, VertexBuffersAreDynamicWithElementsOfTheStatedFormatsAndOffsets) {
    struct Element {
        std::string semantic;
        DXGI_FORMAT format;
        UINT offset;

        bool operator==(const Element&) const = default;
    };

    const auto one = DXGI_FORMAT(41), two = DXGI_FORMAT(16), three = DXGI_FORMAT(6), four = DXGI_FORMAT(2);

    const struct {
        std::uint32_t kind;
        UINT stride;
        std::vector<UINT> bufferSizes; // for three vertices
        std::vector<Element> elements;
    } kCases[] = {
        { 0, 12, { 36 }, { { "POSITION", three, 0 } } },
        { 3, 20, { 60 }, { { "POSITION", three, 0 }, { "TEXCOORD", two, 12 } } },
        { 6, 36, { 108 }, { { "POSITION", three, 0 }, { "COLOR", four, 12 }, { "TEXCOORD", two, 28 } } },
        { 10, 28, { 84 }, { { "POSITION", three, 0 }, { "COLOR", four, 12 } } },
        { 13, 32, { 96 }, { { "POSITION", three, 0 }, { "COLOR", four, 12 }, { "RADIUS", one, 28 } } },
        { 16, 20, { 60, 16 }, { { "POSITION", three, 0 }, { "TEXCOORD", two, 12 } } },
    };

    for (const auto& row : kCases) {
        IRenderingPipeline* const pipeline = mRenderer.GetPipeline(row.kind);
        std::vector<UINT> sizes, binds;
        std::vector<Element> elements;
        const Hook<&ID3D11Device::CreateBuffer> buffers(
            Device(), [&](const auto& next, const auto* description, auto* data, auto** buffer) {
                sizes.push_back(description->ByteWidth);
                binds.push_back(description->BindFlags);
                EXPECT_EQ(description->Usage, 2);
                EXPECT_EQ(description->CPUAccessFlags, 0x10000u);
                return next(description, data, buffer);
            });
        const Hook<&ID3D11Device::CreateInputLayout> layouts(Device(), [&](const auto& next,
                                                                           const auto* first, UINT count,
                                                                           const void* code, SIZE_T size,
                                                                           auto** layout) {
            for (UINT i = 0; i < count; ++i) {
                elements.push_back({ first[i].SemanticName, first[i].Format, first[i].AlignedByteOffset });
                EXPECT_EQ(first[i].InputSlot, 0u);
                EXPECT_EQ(first[i].InputSlotClass, 0);
            }
            return next(first, count, code, size, layout);
        });
        const Hook<&ID3D11DeviceContext::IASetVertexBuffers> sets(
            Context(),
            [&](const auto& next, UINT slot, UINT count, auto* buffer, auto* strides, auto* offsets) {
                EXPECT_EQ(slot, 0u);
                EXPECT_EQ(count, 1u);
                EXPECT_EQ(*strides, row.stride);
                EXPECT_EQ(*offsets, 0u);
                next(slot, count, buffer, strides, offsets);
            });
        const auto id = mRenderer.CreateVertexBuffer("", kPrimitive_Triangles, pipeline, 3, 1, nullptr);
        EXPECT_NE(id, 0u) << row.kind;
        EXPECT_EQ(sizes, row.bufferSizes) << row.kind;
        EXPECT_EQ(binds.front(), 1u);
        if (binds.size() > 1) {
            EXPECT_EQ(binds[1], 4u);
        }
        EXPECT_EQ(elements, row.elements) << row.kind;
        mRenderer.DrawVertexBuffer(nullptr, static_cast<int>(id), 0, 0);
        EXPECT_EQ(sets.Calls().size(), 1u);
    }
}

} // namespace
} // namespace orvane::tests
