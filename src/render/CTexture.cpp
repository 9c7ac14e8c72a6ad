#include "render/CTexture.h"

#include "render/Enumerations.h"

#include <algorithm>
#include <cstring>

namespace orvane::render {
namespace {

// Rows of a caller's size: nothing for what is no number, and never more than the texture has.
std::uint32_t RowsOf(double height, std::uint32_t texelRows) {
    if (!(height > 0)) return 0;
    return height < texelRows ? static_cast<std::uint32_t>(height) : texelRows;
}

std::uint32_t CopyRows(const TextureMapping& to, const std::byte* from, std::uint64_t fromPitch,
                       std::uint32_t rows) {
    if (to.texels == nullptr || to.rowPitch == 0) return kStatus_Failure;
    if (to.rowPitch == fromPitch) {
        std::memcpy(to.texels, from, rows * fromPitch);
        return kStatus_Success;
    }
    const std::size_t rowBytes = std::min<std::uint64_t>(to.rowPitch, fromPitch);
    rows = std::min(rows, to.depthPitch / to.rowPitch);
    for (std::size_t row = 0; row < rows; ++row)
        std::memcpy(to.texels + row * to.rowPitch, from + row * fromPitch, rowBytes);
    return kStatus_Success;
}

} // namespace

CTexture::CTexture(std::uint32_t width, std::uint32_t height)
    : mWidth(width)
    , mHeight(height)
    , mTexelRows(height) {}

ITexture* CTexture::AddRef() {
    ++mUsers;
    return this;
}

void CTexture::Release() {
    if (--mUsers == 0) delete this;
}

std::uint32_t CTexture::SetSize(const double size[2]) {
    mWidth = size[0];
    mHeight = size[1];
    return kStatus_Success;
}

std::uint32_t CTexture::UpdateContents(const void* pixels, const double size[2], std::uint64_t rowPitch,
                                       std::uint32_t /*reserved*/, std::uint32_t pixelFormat) {
    const bool takesFormat = pixelFormat == kPixelFormat_BGRA8 || pixelFormat == kPixelFormat_R8UInt;
    if (pixels == nullptr || !takesFormat) return kStatus_BadArgument;
    if (!HasResource()) return kStatus_NoResource;
    TextureMapping mapping;
    if (!Map(mapping)) return kStatus_Failure;
    const std::uint32_t status =
        CopyRows(mapping, static_cast<const std::byte*>(pixels), rowPitch, RowsOf(size[1], mTexelRows));
    Unmap();
    return status;
}

double* CTexture::GetSize(double out[2]) {
    out[0] = mWidth;
    out[1] = mHeight;
    return out;
}

} // namespace orvane::render
