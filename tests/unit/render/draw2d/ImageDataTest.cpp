// Image files of every sort, whole and broken.
#include "render/draw2d/LayerBacked2DRenderer.h"

#include "support/windows/ProcessUse.h"
#include "unit/render/draw2d/ImageFiles.h"
#include "unit/render/draw2d/Surface.h"

#include <gtest/gtest.h>

#include <memory>
#include <random>

namespace orvane::render {
namespace {

using namespace tests;
using orvane::tests::OpenHandles;
using orvane::tests::ResidentBytes;

using Bitmap = std::unique_ptr<IBitMap2D>;

// From a copy in a block of its own that is gone afterwards.
Bitmap Decoded(IRenderer2D& canvas, const Bytes& file) {
    const std::unique_ptr<std::uint8_t[]> copy(new std::uint8_t[file.size()]);
    std::copy(file.begin(), file.end(), copy.get());
    Bitmap bitmap(canvas.CreateBitmapFromImageData(copy.get(), std::uint32_t(file.size())));
    std::fill_n(copy.get(), file.size(), std::uint8_t(0xCD));
    return bitmap;
}

void ExpectSize(const Bitmap& bitmap, double width, double height) {
    ASSERT_NE(bitmap, nullptr);
    double size[2] = { -1, -1 };
    bitmap->GetSize(size);
    EXPECT_EQ(size[0], width);
    EXPECT_EQ(size[1], height);
}

// Red, green, blue and half transparent red.
const Bytes kFourPixels = { 255, 0, 0, 255, 0, 255, 0, 255, 0, 0, 255, 255, 255, 0, 0, 128 };

TEST(ImageData, APngIsDrawnPremultiplied) {
    Surface surface(2, 2);
    const Bitmap bitmap = Decoded(surface.canvas, MakePng(2, 2, kFourPixels));
    ExpectSize(bitmap, 2, 2);
    const double whole[4] = { 0, 0, 2, 2 };
    const Picture picture =
        surface.After([&](IRenderer2D& canvas) { canvas.DrawBitmap(bitmap.get(), 1, whole); });
    EXPECT_EQ(picture.At(0, 0), kRed);
    EXPECT_EQ(picture.At(1, 0), kGreen);
    EXPECT_EQ(picture.At(0, 1), kBlue);
    EXPECT_TRUE(Near(picture.At(1, 1), { 0, 0, 128, 128 }, 1)) << picture.At(1, 1);
}

TEST(ImageData, TheFormatsOfArtworkAreDecoded) {
    const struct {
        const char* name;
        GUID container;
        int within; // of a channel: one of the formats loses a little
    } rows[] = {
        { "PNG", GUID_ContainerFormatPng, 0 },
        { "JPEG", GUID_ContainerFormatJpeg, 6 },
        { "BMP", GUID_ContainerFormatBmp, 0 },
    };

    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        Surface surface(64, 64);
        const Bytes file = Encode(row.container, 200, 100, 200, 100, 50);
        ASSERT_FALSE(file.empty());
        const Bitmap bitmap = Decoded(surface.canvas, file);
        ExpectSize(bitmap, 200, 100);
        // Any proportions are fitted into the square of a panel.
        const double square[4] = { 0, 0, 64, 64 };
        const Picture picture =
            surface.After([&](IRenderer2D& canvas) { canvas.DrawBitmap(bitmap.get(), 1, square); });
        for (const int at : { 1, 32, 62 })
            EXPECT_TRUE(Near(picture.At(at, 63 - at), { 50, 100, 200, 255 }, row.within + 1))
                << picture.At(at, 63 - at);
    }
}

TEST(ImageData, TheSizeIsInPixelsWhateverTheResolutionOfTheFile) {
    Surface surface(8, 8);
    constexpr std::uint32_t k300DotsPerInch = 11811;
    ExpectSize(Decoded(surface.canvas, MakePngOfResolution(2, 2, kFourPixels, k300DotsPerInch)), 2, 2);
}

TEST(ImageData, NullAndEmptyDataGiveNull) {
    Surface surface(8, 8);
    const std::uint8_t byte = 0;
    EXPECT_EQ(surface.canvas.CreateBitmapFromImageData(nullptr, 0), nullptr);
    EXPECT_EQ(surface.canvas.CreateBitmapFromImageData(nullptr, 100), nullptr);
    EXPECT_EQ(surface.canvas.CreateBitmapFromImageData(&byte, 0), nullptr);
    EXPECT_EQ(surface.canvas.CreateBitmapFromImageData(&byte, 1), nullptr);
}

// The last 16 bytes hold a check sum of the pixels and the end mark: a decoder may do without those.
TEST(ImageData, APngCutShortAtAnyLengthGivesNull) {
    constexpr std::size_t kWithoutPixels = 20;
    Surface surface(8, 8);
    const Bytes file = MakePng(2, 2, kFourPixels);
    ASSERT_NE(Decoded(surface.canvas, file), nullptr);
    for (std::size_t length = 0; length < file.size(); ++length) {
        const Bitmap bitmap =
            Decoded(surface.canvas, Bytes(file.begin(), file.begin() + std::ptrdiff_t(length)));
        if (length < file.size() - kWithoutPixels)
            EXPECT_EQ(bitmap, nullptr) << length;
        else if (bitmap)
            ExpectSize(bitmap, 2, 2);
    }
}

TEST(ImageData, RandomBytesGiveNull) {
    Surface surface(8, 8);
    std::mt19937 random(7);
    for (int i = 0; i < 500; ++i) {
        Bytes file(random() % 600);
        for (auto& byte : file) byte = std::uint8_t(random());
        EXPECT_EQ(Decoded(surface.canvas, file), nullptr) << "try " << i;
    }
}

// Past the signature everything is noise.
TEST(ImageData, RandomBytesAfterEverySignatureGiveNull) {
    const Bytes signatures[] = {
        { 0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n' },
        { 0xFF, 0xD8, 0xFF, 0xE0 },
        { 'G', 'I', 'F', '8', '9', 'a' },
        { 'B', 'M' },
        { 'I', 'I', 42, 0 },
        { 'M', 'M', 0, 42 },
        { 0, 0, 1, 0 },
    };
    Surface surface(8, 8);
    std::mt19937 random(11);
    for (const Bytes& signature : signatures)
        for (int i = 0; i < 60; ++i) {
            Bytes file = signature;
            for (std::size_t length = random() % 400; length > 0; --length)
                file.push_back(std::uint8_t(random()));
            EXPECT_EQ(Decoded(surface.canvas, file), nullptr) << int(signature[0]) << " try " << i;
        }
}

// A picture with single bytes changed decodes or doesn't; it harms nothing either way.
TEST(ImageData, FilesWithAChangedByteAreSurvived) {
    Surface surface(8, 8);
    std::mt19937 random(13);
    for (const Bytes& good :
         { MakePng(2, 2, kFourPixels), Encode(GUID_ContainerFormatJpeg, 16, 16, 9, 99, 199),
           Encode(GUID_ContainerFormatBmp, 16, 16, 9, 99, 199) }) {
        ASSERT_FALSE(good.empty());
        for (int i = 0; i < 200; ++i) {
            Bytes file = good;
            file[random() % file.size()] ^= std::uint8_t(1u << random() % 8);
            Decoded(surface.canvas, file);
        }
        EXPECT_NE(Decoded(surface.canvas, good), nullptr);
    }
}

TEST(ImageData, HugeClaimedSizesGiveNull) {
    Surface surface(8, 8);
    const std::uint32_t sizes[][2] = {
        { 0x7FFFFFFF, 0x7FFFFFFF },
        { 0xFFFFFFFF, 0xFFFFFFFF },
        { 0x40000001, 1 },
        { 1, 0x40000001 },
        { 65536, 65536 },
        { 32768, 32768 },
        { 16385, 1 },
        { 1, 16385 },
        { 16384, 16384 },
        { 0, 0 },
        { 0, 5 },
        { 5, 0 },
    };
    for (const auto& size : sizes)
        EXPECT_EQ(Decoded(surface.canvas, MakeLyingPng(size[0], size[1])), nullptr)
            << size[0] << " by " << size[1];
}

// Files that fail at each of the steps, and one that doesn't.
TEST(ImageData, ThousandsOfRefusedFilesLeakNothing) {
    const Bytes whole = MakePng(2, 2, kFourPixels);

    const struct {
        const char* what;
        Bytes file;
        std::size_t mostBytes; // of growth, by each try
    } rows[] = {
        { "nobody's", { 1, 2, 3, 4, 5, 6, 7, 8, 9, 10 }, 64 },
        { "only a signature", { 0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n' }, 64 },
        { "no pixels", Bytes(whole.begin(), whole.begin() + 40), 64 },
        { "some pixels", Bytes(whole.begin(), whole.begin() + 70), 64 },
        { "too large", MakeLyingPng(0x7FFFFFFF, 2), 64 },
        // Wine's decoder forgets its list of rows, 8 bytes each, once the pixels run out.
        { "too few pixels", MakeLyingPng(1000, 1000), 1000 * 8 + 512 },
        // Wine keeps some hundred bytes of each image that was on its device.
        { "whole", whole, 1024 },
    };

    constexpr std::size_t kTries = 2000, kWarmUpTries = 300;
    Surface surface(8, 8);
    const auto decode = [&](const Bytes& file, std::size_t times) {
        for (std::size_t i = 0; i < times; ++i) Decoded(surface.canvas, file);
    };
    // A drawing and all of them first: the graphics below start threads and open files of their own, not all at once.
    surface.After([](IRenderer2D&) {});
    for (const auto& row : rows) decode(row.file, kWarmUpTries);
    for (const auto& row : rows) {
        const std::size_t before = ResidentBytes();
        const int handles = OpenHandles();
        decode(row.file, kTries);
        EXPECT_LE(ResidentBytes(), before + kTries * row.mostBytes) << row.what;
        EXPECT_EQ(OpenHandles(), handles) << row.what;
        ASSERT_GT(handles, 0);
    }
}

} // namespace
} // namespace orvane::render
