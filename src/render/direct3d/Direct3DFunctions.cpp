#include "render/direct3d/Direct3DFunctions.h"

#include <algorithm>
#include <array>

namespace orvane::render {
namespace {

constexpr std::size_t kSamplerSlots = D3D11_COMMONSHADER_SAMPLER_SLOT_COUNT;
static_assert(kSamplerSlots == 16);

} // namespace

Direct3DVertexFunction::Direct3DVertexFunction(ComPtr<ID3D11VertexShader> shader, const void* code,
                                               std::size_t size)
    : mShader(std::move(shader))
    , mCode(static_cast<const std::byte*>(code), static_cast<const std::byte*>(code) + size) {}

std::uint32_t Direct3DFragmentFunction::AddSamplerState(ISamplerState* sampler) {
    if (sampler == nullptr) return kNoValue;
    // Sampler states are made by the renderer alone, so it is one of ours.
    mSamplers.emplace_back(static_cast<Direct3DSamplerState*>(sampler));
    return static_cast<std::uint32_t>(mSamplers.size() - 1);
}

void Direct3DFragmentFunction::BindSamplers(ID3D11DeviceContext* context) const {
    if (mSamplers.empty()) return;
    std::array<ID3D11SamplerState*, kSamplerSlots> states{};
    const std::size_t count = std::min(mSamplers.size(), states.size());
    for (std::size_t slot = 0; slot < count; ++slot) states[slot] = mSamplers[slot]->State();
    context->PSSetSamplers(0, static_cast<UINT>(count), states.data());
}

} // namespace orvane::render
