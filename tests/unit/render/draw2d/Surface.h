// A surface in memory as the tests use it: drawn on by a function, read back pixel by pixel.
#pragma once

#include "render/draw2d/Factories.h"
#include "render/draw2d/LayerBacked2DRenderer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <ostream>
#include <vector>

namespace orvane::render::tests {

// A pixel of 32 bits in memory order, premultiplied.
struct Pixel {
    std::uint8_t blue = 0, green = 0, red = 0, alpha = 0;

    bool operator==(const Pixel&) const = default;
};

inline std::ostream& operator<<(std::ostream& out, const Pixel& p) {
    return out << "bgra(" << int(p.blue) << ' ' << int(p.green) << ' ' << int(p.red) << ' ' << int(p.alpha)
               << ')';
}

constexpr Pixel kClear = { 0, 0, 0, 0 };
constexpr Pixel kWhite = { 255, 255, 255, 255 };
constexpr Pixel kBlack = { 0, 0, 0, 255 };
constexpr Pixel kRed = { 0, 0, 255, 255 };
constexpr Pixel kGreen = { 0, 255, 0, 255 };
constexpr Pixel kBlue = { 255, 0, 0, 255 };

// Whether no channel differs by more than `within`: components round in their own way.
inline bool Near(const Pixel& a, const Pixel& b, int within) {
    const auto close = [within](int x, int y) { return x - y <= within && y - x <= within; };
    return close(a.blue, b.blue) && close(a.green, b.green) && close(a.red, b.red) && close(a.alpha, b.alpha);
}

// The columns and rows, right and bottom exclusive, in which something is drawn.
struct Ink {
    int left = 0, top = 0, right = 0, bottom = 0;

    [[nodiscard]] bool Any() const { return right > left; }

    [[nodiscard]] int Width() const { return right - left; }

    [[nodiscard]] int Height() const { return bottom - top; }
};

struct Picture {
    int width = 0, height = 0;
    std::vector<Pixel> pixels;

    [[nodiscard]] const Pixel& At(int x, int y) const { return pixels.at(std::size_t(y * width + x)); }

    [[nodiscard]] bool IsAll(const Pixel& p) const {
        return std::all_of(pixels.begin(), pixels.end(), [&](const Pixel& q) { return q == p; });
    }

    // Pixels of at least `alpha` among the columns from `left` on.
    [[nodiscard]] Ink InkOf(int alpha = 32, int left = 0) const {
        Ink ink;
        for (int y = 0; y < height; ++y)
            for (int x = left; x < width; ++x) {
                if (At(x, y).alpha < alpha) continue;
                ink = !ink.Any() ? Ink{ x, y, x + 1, y + 1 }
                                 : Ink{ std::min(ink.left, x), std::min(ink.top, y),
                                        std::max(ink.right, x + 1), std::max(ink.bottom, y + 1) };
            }
        return ink;
    }
};

// Copies what ReadPixels shows.
class Reader final : public BitmapProcessingFunctor {
public:
    void Process(void* pixels, int width, int height, int rowBytes, std::size_t byteCount) override {
        ++calls;
        picture = { width, height, std::vector<Pixel>(std::size_t(width * height)) };
        EXPECT_GE(rowBytes, width * 4);
        // The last row need not be padded.
        ASSERT_GE(byteCount, std::size_t(rowBytes) * std::size_t(height - 1) + std::size_t(width) * 4);
        for (int y = 0; y < height; ++y)
            std::memcpy(&picture.pixels[std::size_t(y * width)], static_cast<char*>(pixels) + y * rowBytes,
                        std::size_t(width) * 4);
    }

    int calls = 0;
    Picture picture;
};

class Surface {
public:
    Surface(std::uint32_t width, std::uint32_t height) {
        EXPECT_EQ(canvas.InitializeSurface(width, height, false), kSurface_Success);
    }

    // Draws between BeginDraw and EndDraw; what is there then.
    template <typename Drawing>
    Picture After(Drawing draw) {
        canvas.BeginDraw();
        draw(canvas);
        EXPECT_FALSE(canvas.EndDraw());
        return Read();
    }

    Picture Read() {
        Reader reader;
        canvas.ReadPixels(reader);
        EXPECT_EQ(reader.calls, 1);
        return reader.picture;
    }

    LayerBacked2DRenderer canvas;
};

// A target on a bitmap of 8 by 8 pixels, of the class of every layer surface's.
inline Microsoft::WRL::ComPtr<ID2D1RenderTarget> SomeLayerTarget() {
    Microsoft::WRL::ComPtr<IWICBitmap> bitmap;
    Microsoft::WRL::ComPtr<ID2D1RenderTarget> target;
    ImagingFactory()->CreateBitmap(8, 8, GUID_WICPixelFormat32bppPBGRA, WICBitmapCacheOnLoad, &bitmap);
    Direct2DFactory()->CreateWicBitmapRenderTarget(bitmap.Get(), D2D1::RenderTargetProperties(), &target);
    return target;
}

} // namespace orvane::render::tests
