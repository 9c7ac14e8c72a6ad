#include "render/draw2d/ImageDecoder.h"

#include "render/draw2d/Factories.h"

namespace orvane::render {

using Microsoft::WRL::ComPtr;

namespace {

bool HasUsableSize(IWICBitmapSource& picture) {
    UINT width = 0, height = 0;
    if (FAILED(picture.GetSize(&width, &height))) return false;
    return width >= 1 && height >= 1 && width <= kLargestImageSide && height <= kLargestImageSide &&
           std::uint64_t(width) * height <= kMostImagePixels;
}

ComPtr<IWICBitmapFrameDecode> FirstFrame(IWICImagingFactory& factory, const void* data, std::uint32_t size) {
    ComPtr<IWICStream> stream;
    ComPtr<IWICBitmapDecoder> decoder;
    ComPtr<IWICBitmapFrameDecode> frame;
    // The stream only reads, though its interface doesn't say so.
    auto* const bytes = static_cast<BYTE*>(const_cast<void*>(data));
    if (FAILED(factory.CreateStream(&stream)) || FAILED(stream->InitializeFromMemory(bytes, size)) ||
        FAILED(factory.CreateDecoderFromStream(stream.Get(), nullptr, WICDecodeMetadataCacheOnDemand,
                                               &decoder)) ||
        FAILED(decoder->GetFrame(0, &frame)))
        return nullptr;
    return frame;
}

} // namespace

ComPtr<IWICBitmapSource> DecodeImage(const void* data, std::uint32_t size) {
    if (!data || size == 0) return nullptr;
    IWICImagingFactory* const factory = ImagingFactory();
    if (!factory) return nullptr;
    const ComPtr<IWICBitmapFrameDecode> frame = FirstFrame(*factory, data, size);
    if (!frame || !HasUsableSize(*frame.Get())) return nullptr;
    ComPtr<IWICFormatConverter> converter;
    if (FAILED(factory->CreateFormatConverter(&converter)) ||
        FAILED(converter->Initialize(frame.Get(), GUID_WICPixelFormat32bppPBGRA, WICBitmapDitherTypeNone,
                                     nullptr, 0, WICBitmapPaletteTypeMedianCut)))
        return nullptr;
    return converter;
}

} // namespace orvane::render
