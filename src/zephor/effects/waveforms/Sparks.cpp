#include "zephor/effects/waveforms/Sparks.h"

#include "zephor/effects/waveforms/Draws.h"
#include "zephor/math/Single.h"

#include <bit>

namespace orvane::zephor {

void KaleidoscopeFunctor::MapPointAsync(const WaveFormContext& context, WaveFormPoint& point) {
    const float w = context.sampleWave * 0.8f, t = point.t;
    point.size = single::Abs(w * 23);
    const auto place = [&](float x, float y) { point.x = x, point.y = y; };
    switch (point.line) {
    case 0:
        place(w, t);
        break;
    case 1:
        place(t, w);
        break;
    case 2:
        place(-w, t);
        break;
    case 3:
        place(t, -w);
        break;
    case 4:
        place(w, -t);
        break;
    case 5:
        place(-t, w);
        break;
    case 6:
        place(-w, -t);
        break;
    case 7:
        place(-t, -w);
        break;
    default:
        break;
    }
}

void ParticlePulseFunctor::Start(WaveFormContext& /*context*/) {
    mSize = DrawBetween(1, 4);
}

void ParticlePulseFunctor::PrepareFrame(WaveFormContext& context) {
    context.sampleStep = 5;
    mPhase = Wrapped(context.time * 0.0003);
}

void ParticlePulseFunctor::MapPointAsync(const WaveFormContext& context, WaveFormPoint& point) {
    constexpr float kRadiansAlongLine = 43.766876f;
    const float a = point.t * kRadiansAlongLine - mPhase;
    const float r = single::Abs(context.sampleWave) * 0.85f + 0.05f;
    point.size = mSize;
    point.x = single::Cos(a) * r;
    point.y = single::Sin(a) * r;
}

std::uint32_t Explosion1Functor::SeedOf(float seed, std::int32_t pass) {
    constexpr std::uint32_t kLowBits = 31;
    const auto bits = std::bit_cast<std::uint32_t>(float(pass + 1) * seed);
    return std::rotl(bits, int(bits & kLowBits));
}

void Explosion1Functor::Start(WaveFormContext& context) {
    mStart = context.time;
    mSeed = DrawBetween(0, 1000);
}

void Explosion1Functor::PrepareFrame(WaveFormContext& context) {
    constexpr double kSecondsPerBurst = 2.4;
    constexpr float kGoldenAngle = 2.3999632f;
    platform::SeedRand(SeedOf(mSeed, context.pass));
    context.sampleStep = std::int32_t(255 / (float(platform::Rand()) * 0.003051851f + 60));

    const double bursts = (context.time - mStart) / kSecondsPerBurst;
    const double number = std::floor(bursts);
    const auto age = float(bursts - number); // 0 to 1
    mTurned = Wrapped(number * double(kGoldenAngle));
    const float wander = DrawFraction() * kTurn + mTurned;
    mCentreX = single::Cos(wander) * 0.45f;
    mCentreY = single::Sin(wander * 1.7f) * 0.3f - 0.2f;
    mReach = 1 - (1 - age) * (1 - age) * (1 - age); // fast at first
    mFallen = age * age * 0.7f;
    context.pointSize = 1 + 3 * (1 - age);
}

void Explosion1Functor::MapPointAsync(const WaveFormContext& context, WaveFormPoint& point) {
    const float angle = DrawFraction() * kTurn + mTurned;
    const float speed = single::Sqrt(DrawFraction()) * (0.6f + single::Abs(context.sampleWave) * 0.5f);
    point.x = mCentreX + single::Cos(angle) * speed * mReach;
    point.y = mCentreY + single::Sin(angle) * speed * mReach + mFallen;
}

} // namespace orvane::zephor
