#include "render/draw2d/WTextFormat.h"

#include "render/draw2d/Factories.h"

#include <iterator>
#include <utility>

namespace orvane::render {

using Microsoft::WRL::ComPtr;

namespace {

constexpr const wchar_t* kFamily = L"Arial";
constexpr const wchar_t* kLocale = L"en-us";

// By TextAlignment.
constexpr DWRITE_TEXT_ALIGNMENT kAlignments[] = {
    DWRITE_TEXT_ALIGNMENT_LEADING,
    DWRITE_TEXT_ALIGNMENT_TRAILING,
    DWRITE_TEXT_ALIGNMENT_CENTER,
    DWRITE_TEXT_ALIGNMENT_JUSTIFIED,
};

constexpr DWRITE_TRIMMING kTrimAtWords = { DWRITE_TRIMMING_GRANULARITY_WORD, 0, 0 };

} // namespace

WTextFormat::WTextFormat(ComPtr<IDWriteTextFormat> format)
    : mFormat(std::move(format)) {}

bool WTextFormat::SetTextAlignment(std::uint32_t alignment) {
    if (!mFormat) return false;
    const std::uint32_t row = alignment < std::size(kAlignments) ? alignment : kTextAlignmentLeading;
    return SUCCEEDED(mFormat->SetTextAlignment(kAlignments[row]));
}

void* WTextFormat::GetNativeFormat() {
    return mFormat.Get();
}

bool WTextFormat::SetEllipsisTrimming() {
    IDWriteFactory* const factory = TextFactory();
    if (!factory || !mFormat) return false;
    ComPtr<IDWriteInlineObject> sign;
    if (FAILED(factory->CreateEllipsisTrimmingSign(mFormat.Get(), &sign))) return false;
    return SUCCEEDED(mFormat->SetTrimming(&kTrimAtWords, sign.Get()));
}

std::unique_ptr<ITextFormat> CreateTextFormat(float size) {
    IDWriteFactory* const factory = TextFactory();
    if (!factory || !(size > 0)) return nullptr;
    ComPtr<IDWriteTextFormat> format;
    if (FAILED(factory->CreateTextFormat(kFamily, nullptr, DWRITE_FONT_WEIGHT_NORMAL,
                                         DWRITE_FONT_STYLE_NORMAL, DWRITE_FONT_STRETCH_NORMAL, size, kLocale,
                                         &format)))
        return nullptr;
    return std::make_unique<WTextFormat>(std::move(format));
}

} // namespace orvane::render
