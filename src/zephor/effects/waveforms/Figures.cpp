#include "zephor/effects/waveforms/Figures.h"

#include "zephor/effects/waveforms/Draws.h"

#include <algorithm>
#include <array>

namespace orvane::zephor {

// ---- DT Zoom Planet

namespace {

// An ellipse about the planet's middle, all in planet's radii.
struct Orbit {
    float radiusX, radiusY, shiftY;
};

constexpr Orbit kOrbits[] = {
    { 1, 1, 0 },                                                    // the planet
    { 0.667f, 1, 0 },      { 0.433f, 1, 0 },      { 0.167f, 1, 0 }, // meridians
    { 1, 0.667f, 0 },      { 1, 0.433f, 0 },      { 1, 0.167f, 0 }, // parallels
    { 1.7f, 0.3f, 0 },     { 2.1f, 0.4f, 0 },                       // rings
    { 1.7f, 0.3f, 0.08f }, { 2.1f, 0.4f, 0.08f },                   // and their copies
};

} // namespace

void DTZoomPlanetFunctor::Start(WaveFormContext& context) {
    mStart = context.time;
    mSide = DrawFraction() < 0.5f ? -1.0f : 1.0f;
}

// KEEP: the end is given to overlays alone, and in units of its own; as the main waveform, the planet stays a dot far
// away. Pinned by DTZoomPlanet.AsTheMainWaveformItStaysFarAway.
void DTZoomPlanetFunctor::PrepareFrame(WaveFormContext& context) {
    const double length = double(context.endTime) - mStart;
    const float x0 = length == 0 ? 0.0f : float((context.time - mStart) / length);
    const float sixth = single::Pow(x0, 6.0f);
    const float swallow = std::clamp(sixth * sixth * 106.2882f, 0.0f, 1.0f) * 50;
    mCentreX = single::Sin(x0) * mSide * 4.5f - mSide;
    mCentreY = 0.6f - x0 * 0.8f;
    mRadius = x0 * 0.3f + swallow;
    context.sampleStep = 6;
    context.pointSize = single::Pow(x0 + 0.2f, 8.0f) * 50;
}

void DTZoomPlanetFunctor::MapPoint(const WaveFormContext& /*context*/, WaveFormPoint& point) {
    constexpr float kLastSample = 252 * 0.0039f; // with a step of 6; there the ellipse closes
    const Orbit& orbit = kOrbits[std::size_t(point.line) % std::size(kOrbits)];
    const float a = point.t / kLastSample * kTurn;
    point.x = mCentreX + single::Cos(a) * orbit.radiusX * mRadius;
    point.y = mCentreY + (single::Sin(a) * orbit.radiusY + orbit.shiftY) * mRadius;
}

// ---- Hour glass

namespace {

constexpr double kSecondsToRun = 7, kSecondsToTurn = 1.5;
constexpr float kGlassHeight = 0.8f, kGlassWidth = 0.42f, kNeck = 0.02f; // half of each

// The glass's half width at a height from -1, its top, to 1.
float WidthAt(float height) {
    const float h = single::Abs(height);
    const float smooth = h * h * (3 - 2 * h);
    return kNeck + (kGlassWidth - kNeck) * smooth;
}

float SmoothStep(float u) {
    return u * u * (3 - 2 * u);
}

} // namespace

void HourGlassFunctor::Start(WaveFormContext& context) {
    mStart = context.time;
}

void HourGlassFunctor::PrepareFrame(WaveFormContext& context) {
    constexpr double kPeriod = kSecondsToRun + kSecondsToTurn;
    const double elapsed = context.time - mStart;
    const double inPeriod = elapsed - std::floor(elapsed / kPeriod) * kPeriod;
    const auto turning = float(std::max(inPeriod - kSecondsToRun, 0.0) / kSecondsToTurn);
    mRun = float(std::min(inPeriod / kSecondsToRun, 1.0));
    mFall = float(inPeriod - std::floor(inPeriod));
    mTurned = Rotation::By(SmoothStep(turning) * (kTurn / 2));
    context.pointSize = 2;
}

void HourGlassFunctor::MapPointAsync(const WaveFormContext& context, WaveFormPoint& point) {
    switch (point.line) {
    case 0:
        PlaceWall(-1, context.sampleWave, point);
        break;
    case 1:
        PlaceWall(1, context.sampleWave, point);
        break;
    default:
        PlaceGrain(context.sampleWave, point);
        break;
    }
}

// The sound bends the wall outwards and inwards, less at the neck.
void HourGlassFunctor::PlaceWall(float side, float sound, WaveFormPoint& point) const {
    const float height = point.t * 2 - 1;
    const float width = WidthAt(height) * (1 + sound * 0.4f);
    mTurned.Place(point, side * width, height * kGlassHeight);
}

// Grains in turn lie in the upper half, in the lower one, and are on their way.
void HourGlassFunctor::PlaceGrain(float sound, WaveFormPoint& point) const {
    const float along = single::Fraction(point.t * 41.3f), across = single::Fraction(point.t * 97.7f) * 2 - 1;
    const auto third = int(point.t * 256) % 3;
    float height = 0, width = 0;
    if (third == 0) { // above, sinking
        height = -(1 - mRun) * 0.85f * along;
        width = WidthAt(height);
    } else if (third == 1) { // the heap, growing
        height = 1 - mRun * 0.85f * along;
        width = WidthAt(height);
    } else {
        height = mRun < 1 ? single::Fraction(along + mFall) : 1;
        width = kNeck + single::Abs(sound) * 0.1f;
    }
    mTurned.Place(point, across * width * 0.9f, height * kGlassHeight);
    point.size = 2 + single::Abs(sound) * 4;
}

} // namespace orvane::zephor
