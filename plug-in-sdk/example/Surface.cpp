#include "Surface.h"

#include <algorithm>
#include <cmath>

namespace example {

namespace {

constexpr float kFull = 255.0f;

std::uint8_t Saturated(float value) {
    return std::uint8_t(std::clamp(value, 0.0f, kFull));
}

// How much of the pixel at `at` lies between `low` and `high`, 0 to 1.
float Coverage(int at, float low, float high) {
    return std::clamp(std::min(high, float(at + 1)) - std::max(low, float(at)), 0.0f, 1.0f);
}

COLORREF ColourReference(const Colour& colour) {
    return RGB(Saturated(colour.red * kFull), Saturated(colour.green * kFull),
               Saturated(colour.blue * kFull));
}

} // namespace

bool Surface::Resize(int width, int height) {
    if (mBytes && width == mWidth && height == mHeight) return true;
    Release();
    if (width <= 0 || height <= 0) return false;
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height; // top row first
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    void* bytes = nullptr;
    mContext = CreateCompatibleDC(nullptr);
    mBitmap = CreateDIBSection(mContext, &info, DIB_RGB_COLORS, &bytes, nullptr, 0);
    if (!mContext || !mBitmap) {
        Release();
        return false;
    }
    mOldBitmap = SelectObject(mContext, mBitmap);
    SetBkMode(mContext, TRANSPARENT);
    mBytes = static_cast<std::uint8_t*>(bytes);
    mWidth = width;
    mHeight = height;
    return true;
}

void Surface::Release() {
    if (mOldBitmap) SelectObject(mContext, mOldBitmap);
    if (mBitmap) DeleteObject(mBitmap);
    if (mContext) DeleteDC(mContext);
    mOldBitmap = nullptr;
    mBitmap = nullptr;
    mContext = nullptr;
    mBytes = nullptr;
    mWidth = 0;
    mHeight = 0;
}

void Surface::Text(const Box& box, const wchar_t* text, HFONT font, const Colour& colour, UINT flags) {
    RECT place = { LONG(box.left), LONG(box.top), LONG(box.right), LONG(box.bottom) };
    const HGDIOBJ oldFont = SelectObject(mContext, font);
    SetTextColor(mContext, ColourReference(colour));
    DrawTextW(mContext, text, -1, &place, flags | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS);
    SelectObject(mContext, oldFont);
}

void Surface::AddBox(const Box& box, const Colour& top, const Colour& bottom) {
    const int firstX = std::max(0, int(std::floor(box.left)));
    const int firstY = std::max(0, int(std::floor(box.top)));
    const int endX = std::min(mWidth, int(std::ceil(box.right)));
    const int endY = std::min(mHeight, int(std::ceil(box.bottom)));
    for (int y = firstY; y < endY; ++y) {
        const float share = std::clamp((float(y) + 0.5f - box.top) / box.Height(), 0.0f, 1.0f);
        const Colour colour = Mix(top, bottom, share) * (kFull * Coverage(y, box.top, box.bottom));
        std::uint8_t* pixel = Row(y) + std::size_t(firstX) * 4;
        for (int x = firstX; x < endX; ++x, pixel += 4) {
            const float part = Coverage(x, box.left, box.right);
            pixel[0] = Saturated(float(pixel[0]) + colour.blue * part);
            pixel[1] = Saturated(float(pixel[1]) + colour.green * part);
            pixel[2] = Saturated(float(pixel[2]) + colour.red * part);
        }
    }
}

void Surface::CopyTo(HWND window) {
    const HDC target = GetDC(window);
    if (!target) return;
    BitBlt(target, 0, 0, mWidth, mHeight, mContext, 0, 0, SRCCOPY);
    ReleaseDC(window, target);
}

} // namespace example
