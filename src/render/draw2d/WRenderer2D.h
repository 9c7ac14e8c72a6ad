// The 2D canvas on Direct2D: everything but the making of the surface, which its two subclasses add.
#pragma once

#include "render/IRenderer2D.h"
#include "render/draw2d/Direct2D.h"
#include "render/draw2d/SurfaceStatus.h"

#include <cstdint>

namespace orvane::render {

class WRenderer2D : public IRenderer2D {
public:
    WRenderer2D() = default;
    ~WRenderer2D() override;
    WRenderer2D(const WRenderer2D&) = delete;
    WRenderer2D& operator=(const WRenderer2D&) = delete;

    void Resize(std::uint32_t width, std::uint32_t height) override;
    void SetStrokeColor(double red, double green, double blue, double alpha) override;
    void SetFillColor(double red, double green, double blue, double alpha) override;
    void DrawLines(const double segments[], int count, float width) override;
    void StrokeRectangle(const double rect[4]) override;
    void FillRectangle(const double rect[4]) override;
    void FillEllipse(const double rect[4]) override;
    void StrokeEllipse(const double rect[4]) override;
    void ReadPixels(BitmapProcessingFunctor& functor) override;
    void BeginDraw() override;
    bool EndDraw() override;
    void DrawText(const char16_t* text, std::uint32_t length, ITextFormat* format,
                  const double rect[4]) override;
    IBitMap2D* CreateBitmapFromPackedRows(const char* const rows[], std::uint64_t rowCount) override;
    IBitMap2D* CreateBitmapFromImageData(const void* data, std::uint32_t size) override;
    void DrawBitmap(IBitMap2D* bitmap, float opacity, const double rect[4]) override;

protected:
    // Both under the lock of drawing, which the caller holds.

    // Takes the target, of that size in pixels, and makes the two brushes on it. On failure (no target, or no
    // brush) the canvas is left without a surface, and the status says which it was.
    SurfaceStatus TakeTarget(Microsoft::WRL::ComPtr<ID2D1RenderTarget> target, std::uint32_t width,
                             std::uint32_t height);

    // Gives up the target and what was made on it.
    void ReleaseTarget();

    // Whether all that was drawn on the target went well, with no drawing begun.
    [[nodiscard]] bool IsTargetWell() const { return mTarget && !mIsDrawing && !mHasFailed; }

    static constexpr D2D1_COLOR_F kFirstFillColor = { 1, 1, 1, 1 };
    static constexpr D2D1_COLOR_F kFirstStrokeColor = { 0, 0, 0, 1 };

    float mStrokeWidth = 1.0f; // pixels; no operation changes it
    Microsoft::WRL::ComPtr<ID2D1SolidColorBrush> mFillBrush;
    Microsoft::WRL::ComPtr<ID2D1SolidColorBrush> mStrokeBrush;
    Microsoft::WRL::ComPtr<ID2D1RenderTarget> mTarget;
    std::uint32_t mWidth = 0, mHeight = 0; // pixels

private:
    bool mIsDrawing = false; // between BeginDraw and EndDraw
    bool mHasFailed = false; // a drawing on this target
};

} // namespace orvane::render
