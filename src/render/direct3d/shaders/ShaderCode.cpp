#include "render/direct3d/shaders/ShaderCode.h"

#include <array>
#include <cstdint>

namespace orvane::render {
namespace {

// clang-format off
constexpr std::uint8_t kVertexA[] = {
#include "A.vertex.inc"
};
constexpr std::uint8_t kFragmentA[] = {
#include "A.fragment.inc"
};
constexpr std::uint8_t kVertexB[] = {
#include "B.vertex.inc"
};
constexpr std::uint8_t kFragmentB[] = {
#include "B.fragment.inc"
};
constexpr std::uint8_t kVertexC[] = {
#include "C.vertex.inc"
};
constexpr std::uint8_t kFragmentC[] = {
#include "C.fragment.inc"
};
constexpr std::uint8_t kVertexD[] = {
#include "D.vertex.inc"
};
constexpr std::uint8_t kFragmentD[] = {
#include "D.fragment.inc"
};
constexpr std::uint8_t kVertexE[] = {
#include "E.vertex.inc"
};
constexpr std::uint8_t kFragmentE[] = {
#include "E.fragment.inc"
};
constexpr std::uint8_t kGeometryE[] = {
#include "E.geometry.inc"
};
constexpr std::uint8_t kVertexF[] = {
#include "F.vertex.inc"
};
constexpr std::uint8_t kFragmentF[] = {
#include "F.fragment.inc"
};

// clang-format on

template <std::size_t Size>
std::span<const std::byte> Code(const std::uint8_t (&bytes)[Size]) {
    return std::as_bytes(std::span(bytes));
}

} // namespace

ShaderSetCode ShaderCodeOf(ShaderSet set) {
    static const std::array<ShaderSetCode, kShaderSets> kCode = { {
        { Code(kVertexA), Code(kFragmentA), {} },
        { Code(kVertexB), Code(kFragmentB), {} },
        { Code(kVertexC), Code(kFragmentC), {} },
        { Code(kVertexD), Code(kFragmentD), {} },
        { Code(kVertexE), Code(kFragmentE), Code(kGeometryE) },
        { Code(kVertexF), Code(kFragmentF), {} },
    } };
    return kCode[static_cast<std::size_t>(set)];
}

} // namespace orvane::render
