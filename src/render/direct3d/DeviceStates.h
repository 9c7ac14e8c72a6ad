// The fixed states of the device: how colours blend, how triangles are filled, how textures are sampled.
#pragma once

#include "render/direct3d/Platform.h"

namespace orvane::render {

// The rows of the blend table, in the order in which they are made.
enum class BlendState { Opaque, Alpha, Additive };

constexpr std::size_t kBlendStates = 3;

// Null, or the state of that row; the device's status is not told.
[[nodiscard]] ComPtr<ID3D11BlendState> CreateBlendState(ID3D11Device* device, BlendState state);

// Solid, counter-clockwise triangles in front and the others culled, no scissor, no antialiasing.
[[nodiscard]] D3D11_RASTERIZER_DESC SolidRasteriser();

// Clamps in all axes, every mip level allowed. Null on failure.
[[nodiscard]] ComPtr<ID3D11SamplerState> CreateSampler(ID3D11Device* device, D3D11_FILTER filter);

} // namespace orvane::render
