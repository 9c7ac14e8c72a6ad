// The text format of DirectWrite.
#pragma once

#include "render/ITextFormat.h"
#include "render/draw2d/Direct2D.h"

#include <memory>

namespace orvane::render {

class WTextFormat final : public ITextFormat {
public:
    explicit WTextFormat(Microsoft::WRL::ComPtr<IDWriteTextFormat> format);

    bool SetTextAlignment(std::uint32_t alignment) override;
    void* GetNativeFormat() override; // an IDWriteTextFormat*
    bool SetEllipsisTrimming() override;

private:
    Microsoft::WRL::ComPtr<IDWriteTextFormat> mFormat;
};

// Arial of normal weight, style and width, `size` device-independent pixels high. Null on failure, and for a
// size that isn't above 0.
[[nodiscard]] std::unique_ptr<ITextFormat> CreateTextFormat(float size);

} // namespace orvane::render
