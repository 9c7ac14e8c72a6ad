#include "zephor/effects/waveforms/Curves.h"

#include "zephor/effects/waveforms/Draws.h"

namespace orvane::zephor {

void DoubleHelixFunctor::Start(WaveFormContext& /*context*/) {
    mTurnSpeed = DrawBetween(0.2f, 0.5f);
    mPhaseSpeed = DrawBetween(0.2f, 4.2f);
    mFrequency = DrawBetween(12, 24);
    mAmplitude = DrawBetween(0.1f, 0.4f);
}

void DoubleHelixFunctor::PrepareFrame(WaveFormContext& context) {
    mPhase = Wrapped(context.time * double(mPhaseSpeed));
    mAxis = Rotation::By(Wrapped(context.time * double(mTurnSpeed)));
}

void DoubleHelixFunctor::MapPointAsync(const WaveFormContext& context, WaveFormPoint& point) {
    const float s = single::Sin(mPhase + point.t * mFrequency);
    const float v = (single::Abs(s) * 2 * context.sampleWave + s) * mAmplitude;
    mAxis.Place(point, point.t * 4 - 2, point.line == 0 ? v : -v);
}

void DTWildFunctor::Start(WaveFormContext& /*context*/) {
    mStartPhase = DrawBetween(0, kTurn);
}

void DTWildFunctor::PrepareFrame(WaveFormContext& context) {
    const auto wave = [&](double rate, float phase) {
        return single::Sin(Wrapped(context.time * rate) + phase);
    };
    mFrequencyX = 11 + 5 * wave(0.31, mStartPhase);
    mFrequencyY = 14 + 7 * wave(0.23, mStartPhase * 2);
    mPhaseX = Wrapped(context.time * 1.3) + mStartPhase;
    mPhaseY = Wrapped(context.time * 1.7);
    mTilt = Rotation::By(0.6f * wave(0.4, mStartPhase));
}

void DTWildFunctor::MapPointAsync(const WaveFormContext& context, WaveFormPoint& point) {
    const float reach = 0.75f + context.sampleWave * 0.55f;
    const float x = single::Sin(point.t * mFrequencyX + mPhaseX) * reach;
    const float y = single::Sin(point.t * mFrequencyY + mPhaseY) * reach;
    mTilt.Place(point, x * 1.2f, y * 0.9f);
}

} // namespace orvane::zephor
