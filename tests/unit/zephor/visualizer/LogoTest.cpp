// The logo: how its rows unpack, what texture they make, and where and how strongly it is drawn.
#include "ZephorFixture.h"

#include "zephor/visualizer/Logo.h"
#include "zephor/visualizer/LogoData.h"

namespace orvane::zephor {
namespace {

using visualizer::DestinationOf;
using visualizer::ExpectRect;
using Bytes = std::vector<std::uint8_t>;

GreyImage Unpack(std::initializer_list<const char*> rows) {
    return UnpackGrey(std::span(rows.begin(), rows.size()));
}

// Each value as a pixel: four times.
Bytes Pixels(const Bytes& greys) {
    Bytes bytes;
    for (const std::uint8_t grey : greys) bytes.insert(bytes.end(), 4, grey);
    return bytes;
}

TEST(LogoUnpacking, ARunByteOf81IsARunOf128) {
    EXPECT_EQ(Unpack({ "81A7" }).width, 128u);
    EXPECT_EQ(Unpack({ "81A7" }).bytes, Pixels(Bytes(128, 0xA7)));
}

TEST(LogoUnpacking, ARunByteOf80IsARunOf129) {
    EXPECT_EQ(Unpack({ "80A7" }).width, 129u);
    EXPECT_EQ(Unpack({ "80A7" }).bytes, Pixels(Bytes(129, 0xA7)));
}

TEST(LogoUnpacking, AByteOf00GivesOneLiteralByte) {
    EXPECT_EQ(Unpack({ "00A7" }).bytes, Pixels({ 0xA7 }));
    EXPECT_EQ(Unpack({ "00A700B8" }).bytes, Pixels({ 0xA7, 0xB8 }));
}

TEST(LogoUnpacking, LiteralsAndRunsFollowOneAnother) {
    // Three as they are, then twenty, and a run of two.
    constexpr const char* kRow = "0201020313505152535455565758595A5B5C5D5E5F60616263FF99";
    Bytes greys{ 1, 2, 3 };
    for (int grey = 0x50; grey <= 0x63; ++grey) greys.push_back(std::uint8_t(grey));
    greys.insert(greys.end(), 2, 0x99);
    EXPECT_EQ(Unpack({ kRow }).bytes, Pixels(greys));
}

TEST(LogoUnpacking, AnOddLastDigitIsDropped) {
    EXPECT_EQ(Unpack({ "00A7F" }).bytes, Pixels({ 0xA7 }));
}

TEST(LogoUnpacking, TheFirstRowGivesTheWidth) {
    const GreyImage image = Unpack({ "010102", "00AA", "02112233" });
    EXPECT_EQ(image.width, 2u);
    EXPECT_EQ(image.height, 3u);
    EXPECT_EQ(image.RowBytes(), 8u);
    EXPECT_EQ(image.bytes, Pixels({ 1, 2, 0xAA, 0, 0x11, 0x22 }));
}

TEST(LogoUnpacking, OfNoRowsOrAnEmptyFirstOneHasNoWidth) {
    EXPECT_EQ(Unpack({}).width, 0u);
    EXPECT_EQ(Unpack({ "", "00AA" }).width, 0u);
}

class ZephorLogo : public ZephorFixture {
protected:
    // The strength of the logo in the last frame; -1 if it wasn't drawn.
    float Strength() {
        const auto* draw = DrawOf(mZephor->mLogoTexture);
        return draw ? draw->tint[3] : -1;
    }
};

TEST_F(ZephorLogo, IsAStillTextureOf200By200WithTheGreyInAllFourBytes) {
    Start();
    const auto logo = Recorder().FindResource("Kelbo Logo");
    ASSERT_NE(logo, nullptr);
    EXPECT_EQ(logo->image->width, 200u);
    EXPECT_EQ(logo->image->height, 200u);
    EXPECT_EQ(logo->image->pixelFormat, render::kPixelFormat_RGBA8);
    EXPECT_EQ(logo->textureUnit, 0u);
    EXPECT_FALSE(logo->dynamic);
    // LogoData has the picture's own tests: its corners are empty and the middle of its letter is white.
    EXPECT_EQ(logo->image->Texel(0, 0), 0u);
    EXPECT_EQ(logo->image->Texel(100, 83), 0xFFFFFFFFu);
    bool greysBetween = false;
    for (std::uint32_t y = 0; y < 200; ++y)
        for (std::uint32_t x = 0; x < 200; ++x) {
            const std::uint32_t texel = logo->image->Texel(x, y), grey = texel & 0xFF;
            ASSERT_EQ(texel, grey * 0x01010101u);
            greysBetween |= grey != 0 && grey != 255;
        }
    EXPECT_TRUE(greysBetween);
}

TEST_F(ZephorLogo, StandsInTheMiddleAt7TenthsOfItsSize) {
    StartAndDraw(1000, 500);
    const auto* logo = DrawOf(mZephor->mLogoTexture);
    ASSERT_NE(logo, nullptr);
    ExpectRect(DestinationOf(*logo), { 0.43, 0.36, 0.14, 0.28 });
    EXPECT_EQ(logo->bufferId, int(mZephor->mQuadBufferId));
    EXPECT_EQ(logo->tint, (std::array<float, 4>{ 1, 1, 1, 1 }));
    EXPECT_EQ(logo->blendMode, render::kBlendMode_Additive);
    EXPECT_EQ(logo->matrix, render::kIdentityMatrix);
}

TEST_F(ZephorLogo, ReachesOverTheEdgesOfASmallView) {
    StartAndDraw(70, 50);
    ExpectRect(DestinationOf(*DrawOf(mZephor->mLogoTexture)), { -0.5, -0.9, 2, 2.8 });
}

TEST_F(ZephorLogo, IsAtFullStrengthInTheFirstFrameAndFadesOverTenSecondsFromIt) {
    Start();
    FrameAt(3);
    EXPECT_EQ(Strength(), 1);
    EXPECT_EQ(mZephor->mLogoShownAt, kStart + 3);
    const std::pair<double, float> rows[] = { { 3, 1.0f }, { 5.5, 0.75f }, { 8, 0.5f }, { 12.5, 0.05f } };
    for (const auto& [seconds, strength] : rows) {
        FrameAt(seconds);
        EXPECT_FLOAT_EQ(Strength(), strength) << seconds;
    }
    FrameAt(13);
    EXPECT_EQ(Strength(), -1);
    FrameAt(1000);
    EXPECT_EQ(Strength(), -1);
}

TEST_F(ZephorLogo, WithoutItsTextureStaysPending) {
    Start();
    auto texture = std::move(mZephor->mLogoTexture);
    FrameAt(1);
    FrameAt(50);
    EXPECT_TRUE(mZephor->mLogoPending);
    EXPECT_EQ(mZephor->mLogoShownAt, kStart);
    mZephor->mLogoTexture = std::move(texture);
    FrameAt(60);
    EXPECT_EQ(Strength(), 1) << "tried in each frame";
}

TEST_F(ZephorLogo, ATextureThatIsRefusedGivesNone) {
    render::RecordingRenderer renderer;
    renderer.Refuse(render::Refusal::Texture);
    EXPECT_EQ(MakeLogoTexture(renderer), nullptr);
}

} // namespace
} // namespace orvane::zephor
