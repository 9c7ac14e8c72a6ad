#include "Phosphor.h"

#include <algorithm>
#include <cmath>

namespace example {

namespace {

constexpr float kAfterglow = 0.1f;        // seconds to fall to 1/e
constexpr float kWhiteAfterglow = 0.025f; // the over-exposed core cools down to the tint first
constexpr float kProfileSteps = 8.0f;     // table entries for each square pixel of distance
constexpr float kGlowWidth = 2.7f;        // in thicknesses: the glow's standard deviation
constexpr float kGlowReach = 2.5f;        // in standard deviations
constexpr float kGlowStrength = 0.36f;    //
constexpr float kCoreWhite = 0.55f;       // how far the core is over-exposed
constexpr float kSegmentLength = 2.0f;    // pixels along x between two computed points
constexpr float kSpeedDimming = 0.035f;   // a fast beam leaves less light
constexpr float kLeastBrightness = 0.3f;  //
constexpr std::size_t kChannels = 4;
constexpr std::size_t kWhite = 3; // the channel that a surface doesn't use holds light without a tint
constexpr float kLightScale = 255.0f * 256.0f;

// The curve through the samples at a fractional place: Catmull-Rom, ends repeated.
float Smooth(std::span<const float> samples, float at) {
    const auto last = int(samples.size()) - 1;
    const int i = std::clamp(int(at), 0, last);
    const float t = at - float(i);
    const auto sample = [&](int index) { return samples[std::size_t(std::clamp(index, 0, last))]; };
    const float a = sample(i - 1), b = sample(i), c = sample(i + 1), d = sample(i + 2);
    return b + 0.5f * t * (c - a + t * (2 * a - 5 * b + 4 * c - d + t * (3 * (b - c) + d - a)));
}

// The share that is left after `seconds`, in 65536ths.
std::uint32_t Kept(float seconds, float time) {
    return std::uint32_t(std::exp(-std::max(seconds, 0.0f) / time) * 65535.0f);
}

void Brighten(std::uint16_t& light, float value) {
    light = std::max(light, std::uint16_t(std::min(value, 1.0f) * kLightScale));
}

} // namespace

void Phosphor::Resize(int width, int height) {
    mWidth = width;
    mHeight = height;
    mLight.assign(std::size_t(width) * std::size_t(height) * kChannels, 0);
}

void Phosphor::Fade(float seconds) {
    const std::uint32_t tint = Kept(seconds, kAfterglow), white = Kept(seconds, kWhiteAfterglow);
    const std::uint32_t keep[kChannels] = { tint, tint, tint, white };
    for (std::size_t i = 0; i < mLight.size(); i += kChannels)
        for (std::size_t c = 0; c < kChannels; ++c)
            mLight[i + c] = std::uint16_t(mLight[i + c] * keep[c] >> 16);
}

void Phosphor::MakeProfile(float thickness) {
    if (thickness == mThickness) return;
    mThickness = thickness;
    const float deviation = thickness * kGlowWidth;
    mReach = deviation * kGlowReach;
    const auto entries = std::size_t(mReach * mReach * kProfileSteps) + 2;
    mCore.resize(entries);
    mGlow.resize(entries);
    const float edge = std::exp(-kGlowReach * kGlowReach / 2);
    for (std::size_t i = 0; i < entries; ++i) {
        const float squared = float(i) / kProfileSteps;
        mCore[i] = std::clamp(thickness * 0.5f + 0.5f - std::sqrt(squared), 0.0f, 1.0f);
        // Lowered so that it reaches 0 where it is cut off.
        const float bell = std::exp(-squared / (2 * deviation * deviation)) - edge;
        mGlow[i] = kGlowStrength * std::max(0.0f, bell);
    }
}

void Phosphor::Sweep(const Box& box, std::span<const float> samples, const Colour& colour, float thickness) {
    if (samples.size() < 2 || box.Width() < 2) return;
    MakeProfile(thickness);
    const int segments = std::max(2, int(box.Width() / kSegmentLength));
    const float middle = (box.top + box.bottom) * 0.5f;
    const float half = box.Height() * 0.5f;
    const auto point = [&](int i) {
        const float share = float(i) / float(segments);
        const float value = Smooth(samples, share * float(samples.size() - 1));
        return Point{ box.left + share * box.Width(), middle - half * std::clamp(value, -1.0f, 1.0f) };
    };
    Point from = point(0);
    for (int i = 1; i <= segments; ++i) {
        const Point to = point(i);
        const float speed = std::abs(to.y - from.y);
        Segment(from, to, colour, std::max(kLeastBrightness, 1.0f / (1.0f + kSpeedDimming * speed)));
        from = to;
    }
}

void Phosphor::Segment(const Point& from, const Point& to, const Colour& colour, float brightness) {
    const float alongX = to.x - from.x, alongY = to.y - from.y;
    const float perLength = 1.0f / (alongX * alongX + alongY * alongY); // alongX is never 0
    const int firstX = std::max(0, int(from.x - mReach));
    const int endX = std::min(mWidth, int(to.x + mReach) + 1);
    const int firstY = std::max(0, int(std::min(from.y, to.y) - mReach));
    const int endY = std::min(mHeight, int(std::max(from.y, to.y) + mReach) + 1);
    const float reachSquared = mReach * mReach;
    for (int y = firstY; y < endY; ++y) {
        const float toY = float(y) + 0.5f - from.y;
        std::uint16_t* light =
            mLight.data() + (std::size_t(y) * std::size_t(mWidth) + std::size_t(firstX)) * kChannels;
        for (int x = firstX; x < endX; ++x, light += kChannels) {
            const float toX = float(x) + 0.5f - from.x;
            const float share = std::clamp((toX * alongX + toY * alongY) * perLength, 0.0f, 1.0f);
            const float offX = toX - share * alongX, offY = toY - share * alongY;
            const float squared = offX * offX + offY * offY;
            if (squared >= reachSquared) continue;
            const auto entry = std::size_t(squared * kProfileSteps);
            const float core = mCore[entry] * brightness;
            const float tint = std::max(core, mGlow[entry] * brightness);
            const float white = core * core * kCoreWhite;
            Brighten(light[0], colour.blue * tint);
            Brighten(light[1], colour.green * tint);
            Brighten(light[2], colour.red * tint);
            Brighten(light[kWhite], white);
        }
    }
}

void Phosphor::Show(const std::vector<std::uint8_t>& background, Surface& surface) const {
    const auto rowBytes = std::size_t(mWidth) * kChannels;
    for (int y = 0; y < mHeight; ++y) {
        const std::uint16_t* light = mLight.data() + std::size_t(y) * rowBytes;
        const std::uint8_t* under = background.data() + std::size_t(y) * rowBytes;
        std::uint8_t* row = surface.Row(y);
        for (std::size_t i = 0; i < rowBytes; i += kChannels)
            for (std::size_t c = 0; c < kChannels; ++c) {
                const unsigned sum = unsigned(under[i + c]) + (light[i + c] >> 8) + (light[i + kWhite] >> 8);
                row[i + c] = std::uint8_t(std::min(255u, sum));
            }
    }
}

} // namespace example
