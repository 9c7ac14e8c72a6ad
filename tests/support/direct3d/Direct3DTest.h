// A renderer on a window of its own, with a black target, and short forms of what its tests do over and over.
#pragma once

#include "support/direct3d/Picture.h"
#include "support/windows/TestWindow.h"

#include "render/Enumerations.h"
#include "render/ITexture.h"

#include <gtest/gtest.h>

#include <span>
#include <vector>

namespace orvane::tests {

using Floats = std::vector<float>;

// The colours that tests use most.
constexpr float kFloatBlack[4] = { 0, 0, 0, 1 };
constexpr float kFloatWhite[4] = { 1, 1, 1, 1 };

// Two counter-clockwise triangles over the rectangle, at z = 0: x and y and, for each vertex, what comes
// behind the position. The vertices are, in this order: left bottom, right bottom, left top, right top.
using AfterPosition = std::function<Floats(int corner)>;
[[nodiscard]] Floats StripOf(float left, float bottom, float right, float top, const AfterPosition& rest);

// A rectangle of nothing but positions.
[[nodiscard]] Floats StripOf(float left, float bottom, float right, float top);

// A texture of `width` texels a row; one that can't be written later.
[[nodiscard]] render::TexturePtr MakeTexture(render::IRenderer& renderer, std::uint32_t width,
                                             std::span<const Colour> texels);

class Direct3DTest : public testing::Test {
protected:
    static constexpr int kSide = 64; // of the target, pixels

    void SetUp() override;

    // The id of a buffer of kind `kind` that holds these vertices.
    int Buffer(std::uint32_t kind, std::uint32_t primitive, const Floats& vertices);

    // Draws all of them.
    void Draw(std::uint32_t kind, std::uint32_t primitive, const Floats& vertices,
              render::ITexture* texture = nullptr);

    [[nodiscard]] Picture Read() const { return Picture(mRenderer); }

    [[nodiscard]] ID3D11Device* Device() const { return mRenderer.Parts().device.Get(); }

    [[nodiscard]] ID3D11DeviceContext* Context() const { return mRenderer.Parts().context.Get(); }

    [[nodiscard]] IDXGISwapChain* SwapChain() const { return mRenderer.Parts().swapChain.Get(); }

    TestWindow mWindow{ kSide, kSide };
    render::Direct3DRenderer mRenderer;
};

} // namespace orvane::tests
