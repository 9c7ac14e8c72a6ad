#include "Spectrum.h"

#include <algorithm>
#include <cmath>

namespace example {

namespace {

// The bars' widths, in bins, grow from bar to bar: narrow at first, where an octave is a few bins, then as the
// ear hears. With 72 bars they end at bin 420; above it there is next to nothing in music.
constexpr float kFirstBin = 0.7f; // bin 0 is the mean value, no tone
constexpr float kFirstWidth = 0.7f;
constexpr float kGrowth = 0.0467f;  // of the logarithm
constexpr float kRiseTime = 0.018f; // seconds to 1/e of the way
constexpr float kFallTime = 0.16f;  //
constexpr float kHoldTime = 0.45f;  // seconds
constexpr float kGravity = 2.2f;    // heights a second, for each second
constexpr float kBarShare = 0.68f;  // of the room from bar to bar
constexpr float kStill = 0.002f;    // less than half a pixel
constexpr float kPeakHeight = 2.0f; // pixels
constexpr float kFoot = 1.5f;       // pixels that a bar without sound has

constexpr Colour kLowColour = { 0.16f, 0.78f, 1.00f };
constexpr Colour kMiddleColour = { 0.52f, 0.44f, 1.00f };
constexpr Colour kHighColour = { 1.00f, 0.36f, 0.68f };

Colour ColourAt(float share) {
    return share < 0.5f ? Mix(kLowColour, kMiddleColour, share * 2)
                        : Mix(kMiddleColour, kHighColour, share * 2 - 1);
}

float Magnitude(const OrvaneRenderData& sound, int bin) {
    const int louder = std::max<int>(sound.spectrum[0][bin], sound.spectrum[1][bin]);
    return float(louder) / 255.0f;
}

// Between two bins the magnitude is taken to change evenly.
float MagnitudeAt(const OrvaneRenderData& sound, float bin) {
    const int low = std::min(int(bin), ORVANE_SAMPLES - 2);
    return Magnitude(sound, low) + (Magnitude(sound, low + 1) - Magnitude(sound, low)) * (bin - float(low));
}

float Edge(int bar) {
    return kFirstBin + kFirstWidth / kGrowth * (std::exp(kGrowth * float(bar)) - 1);
}

float Towards(float from, float to, float seconds, float time) {
    return to + (from - to) * std::exp(-seconds / time);
}

} // namespace

void Spectrum::SetSound(const OrvaneRenderData& sound) {
    for (int i = 0; i < kBars; ++i) {
        const float from = Edge(i), to = Edge(i + 1);
        float loudest = std::max(MagnitudeAt(sound, from), MagnitudeAt(sound, (from + to) * 0.5f));
        for (int bin = int(std::ceil(from)); float(bin) < to; ++bin)
            loudest = std::max(loudest, Magnitude(sound, bin));
        mBars[std::size_t(i)].target = loudest;
    }
}

void Spectrum::SetSilence() {
    for (Bar& bar : mBars) bar.target = 0;
}

void Spectrum::Step(float seconds) {
    for (Bar& bar : mBars) {
        bar.level = Towards(bar.level, bar.target, seconds, bar.target > bar.level ? kRiseTime : kFallTime);
        bar.held -= seconds;
        if (bar.held < 0) {
            bar.speed += kGravity * seconds;
            bar.peak = std::max(0.0f, bar.peak - bar.speed * seconds);
        }
        if (bar.level < bar.peak) continue;
        bar.peak = bar.level;
        bar.held = kHoldTime;
        bar.speed = 0;
    }
}

bool Spectrum::IsAtRest() const {
    return std::all_of(mBars.begin(), mBars.end(), [](const Bar& bar) {
        return std::abs(bar.level - bar.target) < kStill && bar.peak - bar.level < kStill;
    });
}

void Spectrum::Draw(Surface& surface, const Box& box, float reflection) const {
    const float pitch = box.Width() / float(kBars);
    for (int i = 0; i < kBars; ++i) {
        const Bar& bar = mBars[std::size_t(i)];
        const Colour colour = ColourAt(float(i) / float(kBars - 1));
        const float left = box.left + pitch * (float(i) + (1 - kBarShare) * 0.5f);
        const float right = left + pitch * kBarShare;
        const float height = std::max(kFoot, bar.level * box.Height());
        const float top = box.bottom - height;
        const float glare = 0.55f + 0.45f * bar.level;
        surface.AddBox({ left, top, right, box.bottom }, colour * glare, colour * 0.16f);
        const float mirrored = std::min(height * 0.5f, reflection);
        surface.AddBox({ left, box.bottom + 2, right, box.bottom + 2 + mirrored }, colour * 0.15f,
                       colour * 0.0f);
        if (bar.peak - bar.level < kStill) continue;
        const float peak = box.bottom - bar.peak * box.Height() - kPeakHeight;
        const Colour bright = Mix(colour, { 1, 1, 1 }, 0.45f);
        surface.AddBox({ left, peak, right, peak + kPeakHeight }, bright, bright);
    }
}

} // namespace example
