// What every realisation's textures share: the count of users, the logical size, and the rewriting of the
// contents row by row. A realisation adds the resource and how it is mapped and bound.
#pragma once

#include "render/ITexture.h"

#include <cstddef>
#include <cstdint>

namespace orvane::render {

// A texture's memory while it is mapped for writing; pitches in bytes.
struct TextureMapping {
    std::byte* texels = nullptr;
    std::uint32_t rowPitch = 0;   // from row to row
    std::uint32_t depthPitch = 0; // all rows
};

class CTexture : public ITexture {
public:
    CTexture(const CTexture&) = delete;
    CTexture& operator=(const CTexture&) = delete;

    ITexture* AddRef() override;
    void Release() override;
    std::uint32_t SetSize(const double size[2]) override;
    std::uint32_t UpdateContents(const void* pixels, const double size[2], std::uint64_t rowPitch,
                                 std::uint32_t reserved, std::uint32_t pixelFormat) override;
    double* GetSize(double out[2]) override;

protected:
    // A count of one. Sizes in texels.
    CTexture(std::uint32_t width, std::uint32_t height);

    [[nodiscard]] virtual bool HasResource() const = 0;

    // Maps the whole texture, its old contents discarded. False if it can't be; then there is no Unmap.
    virtual bool Map(TextureMapping& mapping) = 0;
    virtual void Unmap() = 0;

private:
    std::uint32_t mUsers = 1;
    double mWidth, mHeight; // logical
    const std::uint32_t mTexelRows;
};

} // namespace orvane::render
