// How each kind's colour meets what is there, and what the blend mode does on the device.
#include "support/direct3d/Direct3DTest.h"
#include "support/direct3d/Hook.h"

#include "render/PipelineKind.h"
#include "render/Pipelines.h"

#include <memory>
#include <string>

namespace orvane::tests {
namespace {

using namespace render;

constexpr float kGround[4] = { 0.2f, 0.4f, 0.6f, 1.0f };
constexpr float kSource[4] = { 1.0f, 0.0f, 0.5f, 0.5f };

// kSource on kGround, of 255.
constexpr Colour kUnblended = { 255, 0, 128, 128 };
constexpr Colour kAlphaBlended = { 153, 51, 140, 128 }; // halves of both; the alpha is the source's
constexpr Colour kAdded = { 179, 102, 217, 255 };       // half the source more; the alpha stays

struct BlendCase {
    std::uint32_t kind;
    Colour result;
};

void PrintTo(const BlendCase& row, std::ostream* out) {
    *out << "kind " << row.kind;
}

class Blend : public Direct3DTest {
protected:
    // A whole target of kSource in the shape that the kind's set takes.
    void Cover(std::uint32_t kind) {
        constexpr auto kStrip = kPrimitive_TriangleStrip;
        const Floats source(kSource, kSource + 4);
        const Colour white[] = { { 255, 255, 255, 255 } };
        const TexturePtr texture = MakeTexture(mRenderer, 1, white);
        switch (FindPipelineRow(kind)->set) {
        case ShaderSet::A:
            mRenderer.SetColor(kSource, kSource[3]);
            return Draw(kind, kStrip, StripOf(-1, -1, 1, 1));
        case ShaderSet::B:
            mRenderer.SetColor(kSource, kSource[3]);
            return Draw(kind, kStrip,
                        StripOf(-1, -1, 1, 1,
                                [](int) {
                                    return Floats{ 0, 0 };
                                }),
                        texture.get());
        case ShaderSet::C:
            return Draw(kind, kStrip,
                        StripOf(-1, -1, 1, 1,
                                [&source](int) {
                                    Floats rest = source;
                                    rest.insert(rest.end(), { 0, 0 });
                                    return rest;
                                }),
                        texture.get());
        case ShaderSet::D:
            return Draw(kind, kStrip, StripOf(-1, -1, 1, 1, [&source](int) { return source; }));
        case ShaderSet::E:
            return Draw(kind, kPrimitive_Points,
                        { 0, 0, 0, kSource[0], kSource[1], kSource[2], kSource[3], 2 }, texture.get());
        case ShaderSet::F:
            return CoverThroughTable(kind);
        }
    }

