#include "render/direct3d/DeviceBuffers.h"

#include <cstring>

namespace orvane::render {

DiscardMapping::DiscardMapping(ID3D11DeviceContext* context, ID3D11Resource* resource)
    : mContext(context)
    , mResource(resource)
    , mSucceeded(SUCCEEDED(context->Map(resource, 0, D3D11_MAP_WRITE_DISCARD, 0, &mMapped))) {
    if (!mSucceeded) mMapped = {};
}

DiscardMapping::~DiscardMapping() {
    if (mSucceeded) mContext->Unmap(mResource, 0);
}

HRESULT CreateDynamicBuffer(ID3D11Device* device, std::uint32_t size, std::uint32_t bindFlags,
                            const void* initialData, ComPtr<ID3D11Buffer>& buffer) {
    D3D11_BUFFER_DESC description{};
    description.ByteWidth = size;
    description.Usage = D3D11_USAGE_DYNAMIC;
    description.BindFlags = bindFlags;
    description.CPUAccessFlags = D3D11_CPU_ACCESS_WRITE;
    D3D11_SUBRESOURCE_DATA contents{};
    contents.pSysMem = initialData;
    return device->CreateBuffer(&description, initialData != nullptr ? &contents : nullptr,
                                buffer.ReleaseAndGetAddressOf());
}

bool WriteDynamicBuffer(ID3D11DeviceContext* context, ID3D11Resource* buffer, const void* data,
                        std::size_t size) {
    const DiscardMapping mapping(context, buffer);
    if (!mapping) return false;
    std::memcpy(mapping.Data(), data, size);
    return true;
}

} // namespace orvane::render
