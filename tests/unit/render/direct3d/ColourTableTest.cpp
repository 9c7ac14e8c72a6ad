// Set F: an image of indices shown through a table of 256 colours.
#include "support/direct3d/Direct3DTest.h"

#include "render/PipelineKind.h"

#include <array>
#include <memory>

namespace orvane::tests {
namespace {

using namespace render;

constexpr auto kKind = kPosition_TextureCoord_CLUT_TexelFetch_BlendingOFF;
constexpr std::uint32_t kEntries = 256, kTableUnit = 1;

using Table = std::array<std::array<float, 4>, kEntries>;

// Every entry magenta but the first two and the last two.
Table MakeTable() {
    Table table;
    table.fill({ 1, 0, 1, 1 });
    table[0] = { 0.2f, 0.4f, 0.6f, 1 };
    table[1] = { 0, 1, 0, 1 };
    table[254] = { 1, 1, 0, 0.5f };
    table[255] = { 1, 1, 1, 0 };
    return table;
}

constexpr Colour kEntry0 = { 51, 102, 153, 255 }, kEntry1 = { 0, 255, 0, 255 };
constexpr Colour kEntry254 = { 255, 255, 0, 128 }, kEntry255 = { 255, 255, 255, 0 };

Floats Coordinates(int corner) {
    return { corner % 2 ? 1.0f : 0.0f, corner / 2 ? 0.0f : 1.0f };
}

class ColourTable : public Direct3DTest {
protected:
    void SetUp() override {
        Direct3DTest::SetUp();
        mTable.reset(mRenderer.CreateBufferTexture(kEntries, "table", kTableUnit));
        ASSERT_NE(mTable, nullptr);
        const Table table = MakeTable();
        ASSERT_TRUE(mTable->UpdateData(table.data(), sizeof table));
    }

    TexturePtr Indices(std::uint32_t width, std::uint32_t height, const std::vector<std::uint8_t>& indices) {
        return TexturePtr(mRenderer.CreateTexture(indices.data(), width, height, width, 0,
                                                  kPixelFormat_R8UInt, "", 0, false));
    }

    // The whole image over the whole target.
    void Show(ITexture* indices) {
        mTable->Bind();
        Draw(kKind, kPrimitive_TriangleStrip, StripOf(-1, -1, 1, 1, Coordinates), indices);
        mTable->Unbind();
    }

