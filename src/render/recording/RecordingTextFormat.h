// A text format that only knows what it was told.
#pragma once

#include "render/ITextFormat.h"

namespace orvane::render {

class RecordingTextFormat final : public ITextFormat {
public:
    // `fontSize` in pixels.
    explicit RecordingTextFormat(float fontSize)
        : mFontSize(fontSize) {}

    bool SetTextAlignment(std::uint32_t alignment) override {
        mAlignment = alignment <= kTextAlignmentJustified ? alignment : kTextAlignmentLeading;
        return true;
    }

    void* GetNativeFormat() override { return nullptr; }

    bool SetEllipsisTrimming() override {
        mEllipsis = true;
        return true;
    }

    [[nodiscard]] float FontSize() const { return mFontSize; }

    [[nodiscard]] std::uint32_t Alignment() const { return mAlignment; }

    [[nodiscard]] bool HasEllipsis() const { return mEllipsis; }

private:
    const float mFontSize;
    std::uint32_t mAlignment = kTextAlignmentLeading;
    bool mEllipsis = false;
};

} // namespace orvane::render
