// A texture of the drawing contract on the device.
#pragma once

#include "render/CTexture.h"
#include "render/ImmediateRenderer.h"
#include "render/direct3d/Platform.h"

namespace orvane::render {

// A two-dimensional resource of one mip level and one sample that shaders can read, with its view.
struct ShaderResource {
    ComPtr<ID3D11Texture2D> texture;
    ComPtr<ID3D11ShaderResourceView> view;
};

// `contents` may be null for a dynamic resource, which the processor can write later; any other is fixed.
// False, with nothing kept, if the resource or its view can't be made.
[[nodiscard]] bool CreateShaderResource(ID3D11Device* device, std::uint32_t width, std::uint32_t height,
                                        DXGI_FORMAT format, bool dynamic,
                                        const D3D11_SUBRESOURCE_DATA* contents, ShaderResource& resource);

// The device's format for a PixelFormat; unknown for what is none.
[[nodiscard]] DXGI_FORMAT DeviceFormatOf(std::uint32_t pixelFormat);

class Direct3DTexture final : public CTexture {
public:
    // Null if the resource can't be made. `context` is the renderer's and outlives the texture.
    static ITexture* Make(ID3D11Device* device, ID3D11DeviceContext* context,
                          const TextureDescription& description);

    void Bind() override;
    void Unbind() override;

protected:
    [[nodiscard]] bool HasResource() const override { return mResource.texture != nullptr; }

    bool Map(TextureMapping& mapping) override;
    void Unmap() override;

private:
    Direct3DTexture(ShaderResource resource, ID3D11DeviceContext* context,
                    const TextureDescription& description);
    ~Direct3DTexture() override;

    const std::uint32_t mUnit;
    ShaderResource mResource;
    ID3D11DeviceContext* const mContext; // not counted
};

} // namespace orvane::render
