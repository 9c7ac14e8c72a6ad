#include "render/direct3d/DeviceStates.h"

#include <iterator>

namespace orvane::render {
namespace {

struct BlendRow {
    BOOL enable;
    D3D11_BLEND sourceColour, targetColour, sourceAlpha, targetAlpha;
};

// clang-format off
constexpr BlendRow kBlendRows[] = {
    // enable  source colour          target colour              source alpha      target alpha
    { FALSE,   D3D11_BLEND_ONE,       D3D11_BLEND_ZERO,          D3D11_BLEND_ONE,  D3D11_BLEND_ZERO }, // Opaque
    { TRUE,    D3D11_BLEND_SRC_ALPHA, D3D11_BLEND_INV_SRC_ALPHA, D3D11_BLEND_ONE,  D3D11_BLEND_ZERO }, // Alpha
    { TRUE,    D3D11_BLEND_SRC_ALPHA, D3D11_BLEND_ONE,           D3D11_BLEND_ZERO, D3D11_BLEND_ONE },  // Additive
};
// clang-format on
static_assert(std::size(kBlendRows) == kBlendStates, "one row for each BlendState");

} // namespace

ComPtr<ID3D11BlendState> CreateBlendState(ID3D11Device* device, BlendState state) {
    const BlendRow& row = kBlendRows[static_cast<std::size_t>(state)];
    D3D11_BLEND_DESC description{};
    description.AlphaToCoverageEnable = FALSE;
    description.IndependentBlendEnable = FALSE;
    D3D11_RENDER_TARGET_BLEND_DESC& target = description.RenderTarget[0];
    target.BlendEnable = row.enable;
    target.SrcBlend = row.sourceColour;
    target.DestBlend = row.targetColour;
    target.BlendOp = D3D11_BLEND_OP_ADD;
    target.SrcBlendAlpha = row.sourceAlpha;
    target.DestBlendAlpha = row.targetAlpha;
    target.BlendOpAlpha = D3D11_BLEND_OP_ADD;
    target.RenderTargetWriteMask = D3D11_COLOR_WRITE_ENABLE_ALL;
    ComPtr<ID3D11BlendState> made;
    if (FAILED(device->CreateBlendState(&description, &made))) return nullptr;
    return made;
}

D3D11_RASTERIZER_DESC SolidRasteriser() {
    D3D11_RASTERIZER_DESC description{};
    description.FillMode = D3D11_FILL_SOLID;
    description.CullMode = D3D11_CULL_BACK;
    description.FrontCounterClockwise = TRUE;
    description.DepthClipEnable = TRUE;
    return description; // all else is off or 0
}

ComPtr<ID3D11SamplerState> CreateSampler(ID3D11Device* device, D3D11_FILTER filter) {
    D3D11_SAMPLER_DESC description{};
    description.Filter = filter;
    description.AddressU = D3D11_TEXTURE_ADDRESS_CLAMP;
    description.AddressV = D3D11_TEXTURE_ADDRESS_CLAMP;
    description.AddressW = D3D11_TEXTURE_ADDRESS_CLAMP;
    description.MaxAnisotropy = 1;
    description.ComparisonFunc = D3D11_COMPARISON_NEVER;
    description.MinLOD = -D3D11_FLOAT32_MAX;
    description.MaxLOD = D3D11_FLOAT32_MAX;
    ComPtr<ID3D11SamplerState> made;
    if (FAILED(device->CreateSamplerState(&description, &made))) return nullptr;
    return made;
}

} // namespace orvane::render
