// A vertex buffer on the device with the layout in which the vertex stage takes it.
#pragma once

#include "render/VertexObject.h"
#include "render/direct3d/Platform.h"

#include <memory>

namespace orvane::render {

class Direct3DVertexAttributeObject final : public VertexObject {
public:
    // `initialData` is null or holds description.sizeInBytes bytes. Null, with a line if it was the buffer
    // and not a bad argument, when there is no resource.
    static std::unique_ptr<Direct3DVertexAttributeObject>
    Make(ID3D11Device* device, const VertexDescription& description, const void* initialData);

    [[nodiscard]] ID3D11Buffer* Buffer() const { return mBuffer.Get(); }

    // Where a draw puts the size of its index texture: two floats of 16 bytes. Set F only, else null.
    [[nodiscard]] ID3D11Buffer* ExtraConstant() const { return mExtraConstant.Get(); }

    [[nodiscard]] ID3D11InputLayout* Layout() const { return mLayout.Get(); }

    // In bytes, as the device told it when the buffer was last mapped.
    [[nodiscard]] std::uint32_t RowPitch() const { return mRowPitch; }

    void SetRowPitch(std::uint32_t rowPitch) { mRowPitch = rowPitch; }

private:
    explicit Direct3DVertexAttributeObject(const VertexDescription& description)
        : VertexObject(description) {}

    ComPtr<ID3D11Buffer> mBuffer;
    ComPtr<ID3D11Buffer> mExtraConstant;
    ComPtr<ID3D11InputLayout> mLayout;
    std::uint32_t mRowPitch = 0;
};

} // namespace orvane::render
