#include "Phosphor.h"

#include <algorithm>
#include <cmath>

namespace example {

namespace {

constexpr float kAfterglow = 0.1f;        // seconds to fall to 1/e
constexpr float kWhiteAfterglow = 0.025f; // the over-exposed core cools down to the tint first
constexpr float kCoreWhite = 0.55f;       // how far it is over-exposed
constexpr float kSegmentLength = 1.5f;    // cells along x between two computed points
constexpr float kSpeedDimming = 0.035f;   // a fast beam leaves less light
constexpr float kLeastBrightness = 0.3f;

constexpr float kGlowWidth = 3.4f; // in thicknesses: the glow's standard deviation
constexpr float kGlowReach = 2.8f; // in standard deviations
constexpr float kGlowStrength = 0.42f;

constexpr int kCell = 4; // pixels, of the soft plane
// A pixel lies between two cells: which is the first, seen from the cell before its own, and how many eighths
// of the second it takes, by its place in its own cell.
constexpr int kFirstCell[kCell] = { 0, 0, 1, 1 };
constexpr unsigned kEighths[kCell] = { 5, 7, 1, 3 };

// The curve through the samples at a fractional place: Catmull-Rom, ends repeated.
float Smooth(std::span<const float> samples, float at) {
    const auto last = int(samples.size()) - 1;
    const int i = std::clamp(int(at), 0, last);
    const float t = at - float(i);
    const auto sample = [&](int index) { return samples[std::size_t(std::clamp(index, 0, last))]; };
    const float a = sample(i - 1), b = sample(i), c = sample(i + 1), d = sample(i + 2);
    return b + 0.5f * t * (c - a + t * (2 * a - 5 * b + 4 * c - d + t * (3 * (b - c) + d - a)));
}

// In cells of the soft plane.
Box Shrunk(const Box& box) {
    const auto shrunk = [](float edge) { return edge / kCell + 1; };
    return { shrunk(box.left), shrunk(box.top), shrunk(box.right), shrunk(box.bottom) };
}

Beam MakeLine(float thickness) {
    Beam line(thickness * 0.5f + 0.5f);
    for (std::size_t i = 0; i < line.tint.size(); ++i) {
        const float inside = std::clamp(line.reach - std::sqrt(float(i) / Beam::kSteps), 0.0f, 1.0f);
        line.tint[i] = inside;
        line.white[i] = inside * inside * kCoreWhite;
    }
    return line;
}

// Lowered so that it reaches 0 where it is cut off.
Beam MakeGlow(float thickness) {
    const float deviation = thickness * kGlowWidth / kCell;
    Beam glow(deviation * kGlowReach);
    const float edge = std::exp(-kGlowReach * kGlowReach / 2);
    for (std::size_t i = 0; i < glow.tint.size(); ++i) {
        const float bell = std::exp(-float(i) / Beam::kSteps / (2 * deviation * deviation));
        glow.tint[i] = kGlowStrength * std::max(0.0f, bell - edge);
    }
    return glow;
}

} // namespace

void Phosphor::Resize(int width, int height) {
    mWidth = width;
    mHeight = height;
    const int cellsAcross = (width + kCell - 1) / kCell + 2, cellsDown = (height + kCell - 1) / kCell + 2;
    mSharp.Resize(width, height);
    mSoft.Resize(cellsAcross, cellsDown);
    mSoftRow.assign(std::size_t(cellsAcross) * LightPlane::kChannels, 0);
}

void Phosphor::Fade(float seconds) {
    const float tint = std::exp(-seconds / kAfterglow), white = std::exp(-seconds / kWhiteAfterglow);
    mSharp.Fade(tint, white);
    mSoft.Fade(tint, white);
}

void Phosphor::MakeBeams(float thickness) {
    if (thickness == mThickness) return;
    mThickness = thickness;
    mLine = MakeLine(thickness);
    mGlow = MakeGlow(thickness);
}

void Phosphor::Sweep(const Box& box, std::span<const float> samples, const Colour& colour, float thickness) {
    if (samples.size() < 2 || box.Width() < 2 * kCell) return;
    MakeBeams(thickness);
    Trace(mSharp, mLine, box, samples, colour, kSegmentLength);
    Trace(mSoft, mGlow, Shrunk(box), samples, colour, kSegmentLength / 2);
}

void Phosphor::Trace(LightPlane& plane, const Beam& beam, const Box& box, std::span<const float> samples,
                     const Colour& colour, float segmentLength) {
    const int segments = std::max(2, int(box.Width() / segmentLength));
    const float middle = (box.top + box.bottom) * 0.5f, half = box.Height() * 0.5f;
    const auto point = [&](int i) {
        const float share = float(i) / float(segments);
        const float value = Smooth(samples, share * float(samples.size() - 1));
        return LightPlane::Point{ box.left + share * box.Width(),
                                  middle - half * std::clamp(value, -1.0f, 1.0f) };
    };
    LightPlane::Point from = point(0);
    for (int i = 1; i <= segments; ++i) {
        const LightPlane::Point to = point(i);
        const float slope = std::abs(to.y - from.y) / segmentLength;
        plane.Line(from, to, beam,
                   colour * std::max(kLeastBrightness, 1.0f / (1.0f + kSpeedDimming * slope)));
        from = to;
    }
}

void Phosphor::BlendSoftRows(int y) {
    const int first = y / kCell + kFirstCell[y % kCell];
    const std::uint16_t* above = mSoft.Row(first);
    const std::uint16_t* below = mSoft.Row(first + 1);
    const unsigned share = kEighths[y % kCell];
    for (std::size_t i = 0; i < mSoftRow.size(); ++i)
        mSoftRow[i] = std::uint16_t((above[i] * (8 - share) + below[i] * share) >> 3);
}

void Phosphor::Show(const std::vector<std::uint8_t>& background, Surface& surface) {
    constexpr auto kChannels = LightPlane::kChannels;
    const auto rowBytes = std::size_t(mWidth) * kChannels;
    // The glow reaches further than the line: outside its rows there is no light at all.
    const int firstLit = (mSoft.FirstLitRow() - 2) * kCell, endLit = mSoft.EndOfLitRows() * kCell;
    for (int y = 0; y < mHeight; ++y) {
        const std::uint8_t* under = background.data() + std::size_t(y) * rowBytes;
        std::uint8_t* row = surface.Row(y);
        if (y < firstLit || y >= endLit) {
            std::copy_n(under, rowBytes, row);
            continue;
        }
        BlendSoftRows(y);
        const std::uint16_t* sharp = mSharp.Row(y);
        for (int x = 0; x < mWidth; ++x, row += kChannels, under += kChannels, sharp += kChannels) {
            const std::uint16_t* soft =
                mSoftRow.data() + std::size_t(x / kCell + kFirstCell[x % kCell]) * kChannels;
            const unsigned share = kEighths[x % kCell];
            for (std::size_t c = 0; c < kChannels; ++c) {
                const unsigned glow = (soft[c] * (8 - share) + soft[c + kChannels] * share) >> 3;
                const unsigned line = sharp[c] + unsigned(sharp[LightPlane::kWhite]);
                row[c] = std::uint8_t(std::min(255u, under[c] + ((glow + line) >> 8)));
            }
        }
    }
}

} // namespace example
