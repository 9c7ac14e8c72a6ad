#include "zephor/waveforms/WaveformPen.h"

#include <cmath>

namespace orvane::zephor {

namespace {

constexpr float kLeastSize = 1;
constexpr float kOneOf255 = 0.003921569f;

} // namespace

void WaveformPen::Draw(const PenPoint& point) {
    LoadColour(point.colorIndex);
    const float size = point.size >= kLeastSize ? point.size : kLeastSize;
    if (mStyle.drawDots) {
        DrawDot(point, size);
        return;
    }
    const Spot spot{ std::round(point.x), std::round(point.y) };
    if (!mStyle.connectPoints)
        DrawSegment(spot, { spot.x + 1, spot.y }, size);
    else if (mHasLast)
        DrawSegment(mLast, spot, size);
    mLast = spot;
    mHasLast = true;
}

// On an image of coverage alone the colour changes nothing; only its alpha counts, which is always 1. It is what
// the layers ask for, and a layer that had colours would show it.
void WaveformPen::LoadColour(std::uint8_t index) {
    if (index == mLoadedIndex) return;
    mLoadedIndex = index;
    const std::uint32_t packed = mTable[index];
    for (int channel = 0; channel < 3; ++channel)
        mColour[channel] = float(packed >> (16 - 8 * channel) & 0xFF) * kOneOf255;
}

void WaveformPen::DrawDot(const PenPoint& point, float size) {
    const double half = double(size) * 0.5;
    const double rect[4] = { std::round(point.x - half), std::round(point.y - half), double(size),
                             double(size) };
    if (mStyle.fillDots) {
        mTarget.SetFillColor(mColour);
        mTarget.FillEllipse(rect);
    } else {
        mTarget.SetStrokeColor(mColour);
        mTarget.StrokeEllipse(rect);
    }
}

void WaveformPen::DrawSegment(Spot from, Spot to, float width) {
    const double points[4] = { from.x, from.y, to.x, to.y };
    mTarget.SetStrokeColor(mColour);
    mTarget.DrawLines(points, 1, width);
}

} // namespace orvane::zephor
