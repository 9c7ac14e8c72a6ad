#include "render/direct3d/Direct3DTexture.h"

#include <utility>

namespace orvane::render {

DXGI_FORMAT DeviceFormatOf(std::uint32_t pixelFormat) {
    switch (pixelFormat) {
    case kPixelFormat_RGBA8:
        return DXGI_FORMAT_R8G8B8A8_UNORM;
    case kPixelFormat_BGRA8:
        return DXGI_FORMAT_B8G8R8A8_UNORM;
    case kPixelFormat_R8UInt:
        return DXGI_FORMAT_R8_UINT;
    case kPixelFormat_RGBA32Float:
        return DXGI_FORMAT_R32G32B32A32_FLOAT;
    default:
        return DXGI_FORMAT_UNKNOWN;
    }
}

bool CreateShaderResource(ID3D11Device* device, std::uint32_t width, std::uint32_t height, DXGI_FORMAT format,
                          bool dynamic, const D3D11_SUBRESOURCE_DATA* contents, ShaderResource& resource) {
    D3D11_TEXTURE2D_DESC description{};
    description.Width = width;
    description.Height = height;
    description.MipLevels = 1;
    description.ArraySize = 1;
    description.Format = format;
    description.SampleDesc.Count = 1;
    description.Usage = dynamic ? D3D11_USAGE_DYNAMIC : D3D11_USAGE_IMMUTABLE;
    description.BindFlags = D3D11_BIND_SHADER_RESOURCE;
    description.CPUAccessFlags = dynamic ? D3D11_CPU_ACCESS_WRITE : 0;
    ShaderResource made;
    if (FAILED(device->CreateTexture2D(&description, contents, &made.texture))) return false;
    if (FAILED(device->CreateShaderResourceView(made.texture.Get(), nullptr, &made.view))) return false;
    resource = std::move(made);
    return true;
}

ITexture* Direct3DTexture::Make(ID3D11Device* device, ID3D11DeviceContext* context,
                                const TextureDescription& description) {
    D3D11_SUBRESOURCE_DATA contents{};
    contents.pSysMem = description.pixels;
    contents.SysMemPitch = description.rowPitch;
    ShaderResource resource;
    if (!CreateShaderResource(device, description.width, description.height,
                              DeviceFormatOf(description.pixelFormat), description.dynamic,
                              description.pixels != nullptr ? &contents : nullptr, resource))
        return nullptr;
    return new Direct3DTexture(std::move(resource), context, description);
}

Direct3DTexture::Direct3DTexture(ShaderResource resource, ID3D11DeviceContext* context,
                                 const TextureDescription& description)
    : CTexture(description.width, description.height)
    , mUnit(description.textureUnit)
    , mResource(std::move(resource))
    , mContext(context) {}

Direct3DTexture::~Direct3DTexture() {
    mResource.view.Reset();
    mResource.texture.Reset();
}

void Direct3DTexture::Bind() {
    mContext->PSSetShaderResources(mUnit, 1, mResource.view.GetAddressOf());
}

void Direct3DTexture::Unbind() {
    ID3D11ShaderResourceView* const none = nullptr;
    mContext->PSSetShaderResources(mUnit, 1, &none);
}

bool Direct3DTexture::Map(TextureMapping& mapping) {
    D3D11_MAPPED_SUBRESOURCE mapped{};
    if (FAILED(mContext->Map(mResource.texture.Get(), 0, D3D11_MAP_WRITE_DISCARD, 0, &mapped))) return false;
    mapping = { static_cast<std::byte*>(mapped.pData), mapped.RowPitch, mapped.DepthPitch };
    return true;
}

void Direct3DTexture::Unmap() {
    mContext->Unmap(mResource.texture.Get(), 0);
}

} // namespace orvane::render
