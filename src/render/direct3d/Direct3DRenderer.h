// The drawing contract on Direct3D 11: a device, a swap chain on a window, and the objects of the contract
// made from them. What is not bound to the device (matrices, ids, the order of a draw) is ImmediateRenderer's.
//
// There is no depth buffer: primitives paint in the order of drawing. The device takes no lock and neither
// does this class; calls come one at a time, from whichever thread draws. It is made and deleted on the
// window's thread, after the last of its textures was released.
#pragma once

#include "platform/NativeWindow.h"
#include "render/ImmediateRenderer.h"
#include "render/direct3d/DeviceStates.h"
#include "render/direct3d/Platform.h"
#include "render/direct3d/SwapChain.h"
#include "render/direct3d/WindowCopy.h"

#include <array>
#include <cstdint>
#include <optional>

namespace orvane::render {

class Direct3DRenderer final : public ImmediateRenderer {
public:
    Direct3DRenderer();
    ~Direct3DRenderer() override;

    // Sets up the device, the target of `width` by `height` pixels and all that is used with it. False for a
    // null window, or if the device, the swap chain or the target can't be made; such a renderer is only to
    // be deleted. What fails later is missing, and the operations that need it do nothing. Once only.
    [[nodiscard]] bool Create(std::uint32_t width, std::uint32_t height, platform::NativeWindow window);

    void SetWireframe(bool on) override;
    void SetColor(const float colour[4], float alpha) override;
    void BindTexture(ITexture* texture) override;

    void BeginFrame() override {}

    void Present() override;
    void Clear(const float colour[4]) override;
    void ResizeRenderTarget(const double rect[4]) override;
    void SetFullScreen(bool on) override;

    IVertexFunction* LoadVertexFunction(void* unused, const char* fileName) override;
    IVertexFunction* CreateVertexFunction(const void* code, std::uint64_t size, const char* name) override;
    IFragmentFunction* LoadFragmentFunction(void* unused, const char* fileName) override;
    IFragmentFunction* CreateFragmentFunction(const void* code, std::uint64_t size,
                                              const char* name) override;
    IGeometryFunction* CreateGeometryFunction(const void* code, std::uint64_t size,
                                              const char* name) override;
    ISamplerState* CreateLinearSamplerState(const char* name) override;
    ISamplerState* CreatePointSamplerState(const char* name) override;

    // What it draws with and into, for diagnosis: pictures are read back, and states looked at, through
    // these. Not counted, null where missing; the target is another one after each resize.
    [[nodiscard]] const DeviceParts& Parts() const { return mParts; }

    [[nodiscard]] ID3D11RenderTargetView* RenderTarget() const { return mRenderTarget.Get(); }

protected:
    void ApplyBlendState(std::uint32_t mode) override;
    void ClearBlendState() override;
    void ApplyViewport(double width, double height) override;
    ITexture* MakeTexture(const TextureDescription& description) override;
    IBufferTexture* MakeBufferTexture(std::uint32_t elementCount, std::uint32_t textureUnit,
                                      const char* name) override;
    std::unique_ptr<VertexObject> MakeVertexObject(const VertexDescription& description,
                                                   const void* initialData) override;
    ShaderSetCode CodeOf(ShaderSet set) override;
    void* MapVertices(VertexObject& object) override;
    void UnmapVertices(VertexObject& object) override;
    void WriteMatrix(const Matrix& matrix, MatrixStages stages) override;
    void UnbindMatrix() override;
    void DrawVertices(VertexObject& object, ITexture* texture, std::uint32_t firstVertex,
                      std::uint32_t vertexCount) override;

private:
    [[nodiscard]] bool TakeBackBufferAsTarget();
    [[nodiscard]] bool CreateConstants();
    void CreateBlendStates();

    DeviceParts mParts;
    ComPtr<ID3D11RenderTargetView> mRenderTarget;
    ComPtr<ID3D11Buffer> mColourConstant; // the shaders' tint
    ComPtr<ID3D11Buffer> mMatrixConstant; // the shaders' ctm
    D3D11_RASTERIZER_DESC mRasteriser = SolidRasteriser();
    std::array<ComPtr<ID3D11BlendState>, kBlendStates> mBlendStates; // the opaque one is made but never set
    std::optional<WindowCopy> mWindowCopy;                           // where Present doesn't reach the window
};

} // namespace orvane::render
