// Direct3DRenderer: what is made once and drawn with: textures, arrays, vertex buffers, stages, samplers.
#include "render/direct3d/Direct3DBufferObj.h"
#include "render/direct3d/Direct3DFunctions.h"
#include "render/direct3d/Direct3DRenderer.h"
#include "render/direct3d/Direct3DTexture.h"
#include "render/direct3d/Direct3DVertexAttributeObject.h"
#include "render/direct3d/FileBesideProgram.h"
#include "render/direct3d/shaders/ShaderCode.h"

namespace orvane::render {
namespace {

ISamplerState* MakeSamplerState(ID3D11Device* device, D3D11_FILTER filter) {
    if (device == nullptr) return nullptr;
    ComPtr<ID3D11SamplerState> state = CreateSampler(device, filter);
    return state ? new Direct3DSamplerState(std::move(state)) : nullptr;
}

} // namespace

ITexture* Direct3DRenderer::MakeTexture(const TextureDescription& description) {
    if (!mParts.device) return nullptr;
    return Direct3DTexture::Make(mParts.device.Get(), mParts.context.Get(), description);
}

IBufferTexture* Direct3DRenderer::MakeBufferTexture(std::uint32_t elementCount, std::uint32_t textureUnit,
                                                    const char* /*name*/) {
    if (!mParts.device) return nullptr;
    return Direct3DBufferObj::Make(mParts.device.Get(), mParts.context.Get(), elementCount, textureUnit);
}

std::unique_ptr<VertexObject> Direct3DRenderer::MakeVertexObject(const VertexDescription& description,
                                                                 const void* initialData) {
    return Direct3DVertexAttributeObject::Make(mParts.device.Get(), description, initialData);
}

ShaderSetCode Direct3DRenderer::CodeOf(ShaderSet set) {
    return ShaderCodeOf(set);
}

IVertexFunction* Direct3DRenderer::CreateVertexFunction(const void* code, std::uint64_t size,
                                                        const char* /*name*/) {
    ComPtr<ID3D11VertexShader> shader;
    if (!mParts.device || code == nullptr) return nullptr;
    if (FAILED(mParts.device->CreateVertexShader(code, size, nullptr, &shader))) return nullptr;
    return new Direct3DVertexFunction(std::move(shader), code, size);
}

IFragmentFunction* Direct3DRenderer::CreateFragmentFunction(const void* code, std::uint64_t size,
                                                            const char* /*name*/) {
    ComPtr<ID3D11PixelShader> shader;
    if (!mParts.device || code == nullptr) return nullptr;
    if (FAILED(mParts.device->CreatePixelShader(code, size, nullptr, &shader))) return nullptr;
    return new Direct3DFragmentFunction(std::move(shader));
}

IGeometryFunction* Direct3DRenderer::CreateGeometryFunction(const void* code, std::uint64_t size,
                                                            const char* /*name*/) {
    ComPtr<ID3D11GeometryShader> shader;
    if (!mParts.device || code == nullptr) return nullptr;
    if (FAILED(mParts.device->CreateGeometryShader(code, size, nullptr, &shader))) return nullptr;
    return new Direct3DGeometryFunction(std::move(shader));
}

IVertexFunction* Direct3DRenderer::LoadVertexFunction(void* /*unused*/, const char* fileName) {
    const FileContents file = ReadFileBesideProgram(fileName);
    return CreateVertexFunction(file.bytes.get(), file.size, fileName);
}

IFragmentFunction* Direct3DRenderer::LoadFragmentFunction(void* /*unused*/, const char* fileName) {
    const FileContents file = ReadFileBesideProgram(fileName);
    return CreateFragmentFunction(file.bytes.get(), file.size, fileName);
}

ISamplerState* Direct3DRenderer::CreateLinearSamplerState(const char* /*name*/) {
    return MakeSamplerState(mParts.device.Get(), D3D11_FILTER_MIN_MAG_MIP_LINEAR);
}

ISamplerState* Direct3DRenderer::CreatePointSamplerState(const char* /*name*/) {
    return MakeSamplerState(mParts.device.Get(), D3D11_FILTER_MIN_MAG_MIP_POINT);
}

} // namespace orvane::render
