#include "zephor/effects/waveforms/Traces.h"

#include "zephor/effects/waveforms/Draws.h"

#include <algorithm>

namespace orvane::zephor {

namespace {

// Line 0 lies on one side of the axis, line 1 is its mirror picture.
void PlaceBesideAxis(const Rotation& axis, float along, float beside, WaveFormPoint& point) {
    axis.Place(point, along, point.line == 0 ? -beside : beside);
}

} // namespace

void DefaultWaveformFunctor::PrepareFrame(WaveFormContext& context) {
    mAxis = Rotation::By(Wrapped(context.time * 0.2));
    context.pointSize = 1.0f;
    fullFrame = true; // from its first frame on, however it was registered
}

void DefaultWaveformFunctor::MapPointAsync(const WaveFormContext& context, WaveFormPoint& point) {
    PlaceBesideAxis(mAxis, (point.t - 0.5f) * 2.1f, context.sampleWave * 0.25f + 0.2f, point);
}

void RandomCorridorFunctor::Start(WaveFormContext& /*context*/) {
    mAxis = Rotation::By(DrawBetween(0, kTurn));
}

void RandomCorridorFunctor::MapPointAsync(const WaveFormContext& context, WaveFormPoint& point) {
    PlaceBesideAxis(mAxis, (point.t - 0.5f) * 2.5f, context.sampleWave * 0.3f + 0.25f, point);
}

void ExampleSpectrumFunctor::PrepareFrame(WaveFormContext& context) {
    context.pointSize = 2.0f;
}

void ExampleSpectrumFunctor::MapPointAsync(const WaveFormContext& context, WaveFormPoint& point) {
    const float x = point.t + point.t - 1, y = context.sampleSpectrum - 0.9f;
    point.x = point.line == 0 ? x : -x;
    point.y = point.line == 0 ? y : -y;
}

void BigAndBandedFunctor::MapPointAsync(const WaveFormContext& context, WaveFormPoint& point) {
    point.x = point.t + point.t - 1;
    point.y = context.sampleWave * 0.9f;
    point.size = 2.0f;
    const float a = single::Abs(context.sampleWave) * 8;
    point.colorIndex = std::uint8_t(std::min(a * single::Sqrt(a) * 255 + 12.75f, 255.0f));
}

void RadarSweepFunctor::Start(WaveFormContext& /*context*/) {
    mRadiansPerSecond = DrawBetween(0.4f, 1.7f);
}

void RadarSweepFunctor::PrepareFrame(WaveFormContext& context) {
    mRadius = Rotation::By(Wrapped(context.time * double(mRadiansPerSecond)), 1.1f);
}

void RadarSweepFunctor::MapPointAsync(const WaveFormContext& context, WaveFormPoint& point) {
    const float e = context.sampleWave * 0.4f * point.t;
    point.x = -(point.t * mRadius.c) - e * mRadius.s;
    point.y = e * mRadius.c - point.t * mRadius.s;
}

} // namespace orvane::zephor
