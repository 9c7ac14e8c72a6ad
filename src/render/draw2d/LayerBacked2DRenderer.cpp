#include "render/draw2d/LayerBacked2DRenderer.h"

#include "render/draw2d/DrawingLock.h"
#include "render/draw2d/Factories.h"
#include "render/draw2d/SpareSurfaces.h"

#include <utility>

namespace orvane::render {

using Microsoft::WRL::ComPtr;

// The lock throws only in a thread that holds it already, and none holds it across a canvas's end.
LayerBacked2DRenderer::~LayerBacked2DRenderer() { // NOLINT(bugprone-exception-escape)
    const DrawingLock lock;
    if (mBitmap && !mAlphaOnly && IsTargetWell())
        KeepSpareSurface({ mBitmapWidth, mBitmapHeight, mBitmap, mTarget, mFillBrush, mStrokeBrush });
}

SurfaceStatus LayerBacked2DRenderer::InitializeSurface(std::uint32_t width, std::uint32_t height,
                                                       bool alphaOnly) {
    const DrawingLock lock;
    ReleaseTarget();
    mBitmap.Reset();
    mAlphaOnly = alphaOnly;
    if (!alphaOnly && TakeSpare(width, height)) return kSurface_Success;
    return MakeSurface(width, height, alphaOnly);
}

SurfaceStatus LayerBacked2DRenderer::MakeSurface(std::uint32_t width, std::uint32_t height, bool alphaOnly) {
    ID2D1Factory* const drawing = Direct2DFactory();
    if (!drawing) return kSurface_NoDirect2DFactory;
    IWICImagingFactory* const imaging = ImagingFactory();
    if (!imaging) return kSurface_NoImagingFactory;

    ComPtr<IWICBitmap> bitmap;
    const GUID& format = alphaOnly ? GUID_WICPixelFormat8bppAlpha : GUID_WICPixelFormat32bppPBGRA;
    if (FAILED(imaging->CreateBitmap(width, height, format, WICBitmapCacheOnLoad, &bitmap)))
        return kSurface_NoBitmap;

    ComPtr<ID2D1RenderTarget> target;
    const auto software = D2D1::RenderTargetProperties(D2D1_RENDER_TARGET_TYPE_SOFTWARE);
    if (FAILED(drawing->CreateWicBitmapRenderTarget(bitmap.Get(), software, &target)))
        return kSurface_NoRenderTarget;
    if (const auto status = TakeTarget(std::move(target), width, height); status != kSurface_Success)
        return status;
    if (!TextFactory()) {
        ReleaseTarget();
        return kSurface_NoTextFactory;
    }
    mBitmap = std::move(bitmap);
    mBitmapWidth = width;
    mBitmapHeight = height;
    return kSurface_Success;
}

bool LayerBacked2DRenderer::TakeSpare(std::uint32_t width, std::uint32_t height) {
    std::optional<LayerSurface> spare = TakeSpareSurface(width, height);
    if (!spare) return false;
    mWidth = width;
    mHeight = height;
    mBitmapWidth = spare->width;
    mBitmapHeight = spare->height;
    mBitmap = std::move(spare->bitmap);
    mTarget = std::move(spare->target);
    mFillBrush = std::move(spare->fillBrush);
    mStrokeBrush = std::move(spare->strokeBrush);
    mFillBrush->SetColor(kFirstFillColor);
    mStrokeBrush->SetColor(kFirstStrokeColor);
    return true;
}

void LayerBacked2DRenderer::ReadPixels(BitmapProcessingFunctor& functor) {
    if (!mBitmap) return;
    const WICRect whole = { 0, 0, INT(mWidth), INT(mHeight) };
    ComPtr<IWICBitmapLock> lock; // the bitmap is unlocked when this goes
    UINT rowBytes = 0, byteCount = 0;
    BYTE* pixels = nullptr;
    if (FAILED(mBitmap->Lock(&whole, WICBitmapLockWrite, &lock)) || FAILED(lock->GetStride(&rowBytes)) ||
        FAILED(lock->GetDataPointer(&byteCount, &pixels)))
        return;
    functor.Process(pixels, int(mWidth), int(mHeight), int(rowBytes), byteCount);
}

} // namespace orvane::render
