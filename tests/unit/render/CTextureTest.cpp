#include "render/CTexture.h"

#include "render/Enumerations.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace orvane::render {
namespace {

using Bytes = std::vector<std::uint8_t>;

// What a device would say, and the memory that it would hand out.
struct Device {
    bool hasResource = true, mapSucceeds = true, mapsNothing = false;
    std::uint32_t rowPitch = 4, depthPitch = 12;
    Bytes memory = Bytes(12, 0xEE);
    int maps = 0, unmaps = 0;
    bool deleted = false;
};

class TestTexture final : public CTexture {
public:
    TestTexture(Device& device, std::uint32_t width, std::uint32_t height)
        : CTexture(width, height)
        , mDevice(device) {}

    ~TestTexture() override { mDevice.deleted = true; }

    void Bind() override {}

    void Unbind() override {}

protected:
    bool HasResource() const override { return mDevice.hasResource; }

    bool Map(TextureMapping& mapping) override {
        if (!mDevice.mapSucceeds) return false;
        ++mDevice.maps;
        auto* const memory = reinterpret_cast<std::byte*>(mDevice.memory.data());
        mapping = { mDevice.mapsNothing ? nullptr : memory, mDevice.rowPitch, mDevice.depthPitch };
        return true;
    }

    void Unmap() override { ++mDevice.unmaps; }

private:
    Device& mDevice;
};

// A texture of 4 by 3 one-byte texels.
class CTextureContents : public testing::Test {
protected:
    std::uint32_t Update(const Bytes& pixels, std::uint64_t rowPitch, double height = 3,
                         std::uint32_t format = kPixelFormat_R8UInt) {
        const double size[2] = { 4, height };
        return mTexture->UpdateContents(pixels.data(), size, rowPitch, 0, format);
    }