    void CoverThroughTable(std::uint32_t kind) {
        const std::uint8_t index = 0;
        const TexturePtr image(
            mRenderer.CreateTexture(&index, 1, 1, 1, 0, kPixelFormat_R8UInt, "", 0, false));
        const std::unique_ptr<IBufferTexture> table(mRenderer.CreateBufferTexture(1, "", 1));
        ASSERT_TRUE(table->UpdateData(kSource, sizeof kSource));
        table->Bind();
        Draw(kind, kPrimitive_TriangleStrip,
             StripOf(-1, -1, 1, 1,
                     [](int) {
                         return Floats{ 0, 0 };
                     }),
             image.get());
        table->Unbind();
    }
};

class BlendOfKind : public Blend, public testing::WithParamInterface<BlendCase> {};

TEST_P(BlendOfKind, IsWhatTheTableSays) {
    mRenderer.Clear(kGround);
    Cover(GetParam().kind);
    EXPECT_TRUE(Read().IsFilled({ 0, 0, 64, 64 }, GetParam().result))
        << testing::PrintToString(Read().At(32, 32));
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, BlendOfKind,
    testing::Values(BlendCase{ 0, kUnblended }, BlendCase{ 1, kAlphaBlended }, BlendCase{ 2, kAdded },
                    BlendCase{ 3, kUnblended }, BlendCase{ 4, kAlphaBlended }, BlendCase{ 5, kAdded },
                    BlendCase{ 6, kUnblended }, BlendCase{ 7, kAlphaBlended }, BlendCase{ 8, kAdded },
                    BlendCase{ 10, kUnblended }, BlendCase{ 11, kAlphaBlended }, BlendCase{ 12, kAdded },
                    BlendCase{ 13, kUnblended }, BlendCase{ 14, kAlphaBlended }, BlendCase{ 15, kAdded },
                    BlendCase{ 16, kUnblended }, BlendCase{ 18, kUnblended }, BlendCase{ 19, kUnblended }),
    [](const auto& row) { return std::to_string(row.param.kind); });

TEST_F(Blend, VariantsOfSetFDrawExactlyLikeKindSixteen) {
    mRenderer.Clear(kGround);
    Cover(kPosition_TextureCoord_CLUT_TexelFetch_BlendingOFF);
    const Picture sixteen = Read();
    for (const std::uint32_t kind : { 17u, 18u, 19u }) {
        mRenderer.Clear(kGround);
        Cover(kind);
        EXPECT_EQ(Read(), sixteen) << kind;
    }
}

TEST_F(Blend, AVertexOfAlphaZeroInSetDLeavesTheTargetInKindTwelveAndWritesColourInKindTen) {
    const Floats invisible = StripOf(-1, -1, 1, 1, [](int) { return Floats{ 1, 1, 1, 0 }; });
    mRenderer.Clear(kGround);
    const Picture before = Read();
    Draw(kPos_Colr_SrcAlpha_DstAlphaOne, kPrimitive_TriangleStrip, invisible);
    EXPECT_EQ(Read(), before);
    Draw(kPos_Colr_BlendingOFF, kPrimitive_TriangleStrip, invisible);
    EXPECT_TRUE(Read().IsFilled({ 0, 0, 64, 64 }, { 255, 255, 255, 0 }));
}

TEST_F(Blend, ADrawLeavesTheModeThatWasSetBeforeIt) {
    EXPECT_EQ(mRenderer.SetBlendMode(kBlendMode_Alpha), kBlendMode_Off);
    Cover(kPos_SrcAlpha_DstAlphaOne);
    Cover(kPos_BlendingOFF);
    EXPECT_EQ(mRenderer.SetBlendMode(kBlendMode_Off), kBlendMode_Alpha);
}

TEST_F(Blend, SetBlendModeWithTheCurrentModeReturnsItAndMakesNoDeviceCall) {
    const Hook<&ID3D11DeviceContext::OMSetBlendState> calls(Context());
    EXPECT_EQ(mRenderer.SetBlendMode(kBlendMode_Off), kBlendMode_Off);
    EXPECT_EQ(calls.Calls().size(), 0u);
    EXPECT_EQ(mRenderer.SetBlendMode(kBlendMode_Additive), kBlendMode_Off);
    EXPECT_EQ(calls.Calls().size(), 1u);
    EXPECT_EQ(mRenderer.SetBlendMode(kBlendMode_Additive), kBlendMode_Additive);
    EXPECT_EQ(calls.Calls().size(), 1u);
}

TEST_F(Blend, ModeOffWhenNothingWasSetMakesNoDeviceCallAndClearsTheStateWhenOneWas) {
    const Hook<&ID3D11DeviceContext::OMSetBlendState> calls(Context());
    Cover(kPos_BlendingOFF);
    EXPECT_EQ(calls.Calls().size(), 0u);
    mRenderer.SetBlendMode(kBlendMode_Alpha);
    mRenderer.SetBlendMode(kBlendMode_Off);
    ASSERT_EQ(calls.Calls().size(), 2u);
    EXPECT_NE(std::get<0>(calls.Calls()[0]), nullptr);
    EXPECT_EQ(std::get<0>(calls.Calls()[1]), nullptr);
}

TEST_F(Blend, AnyOtherModeBehavesAsAdditive) {
    ComPtr<ID3D11BlendState> additive, other;
    mRenderer.SetBlendMode(kBlendMode_Additive);
    Context()->OMGetBlendState(&additive, nullptr, nullptr);
    mRenderer.SetBlendMode(7);
    Context()->OMGetBlendState(&other, nullptr, nullptr);
    EXPECT_NE(other, nullptr);
    EXPECT_EQ(other.Get(), additive.Get());
    EXPECT_EQ(mRenderer.SetBlendMode(kBlendMode_Off), 7u);
}

} // namespace
} // namespace orvane::tests
