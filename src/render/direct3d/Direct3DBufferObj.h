// An array of four-float values on the device: a texture of one row, rewritten whole.
#pragma once

#include "render/IBufferTexture.h"
#include "render/direct3d/Direct3DTexture.h"

namespace orvane::render {

class Direct3DBufferObj final : public IBufferTexture {
public:
    // Null if the resource can't be made. `context` is the renderer's and outlives the array.
    static IBufferTexture* Make(ID3D11Device* device, ID3D11DeviceContext* context,
                                std::uint32_t elementCount, std::uint32_t textureUnit);

    ~Direct3DBufferObj() override;

    void Bind() override;
    void Unbind() override;
    bool UpdateData(const void* data, std::uint64_t byteCount) override;

    std::uint64_t GetCapacity() override { return mCapacity; }

private:
    Direct3DBufferObj(ShaderResource resource, ID3D11DeviceContext* context, std::uint64_t capacity,
                      std::uint32_t textureUnit);

    ShaderResource mResource;
    ID3D11DeviceContext* const mContext; // not counted
    const std::uint64_t mCapacity;       // bytes
    const std::uint32_t mUnit;
};

} // namespace orvane::render
