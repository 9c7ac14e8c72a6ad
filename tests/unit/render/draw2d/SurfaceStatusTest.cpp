// Every failure in the making of a surface, by making the platform's operation fail. (What needs a factory to
// be refused is in FactoryRefusalTest.cpp: a factory is made only once.)
#include "render/draw2d/Factories.h"
#include "render/draw2d/LayerBacked2DRenderer.h"
#include "render/draw2d/WindowBacked2DRenderer.h"
#include "support/direct3d/Hook.h"
#include "support/windows/TestWindow.h"
#include "unit/render/draw2d/Surface.h"

#include <gtest/gtest.h>

#include <memory>

namespace orvane::render {
namespace {

using namespace tests;
using Microsoft::WRL::ComPtr;
using orvane::tests::After;
using orvane::tests::Always;
using orvane::tests::Hook;
using orvane::tests::TestWindow;

// Where the headers add short forms of an operation, the one that the platform has.
using MakeLayerTarget = HRESULT (STDMETHODCALLTYPE ID2D1Factory::*)(IWICBitmap*,
                                                                    const D2D1_RENDER_TARGET_PROPERTIES*,
                                                                    ID2D1RenderTarget**);
using MakeWindowTarget = HRESULT (STDMETHODCALLTYPE ID2D1Factory::*)(
    const D2D1_RENDER_TARGET_PROPERTIES*, const D2D1_HWND_RENDER_TARGET_PROPERTIES*, ID2D1HwndRenderTarget**);
using MakeBrush = HRESULT (STDMETHODCALLTYPE ID2D1RenderTarget::*)(const D2D1_COLOR_F*,
                                                                   const D2D1_BRUSH_PROPERTIES*,
                                                                   ID2D1SolidColorBrush**);

using BitmapHook = Hook<&IWICImagingFactory::CreateBitmap>;
using LayerTargetHook = Hook<static_cast<MakeLayerTarget>(&ID2D1Factory::CreateWicBitmapRenderTarget)>;
using WindowTargetHook = Hook<static_cast<MakeWindowTarget>(&ID2D1Factory::CreateHwndRenderTarget)>;
using BrushHook = Hook<static_cast<MakeBrush>(&ID2D1RenderTarget::CreateSolidColorBrush)>;

// A surface that can't be made: there is nothing to read and nothing to draw on, and the bitmap under it went.
class LayerStatus : public testing::Test {
protected:
    LayerStatus()
        : mBitmaps(ImagingFactory(), [this](const auto& next, auto... arguments) {
            const HRESULT made = next(arguments...);
            if (SUCCEEDED(made)) mMade = *std::get<4>(std::tuple(arguments...));
            return made;
        }) {}

    void ExpectNoSurface(SurfaceStatus expected) {
        LayerBacked2DRenderer canvas;
        EXPECT_EQ(canvas.InitializeSurface(16, 16, false), expected);
        Reader reader;
        canvas.ReadPixels(reader);
        EXPECT_EQ(reader.calls, 0);
        const char* const rows[4] = { "00FF", "00FF", "00FF", "00FF" };
        EXPECT_EQ(canvas.CreateBitmapFromPackedRows(rows, 4), nullptr);
        ASSERT_NE(mMade, nullptr);
        EXPECT_EQ(mMade.Detach()->Release(), 0u);
    }

