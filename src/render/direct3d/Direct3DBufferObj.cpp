#include "render/direct3d/Direct3DBufferObj.h"

#include "render/direct3d/DeviceBuffers.h"

#include <utility>

namespace orvane::render {
namespace {

constexpr std::uint64_t kElementBytes = 4 * sizeof(float);

} // namespace

IBufferTexture* Direct3DBufferObj::Make(ID3D11Device* device, ID3D11DeviceContext* context,
                                        std::uint32_t elementCount, std::uint32_t textureUnit) {
    constexpr bool kDynamic = true;
    ShaderResource resource;
    if (!CreateShaderResource(device, elementCount, 1, DXGI_FORMAT_R32G32B32A32_FLOAT, kDynamic, nullptr,
                              resource))
        return nullptr;
    return new Direct3DBufferObj(std::move(resource), context, elementCount * kElementBytes, textureUnit);
}

Direct3DBufferObj::Direct3DBufferObj(ShaderResource resource, ID3D11DeviceContext* context,
                                     std::uint64_t capacity, std::uint32_t textureUnit)
    : mResource(std::move(resource))
    , mContext(context)
    , mCapacity(capacity)
    , mUnit(textureUnit) {}

Direct3DBufferObj::~Direct3DBufferObj() {
    mResource.view.Reset();
    mResource.texture.Reset();
}

void Direct3DBufferObj::Bind() {
    mContext->PSSetShaderResources(mUnit, 1, mResource.view.GetAddressOf());
}

void Direct3DBufferObj::Unbind() {
    ID3D11ShaderResourceView* const none = nullptr;
    mContext->PSSetShaderResources(mUnit, 1, &none);
}

// The mapped row pitch plays no part: there is one row.
bool Direct3DBufferObj::UpdateData(const void* data, std::uint64_t byteCount) {
    if (data == nullptr || byteCount > mCapacity) return false;
    return WriteDynamicBuffer(mContext, mResource.texture.Get(), data, byteCount);
}

} // namespace orvane::render
