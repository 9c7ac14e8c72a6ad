// Each of the three factories refused. They are made once in a process, so this is a program of its own with
// one test, and the operations that make them are exchanged when it is linked.
#include "render/draw2d/Factories.h"
#include "render/draw2d/LayerBacked2DRenderer.h"
#include "render/draw2d/WTextFormat.h"
#include "render/draw2d/WindowBacked2DRenderer.h"
#include "support/windows/TestWindow.h"

#include <gtest/gtest.h>

namespace {

bool sRefusesDrawing = true, sRefusesImaging = true, sRefusesText = true;

} // namespace

extern "C" {

HRESULT WINAPI __real_D2D1CreateFactory(D2D1_FACTORY_TYPE type, REFIID interfaceId,
                                        const D2D1_FACTORY_OPTIONS* options, void** out);

HRESULT WINAPI __wrap_D2D1CreateFactory(D2D1_FACTORY_TYPE type, REFIID interfaceId,
                                        const D2D1_FACTORY_OPTIONS* options, void** out) {
    return sRefusesDrawing ? E_OUTOFMEMORY : __real_D2D1CreateFactory(type, interfaceId, options, out);
}

HRESULT WINAPI __real_DWriteCreateFactory(DWRITE_FACTORY_TYPE type, REFIID interfaceId, IUnknown** out);

HRESULT WINAPI __wrap_DWriteCreateFactory(DWRITE_FACTORY_TYPE type, REFIID interfaceId, IUnknown** out) {
    return sRefusesText ? E_OUTOFMEMORY : __real_DWriteCreateFactory(type, interfaceId, out);
}

// This one is declared as imported, and so called through a pointer.
using CreateInstance = HRESULT(WINAPI*)(REFCLSID, LPUNKNOWN, DWORD, REFIID, LPVOID*);
extern CreateInstance __real___imp_CoCreateInstance;

static HRESULT WINAPI CreateOrRefuse(REFCLSID classId, LPUNKNOWN outer, DWORD context, REFIID interfaceId,
                                     LPVOID* out) {
    return sRefusesImaging ? E_OUTOFMEMORY
                           : __real___imp_CoCreateInstance(classId, outer, context, interfaceId, out);
}

CreateInstance __wrap___imp_CoCreateInstance = &CreateOrRefuse;
}

namespace orvane::render {
namespace {

std::uint32_t WindowStatusOn(HWND window) {
    std::uint32_t status = 0;
    const auto canvas = CreateWindowBacked2DRenderer(16, 16, window, &status);
    EXPECT_EQ(canvas != nullptr, status == kSurface_Success);
    return status;
}

TEST(FactoryRefusal, IsStatus2ThenStatus3ThenStatus8AndEachIsAskedForAgain) {
    const orvane::tests::TestWindow window(16, 16);
    LayerBacked2DRenderer canvas;
    EXPECT_EQ(canvas.InitializeSurface(16, 16, false), kSurface_NoDirect2DFactory);
    EXPECT_EQ(WindowStatusOn(window.Handle()), kSurface_NoDirect2DFactory);

    sRefusesDrawing = false;
    EXPECT_EQ(canvas.InitializeSurface(16, 16, false), kSurface_NoImagingFactory);
    EXPECT_EQ(WindowStatusOn(window.Handle()), kSurface_Success); // needs neither imaging nor text

    sRefusesImaging = false;
    EXPECT_EQ(canvas.InitializeSurface(16, 16, false), kSurface_NoTextFactory);
    EXPECT_EQ(CreateTextFormat(12), nullptr);

    sRefusesText = false;
    EXPECT_EQ(canvas.InitializeSurface(16, 16, false), kSurface_Success);
    EXPECT_NE(CreateTextFormat(12), nullptr);
}

} // namespace
} // namespace orvane::render
