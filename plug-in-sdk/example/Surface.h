// A picture in memory that GDI can write text into and copy to a window: a 32-bit DIB section, top row first.
#pragma once

#include <cstdint>
#include <windows.h>

namespace example {

// A colour as three channels, 0 to 1; more is over-exposed.
struct Colour {
    float red, green, blue;
};

constexpr Colour operator*(const Colour& colour, float by) {
    return { colour.red * by, colour.green * by, colour.blue * by };
}

constexpr Colour Mix(const Colour& from, const Colour& to, float share) {
    return { from.red + (to.red - from.red) * share, from.green + (to.green - from.green) * share,
             from.blue + (to.blue - from.blue) * share };
}

// Edges in pixels; fractions count.
struct Box {
    float left, top, right, bottom;

    [[nodiscard]] float Width() const { return right - left; }

    [[nodiscard]] float Height() const { return bottom - top; }
};

class Surface {
public:
    Surface() = default;

    ~Surface() { Release(); }

    Surface(const Surface&) = delete;
    Surface& operator=(const Surface&) = delete;

    // Makes a new picture of that size unless there is one. False, and no picture, if there can't be one.
    bool Resize(int width, int height);
    void Release();

    [[nodiscard]] int Width() const { return mWidth; }

    [[nodiscard]] int Height() const { return mHeight; }

    // Four bytes a pixel: blue, green, red, unused. GDI may still be at work on them: Settle() first.
    [[nodiscard]] std::uint8_t* Row(int y) { return mBytes + std::size_t(y) * std::size_t(mWidth) * 4; }

    void Settle() { GdiFlush(); }

    // One line of text, cut with an ellipsis; `flags` are DrawTextW's.
    void Text(const Box& box, const wchar_t* text, HFONT font, const Colour& colour, UINT flags = DT_LEFT);

    // Adds light to a box with soft edges, `top` and `bottom` being the colours of its ends.
    void AddBox(const Box& box, const Colour& top, const Colour& bottom);

    // The one step that the user sees.
    void CopyTo(HWND window);

private:
    int mWidth = 0;
    int mHeight = 0;
    HDC mContext = nullptr;
    HBITMAP mBitmap = nullptr;
    HGDIOBJ mOldBitmap = nullptr;
    std::uint8_t* mBytes = nullptr;
};

} // namespace example
