// The screen of the oscilloscope: light that a beam leaves behind and that fades away. The line itself is kept
// pixel by pixel; the wide glow around it is soft enough to be kept at a quarter of that, which costs next to
// nothing.
#pragma once

#include "LightPlane.h"
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
    // smooth antialiased line with a glow. `thickness` is the line's, in pixels.
    void Sweep(const Box& box, std::span<const float> samples, const Colour& colour, float thickness);

    // Writes background plus light to the surface; both have the size of the screen.
    void Show(const std::vector<std::uint8_t>& background, Surface& surface);

private:
    void MakeBeams(float thickness);
    void Trace(LightPlane& plane, const Beam& beam, const Box& box, std::span<const float> samples,
               const Colour& colour, float segmentLength);
    void BlendSoftRows(int y);

    int mWidth = 0;
    int mHeight = 0;
    LightPlane mSharp;
    LightPlane mSoft;                    // a cell is 4 x 4 pixels; one more cell on every side
    std::vector<std::uint16_t> mSoftRow; // between two rows of cells
    Beam mLine;
    Beam mGlow;
    float mThickness = 0;
};

} // namespace example