    Device mDevice;
    TexturePtr mTexture{ new TestTexture(mDevice, 4, 3) };
};

TEST(CTexture, TheLastReleaseDeletes) {
    Device device;
    ITexture* const texture = new TestTexture(device, 4, 3);
    EXPECT_EQ(texture->AddRef(), texture);
    texture->Release();
    EXPECT_FALSE(device.deleted);
    texture->Release();
    EXPECT_TRUE(device.deleted);
}

TEST(CTexture, SizeIsLogicalAndMayBeReplaced) {
    Device device;
    const TexturePtr texture(new TestTexture(device, 4, 3));
    double size[2] = {};
    EXPECT_EQ(texture->GetSize(size), size);
    EXPECT_EQ(size[0], 4);
    EXPECT_EQ(size[1], 3);
    const double other[2] = { 100.5, 0 };
    EXPECT_EQ(texture->SetSize(other), 0u);
    texture->GetSize(size);
    EXPECT_EQ(size[0], 100.5);
    EXPECT_EQ(size[1], 0);
    EXPECT_EQ(device.maps, 0) << "the pixels are not touched";
}

TEST(CTexture, ReservedOperationsDoNothing) {
    Device device;
    const TexturePtr texture(new TestTexture(device, 4, 3));
    EXPECT_EQ(texture->Reserved7(), 0u);
    texture->Reserved8();
    EXPECT_EQ(device.maps, 0);
}

TEST_F(CTextureContents, EqualPitchesCopyAllRowsAtOnce) {
    const Bytes pixels = { 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12 };
    EXPECT_EQ(Update(pixels, 4), kStatus_Success);
    EXPECT_EQ(mDevice.memory, pixels);
    EXPECT_EQ(mDevice.maps, 1);
    EXPECT_EQ(mDevice.unmaps, 1);
}

TEST_F(CTextureContents, AWiderMappingIsFilledRowByRow) {
    mDevice.rowPitch = 6;
    mDevice.depthPitch = 18;
    mDevice.memory.assign(18, 0xEE);
    EXPECT_EQ(Update({ 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12 }, 4), kStatus_Success);
    EXPECT_EQ(mDevice.memory,
              (Bytes{ 1, 2, 3, 4, 0xEE, 0xEE, 5, 6, 7, 8, 0xEE, 0xEE, 9, 10, 11, 12, 0xEE, 0xEE }));
}

TEST_F(CTextureContents, AWiderSourceIsCutToTheMapping) {
    EXPECT_EQ(Update({ 1, 2, 3, 4, 0, 0, 5, 6, 7, 8, 0, 0, 9, 10, 11, 12, 0, 0 }, 6), kStatus_Success);
    EXPECT_EQ(mDevice.memory, (Bytes{ 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12 }));
}

TEST_F(CTextureContents, RowsAreLimitedByTheMappingsDepth) {
    mDevice.rowPitch = 6;
    mDevice.depthPitch = 12; // two rows
    mDevice.memory.assign(12, 0xEE);
    EXPECT_EQ(Update({ 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12 }, 4), kStatus_Success);
    EXPECT_EQ(mDevice.memory, (Bytes{ 1, 2, 3, 4, 0xEE, 0xEE, 5, 6, 7, 8, 0xEE, 0xEE }));
}

TEST_F(CTextureContents, AHeightAboveTheTexturesStaysInsideTheMapping) {
    const Bytes pixels(4 * 100, 7);
    EXPECT_EQ(Update(pixels, 4, 100), kStatus_Success);
    EXPECT_EQ(mDevice.memory, Bytes(12, 7));
}

TEST_F(CTextureContents, AHeightBelowZeroOrNoNumberCopiesNothing) {
    const Bytes pixels(12, 7);
    EXPECT_EQ(Update(pixels, 4, -5), kStatus_Success);
    EXPECT_EQ(Update(pixels, 4, std::nan("")), kStatus_Success);
    EXPECT_EQ(mDevice.memory, Bytes(12, 0xEE));
}

TEST_F(CTextureContents, TheWidthOfTheSizeIsNotRead) {
    const Bytes pixels(12, 7);
    const double size[2] = { std::nan(""), 3 };
    EXPECT_EQ(mTexture->UpdateContents(pixels.data(), size, 4, 0, kPixelFormat_BGRA8), kStatus_Success);
    EXPECT_EQ(mDevice.memory, pixels);
}

TEST_F(CTextureContents, NullPixelsAndOtherFormatsAreBadArguments) {
    const Bytes pixels(12, 7);
    const double size[2] = { 4, 3 };
    EXPECT_EQ(mTexture->UpdateContents(nullptr, size, 4, 0, kPixelFormat_R8UInt), kStatus_BadArgument);
    for (const std::uint32_t format : { 0u, 2u, 3u, 5u, 6u })
        EXPECT_EQ(Update(pixels, 4, 3, format), kStatus_BadArgument) << format;
    mDevice.hasResource = false;
    EXPECT_EQ(mTexture->UpdateContents(nullptr, size, 4, 0, kPixelFormat_R8UInt), kStatus_BadArgument)
        << "arguments are looked at first";
    EXPECT_EQ(mDevice.maps, 0);
}

TEST_F(CTextureContents, WithoutAResourceTheStatusIsThree) {
    mDevice.hasResource = false;
    EXPECT_EQ(Update(Bytes(12, 7), 4), 3u);
}

TEST_F(CTextureContents, AMappingThatFailsOrYieldsNothingIsSeven) {
    mDevice.mapSucceeds = false;
    EXPECT_EQ(Update(Bytes(12, 7), 4), 7u);
    EXPECT_EQ(mDevice.unmaps, 0);
    mDevice.mapSucceeds = true;
    mDevice.mapsNothing = true;
    EXPECT_EQ(Update(Bytes(12, 7), 4), 7u);
    mDevice.mapsNothing = false;
    mDevice.rowPitch = 0;
    EXPECT_EQ(Update(Bytes(12, 7), 4), 7u);
    EXPECT_EQ(Update(Bytes(12, 7), 0), 7u);
    EXPECT_EQ(mDevice.unmaps, mDevice.maps) << "what was mapped is unmapped";
    EXPECT_EQ(mDevice.memory, Bytes(12, 0xEE));
}

} // namespace
} // namespace orvane::render
