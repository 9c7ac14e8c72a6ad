// Renderers beside one another and one after the other.
#include "support/direct3d/Direct3DTest.h"
#include "support/direct3d/Hook.h"
#include "support/windows/ProcessUse.h"

#include "render/PipelineKind.h"

#include <memory>
#include <string>

namespace orvane::tests {
namespace {

using namespace render;

class Lifetime : public Direct3DTest {};

TEST_F(Lifetime, TwoRenderersAtOnceDrawEachIntoItsOwnTarget) {
    const TestWindow otherWindow(32, 32);
    auto other = std::make_unique<Direct3DRenderer>();
    ASSERT_TRUE(other->Create(32, 32, otherWindow.AsNative()));
    other->Clear(kFloatBlack);
    const float red[4] = { 1, 0, 0, 1 }, green[4] = { 0, 1, 0, 1 };
    const Floats strip = StripOf(-1, -1, 1, 1);
    const int mine = Buffer(kPos_BlendingOFF, kPrimitive_TriangleStrip, strip);
    const auto theirs = static_cast<int>(other->CreateVertexBuffer(
        "", kPrimitive_TriangleStrip, other->GetPipeline(kPos_BlendingOFF), 4, 1, strip.data()));
    EXPECT_EQ(mine, 1);
    EXPECT_EQ(theirs, 1); // ids are each renderer's own
    mRenderer.SetColor(red, 1);
    other->SetColor(green, 1);
    mRenderer.DrawVertexBuffer(nullptr, mine, 0, 4);
    other->DrawVertexBuffer(nullptr, theirs, 0, 4);
    EXPECT_EQ(Read().Count({ 255, 0, 0, 255 }), 64 * 64);
    EXPECT_EQ(Picture(*other).Count({ 0, 255, 0, 255 }), 32 * 32);
    mRenderer.Present();
    other->Present();
    other.reset();
    mRenderer.Clear(kFloatBlack);
    mRenderer.DrawVertexBuffer(nullptr, mine, 0, 4);
    EXPECT_EQ(Read().Count({ 255, 0, 0, 255 }), 64 * 64);
}

TEST_F(Lifetime, DestructionLeavesFullScreenFirstAndHoldsNothingOfTheDevice) {
    const TestWindow window(32, 32);
    auto renderer = std::make_unique<Direct3DRenderer>();
    ASSERT_TRUE(renderer->Create(32, 32, window.AsNative()));
    for (std::uint32_t kind = 0; kind <= 19; ++kind)
        ASSERT_NE(
            renderer->CreateVertexBuffer("", kPrimitive_Points, renderer->GetPipeline(kind), 10, 1, nullptr),
            0u);
    const Hook<&IDXGISwapChain::SetFullscreenState> calls(SwapChain());
    ComPtr<ID3D11Device> device = renderer->Parts().device;
    ComPtr<IDXGISwapChain> swapChain = renderer->Parts().swapChain;
    renderer.reset();
    ASSERT_EQ(calls.Calls().size(), 1u);
    EXPECT_EQ(calls.Calls()[0], (std::tuple<BOOL, IDXGIOutput*>(FALSE, nullptr)));
    EXPECT_EQ(swapChain.Reset(), 0u);
    EXPECT_EQ(device.Reset(), 0u);
}

// One renderer with one of everything, a frame drawn and presented, and gone again.
void RunOnce(const TestWindow& window) {
    Direct3DRenderer renderer;
    ASSERT_TRUE(renderer.Create(64, 64, window.AsNative()));
    const std::vector<std::uint32_t> pixels(128 * 128);
    const TexturePtr texture(
        renderer.CreateTexture(pixels.data(), 128, 128, 512, 0, kPixelFormat_RGBA8, "", 0, false));
    const std::unique_ptr<IBufferTexture> table(renderer.CreateBufferTexture(256, "", 1));
    for (const std::uint32_t kind : { 0u, 4u, 8u, 10u, 14u, 16u }) { // one of each shader set
        const std::vector<float> zeros(9 * 2000);
        const auto buffer = renderer.CreateVertexBuffer("", kPrimitive_Points, renderer.GetPipeline(kind),
                                                        100, 1, zeros.data());
        renderer.DrawVertexBuffer(texture.get(), static_cast<int>(buffer), 0, 100);
    }
    const double rect[4] = { 0, 0, 64, 64 };
    renderer.ResizeRenderTarget(rect);
    renderer.Clear(kFloatBlack);
    renderer.Present();
    PumpMessages();
}

TEST(LifetimeOfMany, AHundredRenderersOneAfterTheOtherLeaveMemoryAndDescriptorsFlat) {
    constexpr int kWarmUp = 10, kRounds = 100;
    constexpr std::size_t kAllowedGrowth = 4u << 20; // bytes; one texture of each round would be 6.4 million
    const TestWindow window(64, 64);
    for (int i = 0; i < kWarmUp; ++i) RunOnce(window);
    const std::size_t memory = ResidentBytes();
    const int handles = OpenHandles();
    ASSERT_GT(handles, 0);
    for (int i = 0; i < kRounds; ++i) RunOnce(window);
    const std::size_t memoryAfter = ResidentBytes();
    const int handlesAfter = OpenHandles();
    RecordProperty("residentKiBBefore", std::to_string(memory >> 10));
    RecordProperty("residentKiBAfter", std::to_string(memoryAfter >> 10));
    RecordProperty("handlesBefore", handles);
    RecordProperty("handlesAfter", handlesAfter);
    EXPECT_LE(memoryAfter, memory + kAllowedGrowth);
    EXPECT_LE(handlesAfter, handles + 2);
}

} // namespace
} // namespace orvane::tests
