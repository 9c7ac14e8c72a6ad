// What a renderer has drawn so far, read back from its target.
#pragma once

#include "render/direct3d/Direct3DRenderer.h"

#include <cstdint>
#include <functional>
#include <ostream>
#include <vector>

namespace orvane::tests {

struct Colour {
    std::uint8_t r = 0, g = 0, b = 0, a = 0;

    bool operator==(const Colour&) const = default;
};

void PrintTo(const Colour& colour, std::ostream* out);

constexpr Colour kBlack = { 0, 0, 0, 255 };

// Pixels with an edge that is not part of them.
struct Area {
    int left = 0, top = 0, right = 0, bottom = 0;

    bool operator==(const Area&) const = default;
};

void PrintTo(const Area& area, std::ostream* out);

class Picture {
public:
    // Empty if the renderer has no target.
    explicit Picture(const render::Direct3DRenderer& renderer);

    [[nodiscard]] int Width() const { return mWidth; }

    [[nodiscard]] int Height() const { return mHeight; }

    // x to the right, y downward, from 0.
    [[nodiscard]] Colour At(int x, int y) const;

    // The smallest area around all pixels that differ from `background`; empty if there are none.
    [[nodiscard]] Area DrawnArea(const Colour& background = kBlack) const;

    // How many pixels have that colour.
    [[nodiscard]] int Count(const Colour& colour) const;

    // Whether every pixel of the area has that colour.
    [[nodiscard]] bool IsFilled(const Area& area, const Colour& colour) const;

    bool operator==(const Picture&) const = default;

private:
    int mWidth = 0, mHeight = 0;
    std::vector<Colour> mPixels; // row by row
};

// Whether the colours differ by at most one in each channel: a value may be rounded either way.
[[nodiscard]] bool IsNear(const Colour& a, const Colour& b);

} // namespace orvane::tests
