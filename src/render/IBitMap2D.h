// An image that a 2D canvas can draw.
#pragma once

namespace orvane::render {

// Made by the canvas that is to draw it, and good for that canvas alone. Owned by the caller, who deletes it
// before the canvas.
class IBitMap2D {
public:
    virtual ~IBitMap2D() = default;

    // Width and height in pixels; 0 and 0 for an empty one.
    virtual void GetSize(double out[2]) = 0;
};

} // namespace orvane::render
