#include "render/direct3d/Direct3DVertexAttributeObject.h"

#include "platform/LogLine.h"
#include "render/direct3d/DeviceBuffers.h"
#include "render/direct3d/Direct3DFunctions.h"

#include <vector>

namespace orvane::render {
namespace {

constexpr std::uint32_t kExtraConstantBytes = 16; // the least that a constant buffer may have

DXGI_FORMAT FormatOfFloats(std::uint32_t components) {
    constexpr DXGI_FORMAT kFormats[] = { DXGI_FORMAT_UNKNOWN, DXGI_FORMAT_R32_FLOAT, DXGI_FORMAT_R32G32_FLOAT,
                                         DXGI_FORMAT_R32G32B32_FLOAT, DXGI_FORMAT_R32G32B32A32_FLOAT };
    return kFormats[components];
}

// Per-vertex elements in input slot 0, checked against the code of the vertex stage.
HRESULT CreateLayout(ID3D11Device* device, CRenderingPipeline& pipeline, ComPtr<ID3D11InputLayout>& layout) {
    std::vector<D3D11_INPUT_ELEMENT_DESC> elements;
    for (const VertexElement& element : ShaderSetRowOf(pipeline.Row().set).elements)
        elements.push_back({ element.semantic, 0, FormatOfFloats(element.components), 0, element.offset,
                             D3D11_INPUT_PER_VERTEX_DATA, 0 });
    IVertexFunction* const vertex = pipeline.GetVertexFunction();
    return device->CreateInputLayout(elements.data(), static_cast<UINT>(elements.size()),
                                     vertex->GetFunctionCode(), vertex->GetFunctionCodeSize(), &layout);
}

} // namespace

std::unique_ptr<Direct3DVertexAttributeObject>
Direct3DVertexAttributeObject::Make(ID3D11Device* device, const VertexDescription& description,
                                    const void* initialData) {
    std::unique_ptr<Direct3DVertexAttributeObject> object(new Direct3DVertexAttributeObject(description));
    const HRESULT status = CreateDynamicBuffer(device, description.sizeInBytes, D3D11_BIND_VERTEX_BUFFER,
                                               initialData, object->mBuffer);
    if (FAILED(status)) {
        if (status != E_INVALIDARG)
            platform::LogFormat("CreateBuffer failed with error 0x%X\n", static_cast<unsigned>(status));
        return nullptr;
    }
    // Buffers in clip space are those of set F. Without this constant they draw all the same, with no size.
    if (!description.usesMatrices)
        CreateDynamicBuffer(device, kExtraConstantBytes, D3D11_BIND_CONSTANT_BUFFER, nullptr,
                            object->mExtraConstant);
    if (FAILED(CreateLayout(device, *description.pipeline, object->mLayout))) return nullptr;
    return object;
}

} // namespace orvane::render
