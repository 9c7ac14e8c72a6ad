// A two-dimensional texture, counted by its users. It starts with a count of one, which is the creator's.
//
// The count is a plain integer without a lock, and the pixels belong to the renderer that made the texture:
// the last Release has to come before that renderer is deleted.
#pragma once

#include <cstdint>
#include <memory>

namespace orvane::render {

class ITexture {
public:
    // Slot 0. Counts one more user and returns this texture.
    virtual ITexture* AddRef() = 0;

    // Slot 1. Counts one user less. The last one deletes the texture.
    virtual void Release() = 0;

    // Slot 2. Replaces the logical size (width, height) that GetSize tells; the pixels are not touched.
    // Returns kStatus_Success.
    virtual std::uint32_t SetSize(const double size[2]) = 0;

    // Slot 3. Rewrites the whole texture from `pixels`, `rowPitch` bytes from row to row; the height comes
    // from size[1], size[0] is not read. The caller provides height * rowPitch bytes.
    // Returns kStatus_BadArgument if `pixels` is null or `pixelFormat` is neither kPixelFormat_BGRA8 nor
    // kPixelFormat_R8UInt, kStatus_NoResource if the texture has no resource, kStatus_Failure if it can't be
    // written (one that was not made dynamic never can), otherwise kStatus_Success.
    virtual std::uint32_t UpdateContents(const void* pixels, const double size[2], std::uint64_t rowPitch,
                                         std::uint32_t reserved, std::uint32_t pixelFormat) = 0;

    // Slot 4. Copies the logical size out, at first the width and height in texels. Returns `out`.
    virtual double* GetSize(double out[2]) = 0;

    // Slots 5 and 6. Bind the texture, or nothing, to the fragment stage at the texture's unit.
    virtual void Bind() = 0;
    virtual void Unbind() = 0;

    // Slots 7 and 8. Reserved: 0, and nothing.
    virtual std::uint32_t Reserved7() { return 0; }

    virtual void Reserved8() {}

protected:
    virtual ~ITexture() = default; // slot 9; Release is the only way here
};

struct TextureReleaser {
    void operator()(ITexture* texture) const { texture->Release(); }
};

// One counted use of a texture.
using TexturePtr = std::unique_ptr<ITexture, TextureReleaser>;

} // namespace orvane::render