    BitmapHook mBitmaps;
    ComPtr<IWICBitmap> mMade;
};

TEST_F(LayerStatus, NoRenderTargetIsStatus5) {
    const LayerTargetHook refuses(Direct2DFactory(), Always(E_OUTOFMEMORY));
    ExpectNoSurface(kSurface_NoRenderTarget);
}

TEST_F(LayerStatus, NoFillBrushIsStatus6) {
    const auto target = SomeLayerTarget();
    const BrushHook refuses(target.Get(), Always(E_OUTOFMEMORY));
    ExpectNoSurface(kSurface_NoFillBrush);
}

TEST_F(LayerStatus, NoStrokeBrushIsStatus7) {
    const auto target = SomeLayerTarget();
    const BrushHook refuses(target.Get(), After(1, E_OUTOFMEMORY));
    ExpectNoSurface(kSurface_NoStrokeBrush);
}

TEST(LayerStatusWithoutBitmap, IsStatus4AndGivesUpTheSurfaceThatWasThere) {
    Surface surface(16, 16);
    const BitmapHook refuses(ImagingFactory(), Always(E_OUTOFMEMORY));
    EXPECT_EQ(surface.canvas.InitializeSurface(16, 16, false), kSurface_NoBitmap);
    Reader reader;
    surface.canvas.ReadPixels(reader);
    EXPECT_EQ(reader.calls, 0);
}

// {E6CD0116-EEBA-4161-AA85-27DD9FB3A895}, whose refusal is status 4 as any bitmap's is.
TEST(LayerStatusWithoutBitmap, TheFlagAsksForTheAlphaFormatAndItsRefusalIsStatus4) {
    constexpr GUID kAlpha = {
        0xE6CD0116, 0xEEBA, 0x4161, { 0xAA, 0x85, 0x27, 0xDD, 0x9F, 0xB3, 0xA8, 0x95 }
    };
    GUID asked{};
    const BitmapHook refuses(ImagingFactory(), [&](const auto&, UINT, UINT, REFGUID format, auto...) {
        asked = format;
        return E_FAIL;
    });
    LayerBacked2DRenderer canvas;
    EXPECT_EQ(canvas.InitializeSurface(512, 64, true), kSurface_NoBitmap);
    EXPECT_TRUE(asked == kAlpha);
}

TEST(LayerStatusWithTarget, IsASoftwareTargetWithDefaultsOnABitmapOfThatSize) {
    D2D1_RENDER_TARGET_PROPERTIES how{};
    UINT width = 0, height = 0;
    const LayerTargetHook listens(Direct2DFactory(),
                                  [&](const auto& next, IWICBitmap* bitmap, auto properties, auto out) {
                                      how = *properties;
                                      bitmap->GetSize(&width, &height);
                                      return next(bitmap, properties, out);
                                  });
    LayerBacked2DRenderer canvas;
    ASSERT_EQ(canvas.InitializeSurface(24, 12, false), kSurface_Success);
    EXPECT_EQ(how.type, D2D1_RENDER_TARGET_TYPE_SOFTWARE);
    EXPECT_EQ(how.pixelFormat.format, DXGI_FORMAT_UNKNOWN);
    EXPECT_EQ(how.pixelFormat.alphaMode, D2D1_ALPHA_MODE_UNKNOWN);
    EXPECT_EQ(how.dpiX, 0);
    EXPECT_EQ(how.dpiY, 0);
    EXPECT_EQ(width, 24u);
    EXPECT_EQ(height, 12u);
}

class WindowStatus : public testing::Test {
protected:
    static constexpr int kSide = 32;

    void ExpectNone(SurfaceStatus expected) const {
        std::uint32_t status = 0;
        EXPECT_EQ(CreateWindowBacked2DRenderer(kSide, kSide, mWindow.Handle(), &status), nullptr);
        EXPECT_EQ(status, expected);
    }

    [[nodiscard]] ComPtr<ID2D1HwndRenderTarget> SomeTarget() const {
        ComPtr<ID2D1HwndRenderTarget> target;
        Direct2DFactory()->CreateHwndRenderTarget(
            D2D1::RenderTargetProperties(),
            D2D1::HwndRenderTargetProperties(mWindow.Handle(), { kSide, kSide }), &target);
        return target;
    }

    TestWindow mWindow{ kSide, kSide };
};

TEST_F(WindowStatus, NoRenderTargetIsStatus5) {
    const WindowTargetHook refuses(Direct2DFactory(), Always(E_OUTOFMEMORY));
    ExpectNone(kSurface_NoRenderTarget);
}

TEST_F(WindowStatus, NoFillBrushIsStatus6) {
    const auto target = SomeTarget();
    const BrushHook refuses(target.Get(), Always(E_OUTOFMEMORY));
    ExpectNone(kSurface_NoFillBrush);
}

TEST_F(WindowStatus, NoStrokeBrushIsStatus7) {
    const auto target = SomeTarget();
    const BrushHook refuses(target.Get(), After(1, E_OUTOFMEMORY));
    ExpectNone(kSurface_NoStrokeBrush);
}

} // namespace
} // namespace orvane::render
