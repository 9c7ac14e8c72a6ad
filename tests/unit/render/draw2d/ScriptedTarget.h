// A render target that answers as a test says and notes what it was asked: for the answers that no real one
// can be made to give.
#pragma once

#include "render/draw2d/Direct2D.h"

namespace orvane::render::tests {

// Interfaces of this kind never have a virtual destructor; nothing deletes one of these through them.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

class ScriptedTarget final : public ID2D1RenderTarget {
public:
    HRESULT endDraw = S_OK;                            // what EndDraw answers
    int brushesLeft = 2;                               // how many brushes it makes before it refuses
    ID2D1RenderTarget* brushes = nullptr;              // who really makes them
    ULONG references = 1;                              // lives on the test's stack: never deleted
    int begun = 0, ended = 0;                          // calls
    float opacity = 0;                                 // of the last DrawBitmap
    int bitmaps = 0;                                   // calls of DrawBitmap
    D2D1_RECT_F destination = {};                      // of the last DrawBitmap
    bool wholeBitmap = false;                          // no source rectangle
    D2D1_BITMAP_INTERPOLATION_MODE interpolation = {}; // of the last DrawBitmap
    D2D1_DRAW_TEXT_OPTIONS textOptions = D2D1_DRAW_TEXT_OPTIONS_FORCE_DWORD;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** out) override {
        *out = nullptr;
        return E_NOINTERFACE;
    }

    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }

    ULONG STDMETHODCALLTYPE Release() override { return --references; }

    HRESULT STDMETHODCALLTYPE CreateSolidColorBrush(const D2D1_COLOR_F* color,
                                                    const D2D1_BRUSH_PROPERTIES* how,
                                                    ID2D1SolidColorBrush** out) override {
        *out = nullptr;
        if (brushesLeft-- <= 0) return E_OUTOFMEMORY;
        return brushes->CreateSolidColorBrush(color, how, out);
    }

    void STDMETHODCALLTYPE DrawBitmap(ID2D1Bitmap*, const D2D1_RECT_F* rect, FLOAT o,
                                      D2D1_BITMAP_INTERPOLATION_MODE mode,
                                      const D2D1_RECT_F* source) override {
        ++bitmaps;
        opacity = o;
        destination = *rect;
        interpolation = mode;
        wholeBitmap = source == nullptr;
    }

    void STDMETHODCALLTYPE DrawText(const WCHAR*, UINT, IDWriteTextFormat*, const D2D1_RECT_F*, ID2D1Brush*,
                                    D2D1_DRAW_TEXT_OPTIONS options, DWRITE_MEASURING_MODE) override {
        textOptions = options;
    }

    void STDMETHODCALLTYPE BeginDraw() override { ++begun; }

    HRESULT STDMETHODCALLTYPE EndDraw(D2D1_TAG*, D2D1_TAG*) override {
        ++ended;
        return endDraw;
    }

    // What the canvas has no use for.
    // clang-format off
    void STDMETHODCALLTYPE GetFactory(ID2D1Factory** out) const override { *out = nullptr; }
    HRESULT STDMETHODCALLTYPE CreateBitmap(D2D1_SIZE_U, const void*, UINT32, const D2D1_BITMAP_PROPERTIES*, ID2D1Bitmap**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE CreateBitmapFromWicBitmap(IWICBitmapSource*, const D2D1_BITMAP_PROPERTIES*, ID2D1Bitmap**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE CreateSharedBitmap(REFIID, void*, const D2D1_BITMAP_PROPERTIES*, ID2D1Bitmap**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE CreateBitmapBrush(ID2D1Bitmap*, const D2D1_BITMAP_BRUSH_PROPERTIES*, const D2D1_BRUSH_PROPERTIES*, ID2D1BitmapBrush**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE CreateGradientStopCollection(const D2D1_GRADIENT_STOP*, UINT, D2D1_GAMMA, D2D1_EXTEND_MODE, ID2D1GradientStopCollection**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE CreateLinearGradientBrush(const D2D1_LINEAR_GRADIENT_BRUSH_PROPERTIES*, const D2D1_BRUSH_PROPERTIES*, ID2D1GradientStopCollection*, ID2D1LinearGradientBrush**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE CreateRadialGradientBrush(const D2D1_RADIAL_GRADIENT_BRUSH_PROPERTIES*, const D2D1_BRUSH_PROPERTIES*, ID2D1GradientStopCollection*, ID2D1RadialGradientBrush**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE CreateCompatibleRenderTarget(const D2D1_SIZE_F*, const D2D1_SIZE_U*, const D2D1_PIXEL_FORMAT*, D2D1_COMPATIBLE_RENDER_TARGET_OPTIONS, ID2D1BitmapRenderTarget**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE CreateLayer(const D2D1_SIZE_F*, ID2D1Layer**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE CreateMesh(ID2D1Mesh**) override { return E_NOTIMPL; }
    void STDMETHODCALLTYPE DrawLine(D2D1_POINT_2F, D2D1_POINT_2F, ID2D1Brush*, FLOAT, ID2D1StrokeStyle*) override {}
    void STDMETHODCALLTYPE DrawRectangle(const D2D1_RECT_F*, ID2D1Brush*, FLOAT, ID2D1StrokeStyle*) override {}
    void STDMETHODCALLTYPE FillRectangle(const D2D1_RECT_F*, ID2D1Brush*) override {}
    void STDMETHODCALLTYPE DrawRoundedRectangle(const D2D1_ROUNDED_RECT*, ID2D1Brush*, FLOAT, ID2D1StrokeStyle*) override {}
    void STDMETHODCALLTYPE FillRoundedRectangle(const D2D1_ROUNDED_RECT*, ID2D1Brush*) override {}
    void STDMETHODCALLTYPE DrawEllipse(const D2D1_ELLIPSE*, ID2D1Brush*, FLOAT, ID2D1StrokeStyle*) override {}
    void STDMETHODCALLTYPE FillEllipse(const D2D1_ELLIPSE*, ID2D1Brush*) override {}
    void STDMETHODCALLTYPE DrawGeometry(ID2D1Geometry*, ID2D1Brush*, FLOAT, ID2D1StrokeStyle*) override {}
    void STDMETHODCALLTYPE FillGeometry(ID2D1Geometry*, ID2D1Brush*, ID2D1Brush*) override {}
    void STDMETHODCALLTYPE FillMesh(ID2D1Mesh*, ID2D1Brush*) override {}
    void STDMETHODCALLTYPE FillOpacityMask(ID2D1Bitmap*, ID2D1Brush*, D2D1_OPACITY_MASK_CONTENT, const D2D1_RECT_F*, const D2D1_RECT_F*) override {}
    void STDMETHODCALLTYPE DrawTextLayout(D2D1_POINT_2F, IDWriteTextLayout*, ID2D1Brush*, D2D1_DRAW_TEXT_OPTIONS) override {}
    void STDMETHODCALLTYPE DrawGlyphRun(D2D1_POINT_2F, const DWRITE_GLYPH_RUN*, ID2D1Brush*, DWRITE_MEASURING_MODE) override {}
    void STDMETHODCALLTYPE SetTransform(const D2D1_MATRIX_3X2_F*) override {}
    void STDMETHODCALLTYPE GetTransform(D2D1_MATRIX_3X2_F*) const override {}
    void STDMETHODCALLTYPE SetAntialiasMode(D2D1_ANTIALIAS_MODE) override {}
    D2D1_ANTIALIAS_MODE STDMETHODCALLTYPE GetAntialiasMode() const override { return {}; }
    void STDMETHODCALLTYPE SetTextAntialiasMode(D2D1_TEXT_ANTIALIAS_MODE) override {}
    D2D1_TEXT_ANTIALIAS_MODE STDMETHODCALLTYPE GetTextAntialiasMode() const override { return {}; }
    void STDMETHODCALLTYPE SetTextRenderingParams(IDWriteRenderingParams*) override {}
    void STDMETHODCALLTYPE GetTextRenderingParams(IDWriteRenderingParams** out) const override { *out = nullptr; }
    void STDMETHODCALLTYPE SetTags(D2D1_TAG, D2D1_TAG) override {}
    void STDMETHODCALLTYPE GetTags(D2D1_TAG*, D2D1_TAG*) const override {}
    void STDMETHODCALLTYPE PushLayer(const D2D1_LAYER_PARAMETERS*, ID2D1Layer*) override {}
    void STDMETHODCALLTYPE PopLayer() override {}
    HRESULT STDMETHODCALLTYPE Flush(D2D1_TAG*, D2D1_TAG*) override { return S_OK; }
    void STDMETHODCALLTYPE SaveDrawingState(ID2D1DrawingStateBlock*) const override {}
    void STDMETHODCALLTYPE RestoreDrawingState(ID2D1DrawingStateBlock*) override {}
    void STDMETHODCALLTYPE PushAxisAlignedClip(const D2D1_RECT_F*, D2D1_ANTIALIAS_MODE) override {}
    void STDMETHODCALLTYPE PopAxisAlignedClip() override {}
    void STDMETHODCALLTYPE Clear(const D2D1_COLOR_F*) override {}
    D2D1_PIXEL_FORMAT* STDMETHODCALLTYPE GetPixelFormat(D2D1_PIXEL_FORMAT* out) const override { *out = {}; return out; }
    void STDMETHODCALLTYPE SetDpi(FLOAT, FLOAT) override {}
    void STDMETHODCALLTYPE GetDpi(FLOAT*, FLOAT*) const override {}
    D2D1_SIZE_F* STDMETHODCALLTYPE GetSize(D2D1_SIZE_F* out) const override { *out = {}; return out; }
    D2D1_SIZE_U* STDMETHODCALLTYPE GetPixelSize(D2D1_SIZE_U* out) const override { *out = {}; return out; }
    UINT32 STDMETHODCALLTYPE GetMaximumBitmapSize() const override { return 0; }
    BOOL STDMETHODCALLTYPE IsSupported(const D2D1_RENDER_TARGET_PROPERTIES*) const override { return FALSE; }

    // clang-format on
};

#pragma GCC diagnostic pop

} // namespace orvane::render::tests
