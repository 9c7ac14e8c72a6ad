#include "unit/render/draw2d/ImageFiles.h"

#include "render/draw2d/Factories.h"

#include <objidl.h>

#include <algorithm>
#include <string_view>

namespace orvane::render::tests {

namespace {

using Microsoft::WRL::ComPtr;

void PutBigEndian(Bytes& out, std::uint32_t value) {
    for (int shift = 24; shift >= 0; shift -= 8) out.push_back(std::uint8_t(value >> shift));
}

std::uint32_t Crc(const std::uint8_t* at, std::size_t size) {
    std::uint32_t crc = ~0u;
    for (std::size_t i = 0; i < size; ++i) {
        crc ^= at[i];
        for (int bit = 0; bit < 8; ++bit) crc = (crc & 1) ? 0xEDB88320u ^ (crc >> 1) : crc >> 1;
    }
    return ~crc;
}

std::uint32_t Adler(const Bytes& bytes) {
    std::uint32_t a = 1, b = 0;
    for (const std::uint8_t byte : bytes) {
        a = (a + byte) % 65521;
        b = (b + a) % 65521;
    }
    return b << 16 | a;
}

void PutChunk(Bytes& out, std::string_view type, const Bytes& body) {
    PutBigEndian(out, std::uint32_t(body.size()));
    const std::size_t start = out.size();
    out.insert(out.end(), type.begin(), type.end());
    out.insert(out.end(), body.begin(), body.end());
    PutBigEndian(out, Crc(&out[start], out.size() - start));
}

// A compressed stream of stored blocks.
Bytes Deflated(const Bytes& bytes) {
    constexpr std::size_t kMostInABlock = 65535;
    Bytes out = { 0x78, 0x01 };
    for (std::size_t at = 0; at < bytes.size();) {
        const std::size_t size = std::min(kMostInABlock, bytes.size() - at);
        out.push_back(at + size == bytes.size());
        for (const std::size_t word : { size, ~size }) {
            out.push_back(std::uint8_t(word));
            out.push_back(std::uint8_t(word >> 8));
        }
        out.insert(out.end(), bytes.begin() + std::ptrdiff_t(at), bytes.begin() + std::ptrdiff_t(at + size));
        at += size;
    }
    PutBigEndian(out, Adler(bytes));
    return out;
}

Bytes Scanlines(std::uint32_t width, std::uint32_t height, const Bytes& rgba) {
    Bytes out;
    for (std::size_t y = 0; y < height; ++y) {
        out.push_back(0); // no filter
        const auto row = rgba.begin() + std::ptrdiff_t(y * width * 4);
        out.insert(out.end(), row, row + std::ptrdiff_t(width) * 4);
    }
    return out;
}

Bytes Png(std::uint32_t width, std::uint32_t height, const Bytes& scanlines, std::uint32_t dotsPerMetre) {
    Bytes out = { 0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n' };
    Bytes header;
    PutBigEndian(header, width);
    PutBigEndian(header, height);
    header.insert(header.end(), { 8, 6, 0, 0, 0 }); // bits of a channel, four channels, and no extras
    PutChunk(out, "IHDR", header);
    if (dotsPerMetre != 0) {
        Bytes density;
        PutBigEndian(density, dotsPerMetre);
        PutBigEndian(density, dotsPerMetre);
        density.push_back(1);
        PutChunk(out, "pHYs", density);
    }
    PutChunk(out, "IDAT", Deflated(scanlines));
    PutChunk(out, "IEND", {});
    return out;
}

Bytes ContentsOf(IStream& stream) {
    STATSTG status = {};
    if (FAILED(stream.Stat(&status, STATFLAG_NONAME)) || FAILED(stream.Seek({}, STREAM_SEEK_SET, nullptr)))
        return {};
    Bytes bytes(std::size_t(status.cbSize.QuadPart));
    ULONG read = 0;
    if (FAILED(stream.Read(bytes.data(), ULONG(bytes.size()), &read))) return {};
    bytes.resize(read);
    return bytes;
}

} // namespace

Bytes MakePng(std::uint32_t width, std::uint32_t height, const Bytes& rgba) {
    return Png(width, height, Scanlines(width, height, rgba), 0);
}

Bytes MakeLyingPng(std::uint32_t width, std::uint32_t height) {
    return Png(width, height, Scanlines(1, 1, { 1, 2, 3, 255 }), 0);
}

Bytes MakePngOfResolution(std::uint32_t width, std::uint32_t height, const Bytes& rgba,
                          std::uint32_t dotsPerMetre) {
    return Png(width, height, Scanlines(width, height, rgba), dotsPerMetre);
}

Bytes Encode(REFGUID container, std::uint32_t width, std::uint32_t height, std::uint8_t red,
             std::uint8_t green, std::uint8_t blue) {
    Bytes pixels;
    for (std::uint32_t i = 0; i < width * height; ++i) pixels.insert(pixels.end(), { blue, green, red });
    ComPtr<IStream> stream;
    ComPtr<IWICBitmapEncoder> encoder;
    ComPtr<IWICBitmapFrameEncode> frame;
    WICPixelFormatGUID format = GUID_WICPixelFormat24bppBGR;
    IWICImagingFactory* const factory = ImagingFactory();
    if (FAILED(CreateStreamOnHGlobal(nullptr, TRUE, &stream)) ||
        FAILED(factory->CreateEncoder(container, nullptr, &encoder)) ||
        FAILED(encoder->Initialize(stream.Get(), WICBitmapEncoderNoCache)) ||
        FAILED(encoder->CreateNewFrame(&frame, nullptr)) || FAILED(frame->Initialize(nullptr)) ||
        FAILED(frame->SetSize(width, height)) || FAILED(frame->SetPixelFormat(&format)) ||
        format != GUID_WICPixelFormat24bppBGR ||
        FAILED(frame->WritePixels(height, width * 3, UINT(pixels.size()), pixels.data())) ||
        FAILED(frame->Commit()) || FAILED(encoder->Commit()))
        return {};
    return ContentsOf(*stream.Get());
}

} // namespace orvane::render::tests
