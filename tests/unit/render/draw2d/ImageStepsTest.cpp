// The decoding of an image file step by step: each step made to fail, and every object that the component gave
// out counted afterwards.
#include "render/draw2d/Factories.h"
#include "support/direct3d/Hook.h"
#include "unit/render/draw2d/ImageFiles.h"
#include "unit/render/draw2d/Surface.h"

#include <gtest/gtest.h>

#include <memory>
#include <tuple>
#include <utility>

namespace orvane::render {
namespace {

using namespace tests;
using Microsoft::WRL::ComPtr;
using orvane::tests::Hook;

enum Step {
    CreateStream,
    ReadMemory,
    CreateDecoder,
    GetFrame,
    CreateConverter,
    Convert,
    CreateBitmap,
    kSteps
};

// Where the headers add short forms of an operation, the one that the platform has.
using MakeBitmap = HRESULT (STDMETHODCALLTYPE ID2D1RenderTarget::*)(IWICBitmapSource*,
                                                                    const D2D1_BITMAP_PROPERTIES*,
                                                                    ID2D1Bitmap**);

// Objects of the classes that decode a PNG file: an operation is exchanged for all objects of its class.
struct Decoding {
    explicit Decoding(Bytes file)
        : bytes(std::move(file)) {
        IWICImagingFactory* const factory = ImagingFactory();
        factory->CreateStream(&stream);
        stream->InitializeFromMemory(bytes.data(), DWORD(bytes.size()));
        factory->CreateDecoderFromStream(stream.Get(), nullptr, WICDecodeMetadataCacheOnDemand, &decoder);
        factory->CreateFormatConverter(&converter);
    }

    Bytes bytes;
    ComPtr<IWICStream> stream;
    ComPtr<IWICBitmapDecoder> decoder;
    ComPtr<IWICFormatConverter> converter;
    ComPtr<ID2D1RenderTarget> target = SomeLayerTarget();
};

// Which step fails, and what the others made.
class StepScript {
protected:
    ~StepScript() { EXPECT_TRUE(mObjects.empty()); }

    // A behaviour that fails when it is that step's turn, and keeps what the step makes.
    auto Making(Step step) {
        return [this, step](const auto& next, auto... arguments) {
            if (mFailing == step) return E_FAIL;
            const HRESULT made = next(arguments...);
            IUnknown* const object = *std::get<sizeof...(arguments) - 1>(std::tuple(arguments...));
            object->AddRef();
            mObjects.push_back(object);
            return made;
        };
    }

    auto Doing(Step step) {
        return [this, step](const auto& next, auto... arguments) {
            return mFailing == step ? E_FAIL : next(arguments...);
        };
    }

    // Lets go of what was kept, last made first since it may hold on to earlier ones. How many objects somebody
    // else still holds.
    int CountHeld() {
        int held = 0;
        while (!mObjects.empty()) {
            held += mObjects.back()->Release() > 0;
            mObjects.pop_back();
        }
        return held;
    }

    int mFailing = kSteps;
    std::vector<IUnknown*> mObjects;
};

class ImageSteps : public testing::Test, protected StepScript {
protected:
    const Decoding mSome{ MakePng(1, 1, { 1, 2, 3, 255 }) };
    const Hook<&IWICImagingFactory::CreateStream> mStreams{ ImagingFactory(), Making(CreateStream) };
    const Hook<&IWICStream::InitializeFromMemory> mReads{ mSome.stream.Get(), Doing(ReadMemory) };
    const Hook<&IWICImagingFactory::CreateDecoderFromStream> mDecoders{ ImagingFactory(),
                                                                        Making(CreateDecoder) };
    const Hook<&IWICBitmapDecoder::GetFrame> mFrames{ mSome.decoder.Get(), Making(GetFrame) };
    const Hook<&IWICImagingFactory::CreateFormatConverter> mConverters{ ImagingFactory(),
                                                                        Making(CreateConverter) };
    const Hook<&IWICFormatConverter::Initialize> mConversions{ mSome.converter.Get(), Doing(Convert) };
    const Hook<static_cast<MakeBitmap>(&ID2D1RenderTarget::CreateBitmapFromWicBitmap)> mBitmaps{
        mSome.target.Get(), Doing(CreateBitmap)
    };
};

TEST_F(ImageSteps, AnyThatFailsGivesNullAndEveryObjectIsReleased) {
    const struct {
        Step failing;
        std::size_t made; // objects of the steps before it
    } rows[] = {
        { CreateStream, 0 },    { ReadMemory, 1 }, { CreateDecoder, 1 }, { GetFrame, 2 },
        { CreateConverter, 3 }, { Convert, 4 },    { CreateBitmap, 4 },
    };

    static_assert(std::size(rows) == kSteps);

    Surface surface(8, 8);
    for (const auto& row : rows) {
        mFailing = row.failing;
        const std::unique_ptr<IBitMap2D> bitmap(
            surface.canvas.CreateBitmapFromImageData(mSome.bytes.data(), std::uint32_t(mSome.bytes.size())));
        EXPECT_EQ(bitmap, nullptr) << "step " << row.failing;
        EXPECT_EQ(mObjects.size(), row.made) << "step " << row.failing;
        EXPECT_EQ(CountHeld(), 0) << "step " << row.failing;
    }
}

TEST_F(ImageSteps, AllThatSucceedReleaseEveryObjectBeforeTheBitmapIsUsed) {
    Surface surface(8, 8);
    const std::unique_ptr<IBitMap2D> bitmap(
        surface.canvas.CreateBitmapFromImageData(mSome.bytes.data(), std::uint32_t(mSome.bytes.size())));
    ASSERT_NE(bitmap, nullptr);
    EXPECT_EQ(mObjects.size(), 4u);
    EXPECT_EQ(CountHeld(), 0);
}

TEST_F(ImageSteps, MetadataIsReadOnDemandAndPixelsArePremultiplied) {
    Surface surface(8, 8);
    const std::unique_ptr<IBitMap2D> bitmap(
        surface.canvas.CreateBitmapFromImageData(mSome.bytes.data(), std::uint32_t(mSome.bytes.size())));
    CountHeld();
    ASSERT_EQ(mDecoders.Calls().size(), 1u);
    EXPECT_EQ(std::get<WICDecodeOptions>(mDecoders.Calls()[0]), WICDecodeMetadataCacheOnDemand);
    ASSERT_EQ(mFrames.Calls().size(), 1u);
    EXPECT_EQ(std::get<UINT>(mFrames.Calls()[0]), 0u);
    ASSERT_EQ(mConversions.Calls().size(), 1u);
    EXPECT_TRUE(std::get<REFWICPixelFormatGUID>(mConversions.Calls()[0]) == GUID_WICPixelFormat32bppPBGRA);
}

} // namespace
} // namespace orvane::render
