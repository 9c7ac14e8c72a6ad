// Textures on the device: their limits, their formats, how they are rewritten.
#include "support/direct3d/Direct3DTest.h"
#include "support/direct3d/Hook.h"

#include "render/PipelineKind.h"

#include <memory>

namespace orvane::tests {
namespace {

using namespace render;

constexpr bool kFixed = false, kDynamic = true;

class Textures : public Direct3DTest {
protected:
    // One texel of that format, over the whole target through kind 3.
    Colour Shown(ITexture* texture) {
        mRenderer.SetColor(kFloatWhite, 1);
        Draw(kPos_TexCoord_BlendingOFF, kPrimitive_TriangleStrip,
             StripOf(-1, -1, 1, 1,
                     [](int) {
                         return Floats{ 0.5f, 0.5f };
                     }),
             texture);
        return Read().At(32, 32);
    }
};

TEST_F(Textures, ASideOf16384IsMadeAndOneOf16385IsNot) {
    const TexturePtr wide(
        mRenderer.CreateTexture(nullptr, 16384, 1, 0, 0, kPixelFormat_R8UInt, "", 0, kDynamic));
    const TexturePtr high(
        mRenderer.CreateTexture(nullptr, 1, 16384, 0, 0, kPixelFormat_R8UInt, "", 0, kDynamic));
    EXPECT_NE(wide, nullptr);
    EXPECT_NE(high, nullptr);
    EXPECT_EQ(mRenderer.CreateTexture(nullptr, 16385, 1, 0, 0, kPixelFormat_R8UInt, "", 0, kDynamic),
              nullptr);
    EXPECT_EQ(mRenderer.CreateTexture(nullptr, 1, 16385, 0, 0, kPixelFormat_R8UInt, "", 0, kDynamic),
              nullptr);
    double size[2];
    EXPECT_EQ(wide->GetSize(size), size);
    EXPECT_EQ(size[0], 16384);
    EXPECT_EQ(size[1], 1);
}

TEST_F(Textures, FormatsTwoAndThreeAndAboveFiveFail) {
    for (const std::uint32_t format : { 2u, 3u, 6u, 100u })
        EXPECT_EQ(mRenderer.CreateTexture(nullptr, 4, 4, 0, 0, format, "", 0, kDynamic), nullptr) << format;
}

TEST_F(Textures, EachFormatIsTheDevicesOwnAndHasOneMipLevelAndTheStatedUse) {
    const struct {
        std::uint32_t pixelFormat;
        bool dynamic;
        DXGI_FORMAT format;
        D3D11_USAGE usage;
        UINT access;
    } kCases[] = {
        { kPixelFormat_RGBA8, kFixed, DXGI_FORMAT(28), D3D11_USAGE(1), 0 },
        { kPixelFormat_BGRA8, kDynamic, DXGI_FORMAT(87), D3D11_USAGE(2), 0x10000 },
        { kPixelFormat_R8UInt, kDynamic, DXGI_FORMAT(62), D3D11_USAGE(2), 0x10000 },
        { kPixelFormat_RGBA32Float, kFixed, DXGI_FORMAT(2), D3D11_USAGE(1), 0 },
    };

    const std::vector<float> pixels(4 * 8 * 4);
    for (const auto& row : kCases) {
        std::vector<D3D11_TEXTURE2D_DESC> made;
        const Hook<&ID3D11Device::CreateTexture2D> calls(
            Device(), [&made](const auto& next, const auto* description, auto* data, auto** texture) {
                made.push_back(*description);
                return next(description, data, texture);
            });
        const TexturePtr texture(
            mRenderer.CreateTexture(pixels.data(), 8, 4, 8 * 16, 0, row.pixelFormat, "name", 3, row.dynamic));
        ASSERT_NE(texture, nullptr) << row.pixelFormat;
        ASSERT_EQ(made.size(), 1u);
        EXPECT_EQ(made[0].Width, 8u);
        EXPECT_EQ(made[0].Height, 4u);
        EXPECT_EQ(made[0].MipLevels, 1u);
        EXPECT_EQ(made[0].ArraySize, 1u);
        EXPECT_EQ(made[0].Format, row.format);
        EXPECT_EQ(made[0].SampleDesc.Count, 1u);
        EXPECT_EQ(made[0].SampleDesc.Quality, 0u);
        EXPECT_EQ(made[0].Usage, row.usage);
        EXPECT_EQ(made[0].BindFlags, 8u);
        EXPECT_EQ(made[0].CPUAccessFlags, row.access);
        EXPECT_EQ(made[0].MiscFlags, 0u);
    }
}

TEST_F(Textures, RedIsFirstOrBlueIsFirstAsTheFormatSays) {
    const Colour texel = { 255, 128, 0, 64 };
    const TexturePtr redFirst(mRenderer.CreateTexture(&texel, 1, 1, 4, 0, kPixelFormat_RGBA8, "", 0, kFixed));
    const TexturePtr blueFirst(
        mRenderer.CreateTexture(&texel, 1, 1, 4, 0, kPixelFormat_BGRA8, "", 0, kFixed));
    EXPECT_EQ(Shown(redFirst.get()), (Colour{ 255, 128, 0, 64 }));
    EXPECT_EQ(Shown(blueFirst.get()), (Colour{ 0, 128, 255, 64 }));
    const float floats[4] = { 0.2f, 1, 0, 1 };
    const TexturePtr ofFloats(
        mRenderer.CreateTexture(floats, 1, 1, 16, 0, kPixelFormat_RGBA32Float, "", 0, kFixed));
    EXPECT_EQ(Shown(ofFloats.get()), (Colour{ 51, 255, 0, 255 }));
}

TEST_F(Textures, ADynamicOneIsRewrittenAndAFixedOneIsNot) {
    const Colour before = { 10, 20, 30, 255 }, after = { 40, 50, 60, 255 }; // blue first
    const double size[2] = { 1, 1 };
    const TexturePtr fixed(mRenderer.CreateTexture(&before, 1, 1, 4, 0, kPixelFormat_BGRA8, "", 0, kFixed));
    EXPECT_EQ(fixed->UpdateContents(&after, size, 4, 0, kPixelFormat_BGRA8), kStatus_Failure);
    EXPECT_EQ(Shown(fixed.get()), (Colour{ 30, 20, 10, 255 }));
    const TexturePtr dynamic(
        mRenderer.CreateTexture(&before, 1, 1, 4, 0, kPixelFormat_BGRA8, "", 0, kDynamic));
    EXPECT_EQ(Shown(dynamic.get()), (Colour{ 30, 20, 10, 255 }));
    EXPECT_EQ(dynamic->UpdateContents(&after, size, 4, 0, kPixelFormat_BGRA8), kStatus_Success);
    EXPECT_EQ(Shown(dynamic.get()), (Colour{ 60, 50, 40, 255 }));
}

TEST_F(Textures, AFixedOneWithoutPixelsIsNotMade) {
    EXPECT_EQ(mRenderer.CreateTexture(nullptr, 4, 4, 16, 0, kPixelFormat_RGBA8, "", 0, kFixed), nullptr);
}

TEST_F(Textures, BindAndUnbindWorkAtTheTexturesOwnUnit) {
    constexpr UINT kUnit = 5;
    const Colour texel = { 1, 2, 3, 4 };
    const TexturePtr texture(
        mRenderer.CreateTexture(&texel, 1, 1, 4, 0, kPixelFormat_RGBA8, "", kUnit, kFixed));
    const std::unique_ptr<IBufferTexture> array(mRenderer.CreateBufferTexture(4, "", kUnit));
    const auto bound = [this] {
        ComPtr<ID3D11ShaderResourceView> view;
        Context()->PSGetShaderResources(kUnit, 1, &view);
        return view;
    };
    texture->Bind();
    const auto first = bound();
    EXPECT_NE(first, nullptr);
    texture->Unbind();
    EXPECT_EQ(bound(), nullptr);
    array->Bind();
    EXPECT_NE(bound(), nullptr);
    EXPECT_NE(bound().Get(), first.Get());
    array->Unbind();
    EXPECT_EQ(bound(), nullptr);
}

TEST_F(Textures, ReleaseByTheLastUserFreesTheResource) {
    const Colour texel = { 1, 2, 3, 4 };
    ITexture* const texture = mRenderer.CreateTexture(&texel, 1, 1, 4, 0, kPixelFormat_RGBA8, "", 0, kFixed);
    texture->Bind();
    ComPtr<ID3D11ShaderResourceView> view;
    Context()->PSGetShaderResources(0, 1, &view);
    texture->Unbind();
    const auto users = [&view] {
        view->AddRef();
        return view->Release();
    };
    EXPECT_EQ(texture->AddRef(), texture);
    texture->Release();
    EXPECT_EQ(users(), 2u); // the texture and this test
    texture->Release();
    EXPECT_EQ(users(), 1u);
}

TEST_F(Textures, AFailingDeviceMakesNone) {
    const Colour texel = { 1, 2, 3, 4 };
    {
        const Hook<&ID3D11Device::CreateTexture2D> fails(Device(), Always(E_OUTOFMEMORY));
        EXPECT_EQ(mRenderer.CreateTexture(&texel, 1, 1, 4, 0, kPixelFormat_RGBA8, "", 0, kFixed), nullptr);
        EXPECT_EQ(mRenderer.CreateBufferTexture(256, "", 1), nullptr);
    }
    // The view comes second: what was made before it goes again.
    ComPtr<ID3D11Texture2D> made;
    const Hook<&ID3D11Device::CreateTexture2D> listens(
        Device(), [&made](const auto& next, const auto* description, auto* data, auto** texture) {
            const HRESULT status = next(description, data, texture);
            made = *texture;
            return status;
        });
    const Hook<&ID3D11Device::CreateShaderResourceView> fails(Device(), Always(E_OUTOFMEMORY));
    EXPECT_EQ(mRenderer.CreateTexture(&texel, 1, 1, 4, 0, kPixelFormat_RGBA8, "", 0, kFixed), nullptr);
    ASSERT_NE(made, nullptr);
    EXPECT_EQ(made.Reset(), 0u); // nobody else held it
    EXPECT_EQ(mRenderer.CreateBufferTexture(256, "", 1), nullptr);
    EXPECT_EQ(made.Reset(), 0u);
}

TEST_F(Textures, UpdateContentsReportsAFailedMappingAndOneThatYieldsNothing) {
    const TexturePtr texture(
        mRenderer.CreateTexture(nullptr, 2, 2, 0, 0, kPixelFormat_R8UInt, "", 0, kDynamic));
    const std::unique_ptr<IBufferTexture> array(mRenderer.CreateBufferTexture(1, "", 1));
    const std::uint8_t pixels[4] = { 1, 2, 3, 4 };
    const double size[2] = { 2, 2 };
    EXPECT_EQ(texture->UpdateContents(nullptr, size, 2, 0, kPixelFormat_R8UInt), kStatus_BadArgument);
    EXPECT_EQ(texture->UpdateContents(pixels, size, 2, 0, kPixelFormat_RGBA8), kStatus_BadArgument);
    {
        const Hook<&ID3D11DeviceContext::Map> fails(Context(), Always(E_OUTOFMEMORY));
        const Hook<&ID3D11DeviceContext::Unmap> unmaps(Context());
        EXPECT_EQ(texture->UpdateContents(pixels, size, 2, 0, kPixelFormat_R8UInt), kStatus_Failure);
        EXPECT_FALSE(array->UpdateData(pixels, 4));
        EXPECT_EQ(unmaps.Calls().size(), 0u);
    }
    {
        const Hook<&ID3D11DeviceContext::Map> yieldsNothing(
            Context(), [](const auto&, auto*, auto, auto type, auto, auto* mapped) {
                EXPECT_EQ(type, 4); // with discard
                *mapped = {};
                return S_OK;
            });
        const Hook<&ID3D11DeviceContext::Unmap> unmaps(Context(), [](const auto&, auto...) {});
        EXPECT_EQ(texture->UpdateContents(pixels, size, 2, 0, kPixelFormat_R8UInt), kStatus_Failure);
        EXPECT_FALSE(array->UpdateData(pixels, 4));
        EXPECT_EQ(unmaps.Calls().size(), 2u); // what was mapped is unmapped
    }
    EXPECT_EQ(texture->UpdateContents(pixels, size, 2, 0, kPixelFormat_R8UInt), kStatus_Success);
    EXPECT_TRUE(array->UpdateData(pixels, 4));
}

} // namespace
} // namespace orvane::tests
