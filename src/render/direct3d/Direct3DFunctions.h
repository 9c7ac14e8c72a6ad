// The shader stages and the sampler states of the device, owned by the pipelines that they are attached to.
#pragma once

#include "render/Enumerations.h"
#include "render/IRenderingFunction.h"
#include "render/direct3d/Platform.h"

#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

namespace orvane::render {

class Direct3DSamplerState final : public ISamplerState {
public:
    explicit Direct3DSamplerState(ComPtr<ID3D11SamplerState> state)
        : mState(std::move(state)) {}

    [[nodiscard]] ID3D11SamplerState* State() const { return mState.Get(); }

private:
    const ComPtr<ID3D11SamplerState> mState;
};

class Direct3DVertexFunction final : public IVertexFunction {
public:
    // Keeps a copy of the code.
    Direct3DVertexFunction(ComPtr<ID3D11VertexShader> shader, const void* code, std::size_t size);

    std::uint32_t GetFunctionId() override { return kNoValue; }

    const void* GetFunctionCode() override { return mCode.data(); }

    std::uint64_t GetFunctionCodeSize() override { return mCode.size(); }

    [[nodiscard]] ID3D11VertexShader* Shader() const { return mShader.Get(); }

private:
    const ComPtr<ID3D11VertexShader> mShader;
    const std::vector<std::byte> mCode;
};

class Direct3DFragmentFunction final : public IFragmentFunction {
public:
    explicit Direct3DFragmentFunction(ComPtr<ID3D11PixelShader> shader)
        : mShader(std::move(shader)) {}

    std::uint32_t GetFunctionId() override { return kNoValue; }

    std::uint32_t AddSamplerState(ISamplerState* sampler) override;

    // Binds the sampler states from slot 0, as many as there are slots for; nothing without any.
    void BindSamplers(ID3D11DeviceContext* context) const;

    [[nodiscard]] ID3D11PixelShader* Shader() const { return mShader.Get(); }

private:
    const ComPtr<ID3D11PixelShader> mShader;
    std::vector<std::unique_ptr<Direct3DSamplerState>> mSamplers; // by slot
};

class Direct3DGeometryFunction final : public IGeometryFunction {
public:
    explicit Direct3DGeometryFunction(ComPtr<ID3D11GeometryShader> shader)
        : mShader(std::move(shader)) {}

    std::uint32_t GetFunctionId() override { return kNoValue; }

    [[nodiscard]] ID3D11GeometryShader* Shader() const { return mShader.Get(); }

private:
    const ComPtr<ID3D11GeometryShader> mShader;
};

} // namespace orvane::render
