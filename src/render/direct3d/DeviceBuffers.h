// Buffers that the processor rewrites and the device reads, and the pair of Map and Unmap around a rewrite.
#pragma once

#include "render/direct3d/Platform.h"

#include <cstddef>
#include <cstdint>

namespace orvane::render {

// The whole of a resource mapped for writing, its old contents discarded, as long as this object lives.
// The processor's access ends with it; if the mapping failed there is nothing to end.
class DiscardMapping {
public:
    DiscardMapping(ID3D11DeviceContext* context, ID3D11Resource* resource);
    ~DiscardMapping();
    DiscardMapping(const DiscardMapping&) = delete;
    DiscardMapping& operator=(const DiscardMapping&) = delete;

    explicit operator bool() const { return mMapped.pData != nullptr; }

    [[nodiscard]] void* Data() const { return mMapped.pData; }

private:
    ID3D11DeviceContext* const mContext;
    ID3D11Resource* const mResource;
    D3D11_MAPPED_SUBRESOURCE mMapped{};
    const bool mSucceeded;
};

// A dynamic buffer of `size` bytes that the processor may write; `initialData` is null or holds all of it.
// `bindFlags` are D3D11_BIND_FLAG values. The device's status.
HRESULT CreateDynamicBuffer(ID3D11Device* device, std::uint32_t size, std::uint32_t bindFlags,
                            const void* initialData, ComPtr<ID3D11Buffer>& buffer);

// Rewrites `buffer` from its start; what lies behind `size` bytes is undefined afterwards. False, with the
// contents as they were, if it can't be mapped.
bool WriteDynamicBuffer(ID3D11DeviceContext* context, ID3D11Resource* buffer, const void* data,
                        std::size_t size);

} // namespace orvane::render
