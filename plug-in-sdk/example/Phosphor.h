// The screen of the oscilloscope: light that a beam leaves behind and that fades away.
#pragma once

#include "Surface.h"

#include <cstdint>
#include <span>
#include <vector>

namespace example {

class Phosphor {
public:
    // A dark screen of that size.
    void Resize(int width, int height);

    // Lets the light fade for `seconds`; it falls to a third in a tenth of a second.
    void Fade(float seconds);

    // Draws one sweep through `box`: `samples` (-1 to 1, up is positive) from its left to its right edge, as a
    // smooth antialiased line with a glow. `thickness` is the core's, in pixels.
    void Sweep(const Box& box, std::span<const float> samples, const Colour& colour, float thickness);

    // Writes background plus light to the surface; both have the size of the screen.
    void Show(const std::vector<std::uint8_t>& background, Surface& surface) const;

private:
    struct Point {
        float x, y;
    };

    void Segment(const Point& from, const Point& to, const Colour& colour, float brightness);
    void MakeProfile(float thickness);

    int mWidth = 0;
    int mHeight = 0;
    std::vector<std::uint16_t> mLight; // blue, green, red and white for each pixel, 8 bits of fraction
    std::vector<float> mCore;          // brightness of the beam by the square of the distance from its centre
    std::vector<float> mGlow;
    float mThickness = 0;
    float mReach = 0; // pixels from the centre to the dark
};

} // namespace example
