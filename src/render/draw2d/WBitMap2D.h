// An image of Direct2D.
#pragma once

#include "render/IBitMap2D.h"
#include "render/draw2d/Direct2D.h"

namespace orvane::render {

class WBitMap2D final : public IBitMap2D {
public:
    // Null makes an empty one.
    explicit WBitMap2D(Microsoft::WRL::ComPtr<ID2D1Bitmap> bitmap);

    void GetSize(double out[2]) override;

    [[nodiscard]] ID2D1Bitmap* Native() const { return mBitmap.Get(); }

private:
    Microsoft::WRL::ComPtr<ID2D1Bitmap> mBitmap;
};

} // namespace orvane::render
