#include "render/recording/RecordingRenderer.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <memory>
#include <vector>

namespace orvane::render {
namespace {

int MakeBuffer(RecordingRenderer& renderer, std::uint32_t kind) {
    return static_cast<int>(
        renderer.CreateVertexBuffer("b", kPrimitive_Triangles, renderer.GetPipeline(kind), 4, 1, nullptr));
}

TEST(RecordingTexture, AnIndexedDrawSeesTheImageItsSizeAndTheTableAtUnitOne) {
    RecordingRenderer renderer;
    const std::uint8_t indices[6] = { 1, 2, 3, 4, 5, 255 };
    const TexturePtr image(
        renderer.CreateTexture(indices, 3, 2, 3, 0, kPixelFormat_R8UInt, "indices", 0, true));
    const std::unique_ptr<IBufferTexture> table(renderer.CreateBufferTexture(256, "table", 1));
    std::vector<float> colours(1024);
    colours[1023] = 0.5f;
    ASSERT_TRUE(table->UpdateData(colours.data(), 4096));
    table->Bind();
    const float white[4] = { 1, 1, 1, 1 };
    renderer.SetColor(white, 1);
    const int id = MakeBuffer(renderer, kPosition_TextureCoord_CLUT_TexelFetch_BlendingOFF);
    renderer.DrawVertexBuffer(image.get(), id, 0, 4);
    table->Unbind();
    renderer.DrawVertexBuffer(nullptr, id, 0, 4);

    const DrawRecord& draw = renderer.Draws()[0];
    EXPECT_EQ(draw.dims, (std::array<float, 2>{ 3, 2 }));
    EXPECT_FALSE(draw.tintBound) << "the size stands where the colour was";
    ASSERT_TRUE(draw.unitImages[0] && draw.unitImages[1]);
    EXPECT_EQ(draw.unitImages[0]->Texel(2, 1), 255u);
    float last[4];
    std::memcpy(last, draw.unitImages[1]->Row(0).data() + 255 * 16, sizeof last);
    EXPECT_EQ(last[3], 0.5f);
    EXPECT_FALSE(renderer.Draws()[1].unitImages[0]) << "unbound after the draw";
    EXPECT_FALSE(renderer.Draws()[1].unitImages[1]);
}

TEST(RecordingTexture, ARecordKeepsTheImageOfItsMoment) {
    RecordingRenderer renderer;
    const std::uint8_t before[4] = { 1, 2, 3, 4 }, after[4] = { 5, 6, 7, 8 };
    const double size[2] = { 2, 2 };
    const TexturePtr texture(renderer.CreateTexture(before, 2, 2, 2, 0, kPixelFormat_R8UInt, "t", 0, true));
    const int id = MakeBuffer(renderer, kPosition_TextureCoord_CLUT_TexelFetch_BlendingOFF);
    renderer.DrawVertexBuffer(texture.get(), id, 0, 4);
    EXPECT_EQ(texture->UpdateContents(after, size, 2, 0, kPixelFormat_R8UInt), kStatus_Success);
    renderer.DrawVertexBuffer(texture.get(), id, 0, 4);
    renderer.DrawVertexBuffer(texture.get(), id, 0, 4);
    EXPECT_EQ(renderer.Draws()[0].unitImages[0]->Texel(0, 0), 1u);
    EXPECT_EQ(renderer.Draws()[1].unitImages[0]->Texel(0, 0), 5u);
    EXPECT_NE(renderer.Draws()[0].unitImages[0]->Digest(), renderer.Draws()[1].unitImages[0]->Digest());
    EXPECT_EQ(renderer.Draws()[1].unitImages[0], renderer.Draws()[2].unitImages[0]) << "not copied again";
    EXPECT_EQ(renderer.FindResource("t")->fills, 1u);
}

TEST(RecordingTexture, BindTextureStaysUntilNullUnbindsBothUnits) {
    RecordingRenderer renderer;
    const std::uint32_t texel = 0xFF112233;
    const TexturePtr first(renderer.CreateTexture(&texel, 1, 1, 4, 0, kPixelFormat_BGRA8, "0", 0, false));
    const TexturePtr second(renderer.CreateTexture(&texel, 1, 1, 4, 0, kPixelFormat_BGRA8, "1", 1, false));
    const TexturePtr beyond(renderer.CreateTexture(&texel, 1, 1, 4, 0, kPixelFormat_BGRA8, "x", 99, false));
    const int id = MakeBuffer(renderer, kPos_TexCoord_BlendingOFF);
    renderer.BindTexture(first.get());
    renderer.BindTexture(second.get());
    renderer.BindTexture(beyond.get());
    renderer.DrawVertexBuffer(nullptr, id, 0, 4);
    renderer.BindTexture(nullptr);
    renderer.DrawVertexBuffer(nullptr, id, 0, 4);
    EXPECT_EQ(renderer.Draws()[0].unitImages[0]->Texel(0, 0), texel);
    EXPECT_TRUE(renderer.Draws()[0].unitImages[1]);
    EXPECT_FALSE(renderer.Draws()[1].unitImages[0]);
    EXPECT_FALSE(renderer.Draws()[1].unitImages[1]);
}

TEST(RecordingTexture, TexturesAreKeptRowByRowAtAnyPitch) {
    for (const std::uint32_t alignment : { 1u, 4u, 256u }) {
        RecordingRenderer renderer({ .rowPitchAlignment = alignment });
        const std::uint8_t padded[8] = { 1, 2, 3, 99, 4, 5, 6, 99 };
        const TexturePtr texture(
            renderer.CreateTexture(padded, 3, 2, 4, 0, kPixelFormat_R8UInt, "t", 0, true));
        const RecordedResourcePtr resource = renderer.FindResource("t");
        EXPECT_EQ(resource->image->Texel(2, 0), 3u);
        EXPECT_EQ(resource->image->Texel(0, 1), 4u);
        const std::uint64_t created = resource->image->Digest();
        const double size[2] = { 3, 2 };
        const std::uint8_t tight[6] = { 1, 2, 3, 4, 5, 6 };
        EXPECT_EQ(texture->UpdateContents(tight, size, 3, 0, kPixelFormat_R8UInt), kStatus_Success);
        EXPECT_EQ(resource->image->Digest(), created) << alignment;
    }
}

TEST(RecordingTexture, ATextureThatIsNotDynamicCantBeWritten) {
    RecordingRenderer renderer;
    const std::uint32_t texel = 5, other = 6;
    const double size[2] = { 1, 1 };
    const TexturePtr texture(renderer.CreateTexture(&texel, 1, 1, 4, 0, kPixelFormat_BGRA8, "t", 0, false));
    EXPECT_EQ(texture->UpdateContents(&other, size, 4, 0, kPixelFormat_BGRA8), kStatus_Failure);
    EXPECT_EQ(renderer.FindResource("t")->image->Texel(0, 0), 5u);
}

TEST(RecordingTexture, ResourcesAreCountedWhileTheyLive) {
    RecordingRenderer renderer;
    const std::uint32_t texel = 5;
    ITexture* const texture =
        renderer.CreateTexture(&texel, 1, 1, 4, 0, kPixelFormat_BGRA8, "t", 0, false)->AddRef();
    EXPECT_EQ(renderer.LiveResources(), 1u);
    texture->Release();
    EXPECT_EQ(renderer.LiveResources(), 1u);
    texture->Release();
    EXPECT_EQ(renderer.LiveResources(), 0u);
    EXPECT_FALSE(renderer.FindResource("t")->alive);
    EXPECT_EQ(renderer.FindResource("none"), nullptr);
}

TEST(RecordingTexture, ABufferTextureTakesUpToItsCapacity) {
    RecordingRenderer renderer;
    const std::unique_ptr<IBufferTexture> table(renderer.CreateBufferTexture(2, "table", 1));
    ASSERT_TRUE(table);
    const std::vector<std::byte> data(33, std::byte(7));
    EXPECT_EQ(table->GetCapacity(), 32u);
    EXPECT_FALSE(table->UpdateData(nullptr, 16));
    EXPECT_FALSE(table->UpdateData(data.data(), 33));
    EXPECT_EQ(renderer.FindResource("table")->fills, 0u);
    EXPECT_TRUE(table->UpdateData(data.data(), 32));
    EXPECT_TRUE(table->UpdateData(data.data(), 0));
    EXPECT_FALSE(table->Reserved2());
    EXPECT_EQ(table->Reserved5(), 0u);
    renderer.Refuse(Refusal::TextureMapping);
    EXPECT_FALSE(table->UpdateData(data.data(), 32));
}

TEST(RecordingTexture, ABufferTextureIsOneRowOfATexturesWidthAtMost) {
    RecordingRenderer renderer;
    EXPECT_EQ(renderer.CreateBufferTexture(0, "t", 0), nullptr);
    EXPECT_EQ(renderer.CreateBufferTexture(16385, "t", 0), nullptr);
    EXPECT_TRUE(std::unique_ptr<IBufferTexture>(renderer.CreateBufferTexture(16384, "t", 0)));
}

TEST(RecordingTexture, RefusedResourcesAreNull) {
    RecordingRenderer renderer;
    renderer.Refuse(Refusal::Texture);
    renderer.Refuse(Refusal::BufferTexture);
    renderer.Refuse(Refusal::Sampler);
    const std::uint32_t texel = 5;
    EXPECT_EQ(renderer.CreateTexture(&texel, 1, 1, 4, 0, kPixelFormat_BGRA8, "t", 0, true), nullptr);
    EXPECT_EQ(renderer.CreateBufferTexture(256, "t", 1), nullptr);
    EXPECT_EQ(renderer.CreateLinearSamplerState("s"), nullptr);
    EXPECT_EQ(renderer.CreatePointSamplerState("s"), nullptr);
    EXPECT_TRUE(renderer.Resources().empty());
}

} // namespace
} // namespace orvane::render
