#include "render/draw2d/WRenderer2D.h"

#include "render/PackedRows.h"
#include "render/draw2d/DrawingLock.h"
#include "render/draw2d/ImageDecoder.h"
#include "render/draw2d/WBitMap2D.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace orvane::render {

using Microsoft::WRL::ComPtr;

namespace {

constexpr float kFullOpacity = 1.0f;
constexpr HRESULT kTargetLost = HRESULT(0x8899000C); // some headers define its usual name as unsigned
constexpr float kPixelsPerInch = 96.0f;              // one unit of the canvas is then one pixel of the image

constexpr D2D1_BITMAP_PROPERTIES kPackedPicture = {
    { DXGI_FORMAT_B8G8R8A8_UNORM, D2D1_ALPHA_MODE_PREMULTIPLIED }, kPixelsPerInch, kPixelsPerInch
};

D2D1_COLOR_F Color(double red, double green, double blue, double alpha) {
    return { float(red), float(green), float(blue), float(alpha) };
}

D2D1_RECT_F Rect(const double rect[4]) {
    return { float(rect[0]), float(rect[1]), float(rect[0] + rect[2]), float(rect[1] + rect[3]) };
}

D2D1_ELLIPSE EllipseWithin(const double rect[4]) {
    const double radiusX = rect[2] / 2, radiusY = rect[3] / 2;
    return { { float(rect[0] + radiusX), float(rect[1] + radiusY) }, float(radiusX), float(radiusY) };
}

IBitMap2D* Wrapped(ComPtr<ID2D1Bitmap> bitmap) {
    return std::make_unique<WBitMap2D>(std::move(bitmap)).release();
}

} // namespace

// The lock throws only in a thread that holds it already, and none holds it across a canvas's end.
WRenderer2D::~WRenderer2D() { // NOLINT(bugprone-exception-escape)
    const DrawingLock lock;
    ReleaseTarget();
}

SurfaceStatus WRenderer2D::TakeTarget(ComPtr<ID2D1RenderTarget> target, std::uint32_t width,
                                      std::uint32_t height) {
    ReleaseTarget();
    if (!target) return kSurface_NoRenderTarget;
    ComPtr<ID2D1SolidColorBrush> fill, stroke;
    if (FAILED(target->CreateSolidColorBrush(&kFirstFillColor, nullptr, &fill))) return kSurface_NoFillBrush;
    if (FAILED(target->CreateSolidColorBrush(&kFirstStrokeColor, nullptr, &stroke)))
        return kSurface_NoStrokeBrush;
    mTarget = std::move(target);
    mFillBrush = std::move(fill);
    mStrokeBrush = std::move(stroke);
    mWidth = width;
    mHeight = height;
    return kSurface_Success;
}

void WRenderer2D::ReleaseTarget() {
    mFillBrush.Reset();
    mStrokeBrush.Reset();
    mTarget.Reset();
    mWidth = mHeight = 0;
    mIsDrawing = mHasFailed = false;
}

void WRenderer2D::Resize(std::uint32_t, std::uint32_t) {}

void WRenderer2D::SetStrokeColor(double red, double green, double blue, double alpha) {
    const DrawingLock lock;
    if (mTarget && mStrokeBrush) mStrokeBrush->SetColor(Color(red, green, blue, alpha));
}

void WRenderer2D::SetFillColor(double red, double green, double blue, double alpha) {
    const DrawingLock lock;
    if (mTarget && mFillBrush) mFillBrush->SetColor(Color(red, green, blue, alpha));
}

void WRenderer2D::DrawLines(const double segments[], int count, float width) {
    if (!mTarget || !segments || !(width > 0)) return;
    const DrawingLock lock;
    for (int i = 0; i < count; ++i, segments += 4)
        mTarget->DrawLine({ float(segments[0]), float(segments[1]) },
                          { float(segments[2]), float(segments[3]) }, mStrokeBrush.Get(), width);
}

