// An array of four-float values that shaders read as the texels of a one-row texture; the colour table.
// It has one owner, who deletes it before the renderer that made it.
#pragma once

#include <cstdint>

namespace orvane::render {

class IBufferTexture {
public:
    // Slots 0 and 1. Bind the array, or nothing, to the fragment stage at the texture's unit.
    virtual void Bind() = 0;
    virtual void Unbind() = 0;

    // Slot 2. Reserved: false.
    virtual bool Reserved2() { return false; }

    // Slot 3. Replaces the contents from the start; what lies behind `byteCount` is undefined afterwards.
    // False, with nothing written, for null data, a byteCount above the capacity, or a failed mapping.
    virtual bool UpdateData(const void* data, std::uint64_t byteCount) = 0;

    // Slot 4. Capacity in bytes: 16 for each element.
    virtual std::uint64_t GetCapacity() = 0;

    // Slot 5. Reserved: 0.
    virtual std::uint32_t Reserved5() { return 0; }

    virtual ~IBufferTexture() = default; // slot 6
};

} // namespace orvane::render
