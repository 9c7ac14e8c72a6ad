#include "support/direct3d/Direct3DTest.h"

#include "render/CRenderingPipeline.h"

namespace orvane::tests {
namespace {

std::uint32_t FloatsOfAVertex(std::uint32_t kind) {
    const auto set = render::FindPipelineRow(kind)->set;
    return render::ShaderSetRowOf(set).stride / std::uint32_t(sizeof(float));
}

} // namespace

Floats StripOf(float left, float bottom, float right, float top, const AfterPosition& rest) {
    Floats vertices;
    for (int corner = 0; corner < 4; ++corner) {
        vertices.insert(vertices.end(), { corner % 2 ? right : left, corner / 2 ? top : bottom, 0.0f });
        const Floats more = rest(corner);
        vertices.insert(vertices.end(), more.begin(), more.end());
    }
    return vertices;
}

Floats StripOf(float left, float bottom, float right, float top) {
    return StripOf(left, bottom, right, top, [](int) { return Floats{}; });
}

render::TexturePtr MakeTexture(render::IRenderer& renderer, std::uint32_t width,
                               std::span<const Colour> texels) {
    const auto height = static_cast<std::uint32_t>(texels.size()) / width;
    constexpr bool kFixed = false;
    return render::TexturePtr(renderer.CreateTexture(texels.data(), width, height, width * 4, 0,
                                                     render::kPixelFormat_RGBA8, "test", 0, kFixed));
}

void Direct3DTest::SetUp() {
    ASSERT_TRUE(mRenderer.Create(kSide, kSide, mWindow.AsNative()));
    mRenderer.Clear(kFloatBlack);
}

int Direct3DTest::Buffer(std::uint32_t kind, std::uint32_t primitive, const Floats& vertices) {
    const auto count = static_cast<std::uint32_t>(vertices.size()) / FloatsOfAVertex(kind);
    return static_cast<int>(mRenderer.CreateVertexBuffer("test", primitive, mRenderer.GetPipeline(kind),
                                                         count, 1, vertices.data()));
}

void Direct3DTest::Draw(std::uint32_t kind, std::uint32_t primitive, const Floats& vertices,
                        render::ITexture* texture) {
    const int buffer = Buffer(kind, primitive, vertices);
    ASSERT_NE(buffer, 0);
    const auto count = vertices.size() / FloatsOfAVertex(kind);
    EXPECT_TRUE(mRenderer.DrawVertexBuffer(texture, buffer, 0, static_cast<int>(count)));
}

} // namespace orvane::tests
