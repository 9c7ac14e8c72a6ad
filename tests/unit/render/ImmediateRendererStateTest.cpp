#include "unit/render/ImmediateRendererFixture.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

namespace orvane::render {
namespace {

TEST_F(ImmediateRendererTest, SetBlendModeWithTheCurrentModeReturnsItAndCallsNoDevice) {
    EXPECT_EQ(mRenderer.SetBlendMode(kBlendMode_Off), kBlendMode_Off) << "the mode of a new renderer";
    EXPECT_TRUE(mRenderer.Calls().empty());
    mRenderer.SetBlendMode(kBlendMode_Additive);
    mRenderer.ForgetRecords();
    EXPECT_EQ(mRenderer.SetBlendMode(kBlendMode_Additive), kBlendMode_Additive);
    EXPECT_TRUE(mRenderer.Calls().empty());
}

TEST_F(ImmediateRendererTest, SetBlendModeReturnsThePreviousModeAndSetsOrClearsTheState) {
    EXPECT_EQ(mRenderer.SetBlendMode(kBlendMode_Alpha), kBlendMode_Off);
    EXPECT_EQ(mRenderer.SetBlendMode(kBlendMode_Additive), kBlendMode_Alpha);
    EXPECT_EQ(mRenderer.SetBlendMode(kBlendMode_Off), kBlendMode_Additive);
    const std::vector<DeviceCallRecord> expected = {
        { DeviceCall::SetBlendState, kBlendMode_Alpha },
        { DeviceCall::SetBlendState, kBlendMode_Additive },
        { DeviceCall::ClearBlendState, 0 },
    };
    EXPECT_EQ(mRenderer.Calls(), expected);
}

TEST_F(ImmediateRendererTest, AnUnknownBlendModeIsKeptAndBlendsAdditively) {
    EXPECT_EQ(mRenderer.SetBlendMode(77), kBlendMode_Off);
    EXPECT_EQ(mRenderer.Calls().back(), (DeviceCallRecord{ DeviceCall::SetBlendState, kBlendMode_Additive }));
    EXPECT_EQ(mRenderer.SetBlendMode(kBlendMode_Off), 77u);
}

TEST_F(ImmediateRendererTest, CreateTextureOf16384SucceedsAndOf16385FailsInEitherDirection) {
    const std::vector<std::uint8_t> pixels(16385, 0);
    const auto make = [&](std::uint32_t width, std::uint32_t height) {
        return TexturePtr(mRenderer.CreateTexture(pixels.data(), width, height, width, 0, kPixelFormat_R8UInt,
                                                  "t", 0, false));
    };
    EXPECT_TRUE(make(16384, 1));
    EXPECT_FALSE(make(16385, 1));
    EXPECT_TRUE(make(1, 16384));
    EXPECT_FALSE(make(1, 16385));
    EXPECT_FALSE(make(0, 1));
    EXPECT_FALSE(make(1, 0));
}

TEST_F(ImmediateRendererTest, CreateTextureTakesFourFormatsAndNoOther) {
    const std::uint32_t pixels[16] = {};
    for (std::uint32_t format = 0; format < 9; ++format) {
        const TexturePtr texture(mRenderer.CreateTexture(pixels, 2, 2, 32, 0, format, "t", 0, true));
        const bool known = format == 0 || format == 1 || format == 4 || format == 5;
        EXPECT_EQ(texture != nullptr, known) << format;
    }
    EXPECT_EQ(mRenderer.CreateTexture(pixels, 2, 2, 32, 0, 0xFFFFFFFF, "t", 0, true), nullptr);
}

TEST_F(ImmediateRendererTest, OnlyADynamicTextureNeedsNoPixels) {
    EXPECT_EQ(mRenderer.CreateTexture(nullptr, 2, 2, 8, 0, kPixelFormat_BGRA8, "t", 0, false), nullptr);
    EXPECT_TRUE(TexturePtr(mRenderer.CreateTexture(nullptr, 2, 2, 8, 0, kPixelFormat_BGRA8, "t", 0, true)));
}

TEST_F(ImmediateRendererTest, SetViewportIgnoresXAndY) {
    const double rect[4] = { 100, 50, 640, 480 };
    mRenderer.SetViewport(rect);
    EXPECT_EQ(mRenderer.Viewports().back(), (ViewportRecord{ 0, 0, 640, 480 }));
    double out[4] = { 9, 9, 9, 9 };
    EXPECT_EQ(mRenderer.GetViewport(out), out);
    EXPECT_EQ(out[0], 0);
    EXPECT_EQ(out[1], 0);
    EXPECT_EQ(out[2], 640);
    EXPECT_EQ(out[3], 480);
}

TEST_F(ImmediateRendererTest, GetPipelineBuildsOnceAndFindPipelineOnlyLooks) {
    EXPECT_EQ(mRenderer.FindPipeline(5), nullptr);
    IRenderingPipeline* const pipeline = mRenderer.GetPipeline(5);
    ASSERT_NE(pipeline, nullptr);
    EXPECT_EQ(mRenderer.GetPipeline(5), pipeline);
    EXPECT_EQ(mRenderer.FindPipeline(5), pipeline);
    EXPECT_EQ(mRenderer.FindPipeline(4), nullptr);
}

TEST_F(ImmediateRendererTest, GetPipelineNineHasAKindThatReadsEightAndSeventeenSixteen) {
    EXPECT_EQ(mRenderer.GetPipeline(9)->Kind(), 8u);
    EXPECT_EQ(mRenderer.GetPipeline(17)->Kind(), 16u);
    EXPECT_EQ(mRenderer.FindPipeline(8), nullptr) << "kept under 9";
    EXPECT_NE(mRenderer.GetPipeline(8), mRenderer.GetPipeline(9));
    EXPECT_EQ(mRenderer.GetPipeline(9), mRenderer.FindPipeline(9));
    const int id = MakeBuffer(9, 2);
    EXPECT_EQ(mRenderer.BufferBytes(id).size(), 72u);
}

TEST_F(ImmediateRendererTest, GetPipelineMakesEveryKindUpToNineteenAndNoneAbove) {
    for (std::uint32_t kind = 0; kind <= 19; ++kind) EXPECT_NE(mRenderer.GetPipeline(kind), nullptr) << kind;
    EXPECT_EQ(mRenderer.GetPipeline(20), nullptr);
    EXPECT_EQ(mRenderer.GetPipeline(0xFFFFFFFF), nullptr);
}

TEST_F(ImmediateRendererTest, APipelineThatCantBeBuiltIsNullAndNotKept) {
    mRenderer.Refuse(Refusal::FragmentFunction);
    EXPECT_EQ(mRenderer.GetPipeline(5), nullptr);
    EXPECT_EQ(mRenderer.FindPipeline(5), nullptr);
    EXPECT_EQ(mRenderer.LiveFunctions(), 0);
    mRenderer.Refuse(Refusal::FragmentFunction, false);
    EXPECT_NE(mRenderer.GetPipeline(5), nullptr) << "the next request tries again";
}

TEST_F(ImmediateRendererTest, ABlendVariantOfSetFDrawsExactlyLikeKindSixteen) {
    for (const std::uint32_t kind : { 16u, 18u, 19u }) {
        const int id = MakeBuffer(kind, 4, kPrimitive_TriangleStrip);
        mRenderer.SetBlendMode(kBlendMode_Additive);
        mRenderer.ForgetRecords();
        mRenderer.DrawVertexBuffer(nullptr, id, 0, 4);
        const std::vector<DeviceCallRecord> expected = {
            { DeviceCall::ClearBlendState, 0 },
            { DeviceCall::Draw, 0 },
            { DeviceCall::SetBlendState, kBlendMode_Additive },
        };
        EXPECT_EQ(mRenderer.Calls(), expected) << kind;
        EXPECT_EQ(mRenderer.Draws()[0].blendMode, kBlendMode_Off) << kind;
    }
}

TEST_F(ImmediateRendererTest, ScaleFlagAndFullScreenStartAsTheyMustAndAreKept) {
    EXPECT_EQ(mRenderer.GetContentScale(), 1.0);
    EXPECT_FALSE(mRenderer.IsFullScreen());
    EXPECT_FALSE(mRenderer.GetRendererFlag());
    mRenderer.SetContentScale(1.5);
    mRenderer.SetFullScreen(true);
    mRenderer.SetRendererFlag(true);
    EXPECT_EQ(mRenderer.GetContentScale(), 1.5);
    EXPECT_TRUE(mRenderer.IsFullScreen());
    EXPECT_TRUE(mRenderer.GetRendererFlag());
    EXPECT_EQ(mRenderer.Calls().back(), (DeviceCallRecord{ DeviceCall::SetFullScreen, 1 }));
}

TEST_F(ImmediateRendererTest, ReservedOperationsDoNothing) {
    mRenderer.Reserved20();
    EXPECT_EQ(mRenderer.Reserved24(), 0u);
    mRenderer.Reserved31();
    mRenderer.Reserved33();
    mRenderer.Reserved34();
    EXPECT_EQ(mRenderer.Reserved44(), 0u);
    mRenderer.Reserved53();
    mRenderer.Reserved54();
    mRenderer.Reserved55();
    EXPECT_EQ(mRenderer.Reserved57(), 0u);
    mRenderer.Reserved58();
    mRenderer.Reserved59();
    mRenderer.Reserved60();
    mRenderer.Reserved61();
    EXPECT_TRUE(mRenderer.Calls().empty());
}

} // namespace
} // namespace orvane::render
