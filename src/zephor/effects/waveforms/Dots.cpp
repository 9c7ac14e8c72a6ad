#include "zephor/effects/waveforms/Dots.h"

#include "zephor/effects/waveforms/Draws.h"
#include "zephor/layers/ZephorAudioState.h"
#include "zephor/math/Single.h"

#include <algorithm>

namespace orvane::zephor {

// KEEP: the end is given to overlays alone, and in units of its own, so `mLength` is no time that anything lasts;
// as the main waveform, the dots stay close to the middle. The look is this one's.
// Pinned by Attack.AsTheMainWaveformItStaysNearTheMiddle.
void AttackFunctor::Start(WaveFormContext& context) {
    passCount = 3;
    mStart = context.time;
    mLength = double(context.endTime) - context.time;
}

void AttackFunctor::PrepareFrame(WaveFormContext& context) {
    constexpr double kHalfTurn = 3.1415925;
    context.sampleStep = 17;
    mOut = single::Sin(Wrapped((context.time - mStart) / mLength * kHalfTurn));
    mWavePhase = Wrapped(context.time * 3);
}

void AttackFunctor::MapPointAsync(const WaveFormContext& context, WaveFormPoint& point) {
    const bool toTheRight = point.line < 2;
    const bool downwards = point.line % 2 == 0;
    const float w = single::Sin(mWavePhase + point.t * 15) * 0.1f;
    const float across = point.t * mOut, down = float(context.pass) * mOut * 0.4f;
    point.x = toTheRight ? across : -across;
    point.y = downwards ? w + down : w - down;
}

void FallingOrbsFunctor::Start(WaveFormContext& context) {
    mStart = context.time;
    mSpeed = DrawBetween(0.3f, 0.9f);
}

void FallingOrbsFunctor::PrepareFrame(WaveFormContext& context) {
    context.sampleStep = 10;
    context.colorIndex = 242;
    mHeight = 1.5f - float(context.time - mStart) * mSpeed;
}

void FallingOrbsFunctor::MapPointAsync(const WaveFormContext& context, WaveFormPoint& point) {
    const int sample = std::clamp(int(point.t * 255), 0, kAudioPoints - 1);
    // The lower half of a wave has no such power; it counts as silence.
    const float level = std::max(context.waveform[sample] * 12, 0.0f);
    point.size = single::Pow(level, 1.9f);
    point.x = point.t + point.t - 1;
    point.y = mHeight;
}

void DTSineDotFunctor::PrepareFrame(WaveFormContext& context) {
    const auto sine = [&](double rate) { return single::Sin(Wrapped(context.time * rate)); };
    const float slowest = sine(0.03), slow = sine(0.1), middle = sine(0.15), quick = sine(0.3),
                quickest = sine(0.5);
    mStrings[0] = { 7 + 4 * slow, Wrapped(context.time * 1.1), 0.55f + 0.25f * quick };
    mStrings[1] = { 9 + 5 * middle, Wrapped(context.time * -0.8), 0.45f + 0.35f * quickest };
    mStrings[2] = { 5 + 3 * slowest, Wrapped(context.time * 0.6), 0.6f + 0.3f * slow };
    const float level = context.waveform[25] + 0.7f + DrawBetween(0, 0.3f);
    context.colorIndex = std::uint8_t(std::clamp(level, 0.0f, 1.0f) * 255);
}

void DTSineDotFunctor::MapPointAsync(const WaveFormContext& context, WaveFormPoint& point) {
    const String& string = mStrings[point.line % kStrings];
    point.size = context.sampleWave * 14 + 2;
    point.x = point.t + point.t - 1;
    point.y = single::Sin(point.t * string.frequency + string.phase) * string.amplitude;
}

} // namespace orvane::zephor