void WRenderer2D::StrokeRectangle(const double rect[4]) {
    const DrawingLock lock;
    if (mTarget) mTarget->DrawRectangle(Rect(rect), mStrokeBrush.Get(), mStrokeWidth);
}

void WRenderer2D::FillRectangle(const double rect[4]) {
    const DrawingLock lock;
    if (mTarget) mTarget->FillRectangle(Rect(rect), mFillBrush.Get());
}

void WRenderer2D::FillEllipse(const double rect[4]) {
    const DrawingLock lock;
    if (mTarget) mTarget->FillEllipse(EllipseWithin(rect), mFillBrush.Get());
}

void WRenderer2D::StrokeEllipse(const double rect[4]) {
    const DrawingLock lock;
    if (mTarget) mTarget->DrawEllipse(EllipseWithin(rect), mStrokeBrush.Get(), mStrokeWidth);
}

void WRenderer2D::ReadPixels(BitmapProcessingFunctor&) {}

void WRenderer2D::BeginDraw() {
    const DrawingLock lock;
    if (!mTarget) return;
    mTarget->BeginDraw();
    mIsDrawing = true;
}

bool WRenderer2D::EndDraw() {
    const DrawingLock lock;
    if (!mTarget) return false;
    const HRESULT result = mTarget->EndDraw();
    mIsDrawing = false;
    mHasFailed = mHasFailed || FAILED(result);
    return result == kTargetLost;
}

void WRenderer2D::DrawText(const char16_t* text, std::uint32_t length, ITextFormat* format,
                           const double rect[4]) {
    static_assert(sizeof(char16_t) == sizeof(wchar_t), "both hold one UTF-16 unit");
    if (!mTarget || !text || length == 0 || !format) return;
    auto* const native = static_cast<IDWriteTextFormat*>(format->GetNativeFormat());
    if (!native) return;
    const DrawingLock lock;
    mTarget->DrawText(reinterpret_cast<const wchar_t*>(text), length, native, Rect(rect), mFillBrush.Get());
}

IBitMap2D* WRenderer2D::CreateBitmapFromPackedRows(const char* const rows[], std::uint64_t rowCount) {
    if (!mTarget) return nullptr;
    const std::optional<PackedPicture> picture = DecodePackedRows(rows, rowCount);
    if (!picture) return nullptr;
    ComPtr<ID2D1Bitmap> bitmap;
    const DrawingLock lock;
    if (FAILED(mTarget->CreateBitmap({ picture->width, picture->height }, picture->bytes.get(),
                                     UINT32(picture->RowBytes()), kPackedPicture, &bitmap)))
        return nullptr;
    return Wrapped(std::move(bitmap));
}

IBitMap2D* WRenderer2D::CreateBitmapFromImageData(const void* data, std::uint32_t size) {
    if (!mTarget) return nullptr;
    const ComPtr<IWICBitmapSource> picture = DecodeImage(data, size);
    if (!picture) return nullptr;
    ComPtr<ID2D1Bitmap> bitmap;
    const DrawingLock lock;
    if (FAILED(mTarget->CreateBitmapFromWicBitmap(picture.Get(), &bitmap))) return nullptr;
    return Wrapped(std::move(bitmap));
}

void WRenderer2D::DrawBitmap(IBitMap2D* bitmap, float opacity, const double rect[4]) {
    if (!mTarget || !bitmap || !(opacity > 0)) return;
    // A bitmap is good for the canvas that made it, so it is one of ours.
    ID2D1Bitmap* const native = static_cast<WBitMap2D*>(bitmap)->Native();
    if (!native) return;
    const DrawingLock lock;
    mTarget->DrawBitmap(native, Rect(rect), std::min(opacity, kFullOpacity),
                        D2D1_BITMAP_INTERPOLATION_MODE_LINEAR);
}

} // namespace orvane::render
