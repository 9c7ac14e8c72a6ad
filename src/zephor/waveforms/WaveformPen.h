// Draws the points of a waveform, one after the other, as dots, strokes or connected lines.
#pragma once

#include "zephor/waveforms/AsyncWaveFormFunctor.h"
#include "zephor/waveforms/WaveformFrame.h"

namespace orvane::zephor {

// A point in pixels.
struct PenPoint {
    double x = 0, y = 0;
    float size = 1; // below 1 (or no number) it is drawn as 1
    std::uint8_t colorIndex = 255;
};

class WaveformPen {
public:
    // The style is that of the functor.
    WaveformPen(const WaveformFrame& frame, const AsyncWaveFormFunctor& style)
        : mTarget(frame.target)
        , mTable(frame.table)
        , mStyle(style) {}

    // The next point has no last one to be connected to.
    void BeginLine() { mHasLast = false; }

    void Draw(const PenPoint& point);

private:
    struct Spot {
        double x, y;
    };

    void LoadColour(std::uint8_t index);
    void DrawDot(const PenPoint& point, float size);
    void DrawSegment(Spot from, Spot to, float width);

    ZephorLayer& mTarget;
    ColourTable mTable;
    const AsyncWaveFormFunctor& mStyle;
    int mLoadedIndex = -1;
    float mColour[4] = {}; // red, green, blue, 0
    bool mHasLast = false;
    Spot mLast{};
};

} // namespace orvane::zephor