    std::unique_ptr<IBufferTexture> mTable;
};

TEST_F(ColourTable, Indices0And1And254And255ShowTheirEntriesAlphaIncludedWithNothingMixed) {
    const TexturePtr image = Indices(4, 1, { 0, 1, 254, 255 });
    Show(image.get());
    const Picture picture = Read();
    EXPECT_TRUE(picture.IsFilled({ 0, 0, 16, 64 }, kEntry0));
    EXPECT_TRUE(picture.IsFilled({ 16, 0, 32, 64 }, kEntry1));
    EXPECT_TRUE(picture.IsFilled({ 32, 0, 48, 64 }, kEntry254));
    EXPECT_TRUE(picture.IsFilled({ 48, 0, 64, 64 }, kEntry255));
}

TEST_F(ColourTable, TheFirstRowOfTheImageIsOnTop) {
    const TexturePtr image = Indices(1, 2, { 1, 0 });
    Show(image.get());
    EXPECT_TRUE(Read().IsFilled({ 0, 0, 64, 32 }, kEntry1));
    EXPECT_TRUE(Read().IsFilled({ 0, 32, 64, 64 }, kEntry0));
}

TEST_F(ColourTable, AnotherTableShowsTheSameImageInOtherColours) {
    const TexturePtr image = Indices(1, 1, { 255 });
    Table table = MakeTable();
    table[255] = { 1, 0, 0, 1 };
    ASSERT_TRUE(mTable->UpdateData(table.data(), sizeof table));
    Show(image.get());
    EXPECT_TRUE(Read().IsFilled({ 0, 0, 64, 64 }, { 255, 0, 0, 255 }));
}

TEST_F(ColourTable, TexelsAreFoundByTheLogicalSize) {
    const TexturePtr image = Indices(4, 1, { 0, 1, 254, 255 });
    const double half[2] = { 2, 1 };
    image->SetSize(half);
    Show(image.get());
    EXPECT_TRUE(Read().IsFilled({ 0, 0, 32, 64 }, kEntry0));
    EXPECT_TRUE(Read().IsFilled({ 32, 0, 64, 64 }, kEntry1));
}

TEST_F(ColourTable, VerticesAreInClipSpaceWhateverTheMatrices) {
    const TexturePtr image = Indices(1, 1, { 1 });
    mRenderer.PushOrthographicProjection(1000, 1000);
    mRenderer.PushModelView();
    mRenderer.Translate(5, 5, 0);
    Show(image.get());
    EXPECT_TRUE(Read().IsFilled({ 0, 0, 64, 64 }, kEntry1));
}

TEST_F(ColourTable, ItsDrawLeavesTheTextureSizeInPlaceOfTheTint) {
    const float green[4] = { 0, 1, 0, 1 };
    mRenderer.SetColor(green, 1);
    const TexturePtr image = Indices(4, 1, { 0, 0, 0, 0 });
    Show(image.get());
    Draw(kPos_BlendingOFF, kPrimitive_TriangleStrip, StripOf(-1, -1, 1, 1));
    EXPECT_TRUE(Read().IsFilled({ 0, 0, 64, 64 }, { 255, 255, 0, 0 })); // (4, 1, 0, 0), held within 1
    mRenderer.SetColor(green, 1);
    Draw(kPos_BlendingOFF, kPrimitive_TriangleStrip, StripOf(-1, -1, 1, 1));
    EXPECT_TRUE(Read().IsFilled({ 0, 0, 64, 64 }, { 0, 255, 0, 255 }));
}

TEST_F(ColourTable, AnImageOfOddWidthIsRewrittenRowByRow) {
    constexpr std::uint32_t kWidth = 5, kHeight = 4;
    const TexturePtr image(
        mRenderer.CreateTexture(nullptr, kWidth, kHeight, 0, 0, kPixelFormat_R8UInt, "", 0, true));
    ASSERT_NE(image, nullptr);
    // A pitch of its own: two bytes behind each row belong to no texel.
    constexpr std::uint32_t kPitch = kWidth + 2;
    std::vector<std::uint8_t> rows(kPitch * kHeight, 7);
    for (std::uint32_t y = 0; y < kHeight; ++y)
        for (std::uint32_t x = 0; x < kWidth; ++x) rows[y * kPitch + x] = (x + y) % 2;
    const double size[2] = { 0, kHeight };
    ASSERT_EQ(image->UpdateContents(rows.data(), size, kPitch, 0, kPixelFormat_R8UInt), kStatus_Success);
    Show(image.get());
    const Picture picture = Read();
    for (int y = 0; y < 64; ++y)
        for (int x = 0; x < 64; ++x) {
            const int column = int((x + 0.5) / 64 * kWidth), row = int((y + 0.5) / 64 * kHeight);
            ASSERT_TRUE(IsNear(picture.At(x, y), (column + row) % 2 ? kEntry1 : kEntry0)) << x << ' ' << y;
        }
}

TEST_F(ColourTable, UpdateDataTakesNoMoreThanItsCapacity) {
    EXPECT_EQ(mTable->GetCapacity(), 4096u);
    const std::vector<float> data(1025);
    EXPECT_FALSE(mTable->UpdateData(nullptr, 16));
    EXPECT_FALSE(mTable->UpdateData(data.data(), 4097));
    EXPECT_TRUE(mTable->UpdateData(data.data(), 4096));
}

TEST_F(ColourTable, NullUnbindsTheImageAndTheTable) {
    const TexturePtr image = Indices(1, 1, { 1 });
    image->Bind();
    mTable->Bind();
    ID3D11ShaderResourceView* views[2] = {};
    Context()->PSGetShaderResources(0, 2, views);
    for (auto* view : views) {
        ASSERT_NE(view, nullptr);
        view->Release();
    }
    mRenderer.BindTexture(nullptr);
    Context()->PSGetShaderResources(0, 2, views);
    EXPECT_EQ(views[0], nullptr);
    EXPECT_EQ(views[1], nullptr);
    mRenderer.BindTexture(image.get());
    Context()->PSGetShaderResources(0, 2, views);
    ASSERT_NE(views[0], nullptr);
    views[0]->Release();
}

} // namespace
} // namespace orvane::tests
