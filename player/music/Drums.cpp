#include "player/music/Drums.h"

namespace orvane::player {

namespace {

constexpr double kAttackSeconds = 0.001; // no drum begins with a step

// Kick
constexpr double kKickTone = 0.16, kKickPitchFall = 0.022, kPressureSeconds = 0.11; // seconds to 1/e
constexpr float kKickNote = 48, kKickClick = 260;                                   // Hz at its end and above

// Snare
constexpr float kSnareNote = 185, kSnareNoise = 2400; // Hz
constexpr double kSnareTone = 0.06, kSnareRattle = 0.11;
constexpr float kSnareDamping = 1.2f, kToneShare = 0.45f, kNoiseShare = 0.9f;

constexpr float kCymbalDamping = 1.4f;

// Riser
constexpr float kRiserLow = 300, kRiserOctaves = 4.3f, kRiserDamping = 0.5f; // Hz, up to 6 kHz
constexpr double kRiserFollow = 0.02;

} // namespace

Kick::Kick(double framesPerSecond)
    : mRate(float(framesPerSecond))
    , mToneFall(FallPerFrame(kKickTone, framesPerSecond))
    , mPitchFall(FallPerFrame(kKickPitchFall, framesPerSecond))
    , mPressureFall(FallPerFrame(kPressureSeconds, framesPerSecond)) {}

void Kick::Strike(float strength) {
    mTone.Restart();
    mLevel = mPressure = strength;
    mPitch = 1;
    mAttack = 0;
}

float Kick::Next() {
    mAttack = std::min(mAttack + 1 / (float(kAttackSeconds) * mRate), 1.0f);
    const float sample = mTone.Sine((kKickNote + kKickClick * mPitch) / mRate) * mLevel * mAttack;
    mLevel *= mToneFall;
    mPitch *= mPitchFall;
    mPressure *= mPressureFall;
    return sample;
}

Snare::Snare(double framesPerSecond)
    : mToneStep(kSnareNote / float(framesPerSecond))
    , mToneFall(FallPerFrame(kSnareTone, framesPerSecond))
    , mNoiseFall(FallPerFrame(kSnareRattle, framesPerSecond))
    , mBand(Filter::Coefficient(kSnareNoise, framesPerSecond)) {}

void Snare::Strike(float strength) {
    mTone.Restart();
    mToneLevel = mNoiseLevel = strength;
}

Frame Snare::Next() {
    const float tone = mTone.Sine(mToneStep) * mToneLevel * kToneShare;
    const float noise = mNoiseLevel * kNoiseShare;
    mToneLevel *= mToneFall;
    mNoiseLevel *= mNoiseFall;
    return { tone + mLeftFilter.Band(mLeft.Next(), mBand, kSnareDamping) * noise,
             tone + mRightFilter.Band(mRight.Next(), mBand, kSnareDamping) * noise };
}

Cymbal::Cymbal(double framesPerSecond, double fallSeconds, float hertz, std::uint32_t seed)
    : mFall(FallPerFrame(fallSeconds, framesPerSecond))
    , mCutoff(Filter::Coefficient(hertz, framesPerSecond))
    , mLeft(seed)
    , mRight(seed * 7 + 1) {}

void Cymbal::Strike(float strength) {
    mLevel = std::max(mLevel, strength);
}

Frame Cymbal::Next() {
    mLevel *= mFall;
    return { mLeftFilter.High(mLeft.Next(), mCutoff, kCymbalDamping) * mLevel,
             mRightFilter.High(mRight.Next(), mCutoff, kCymbalDamping) * mLevel };
}

Riser::Riser(double framesPerSecond)
    : mRate(framesPerSecond)
    , mFollow(FallPerFrame(kRiserFollow, framesPerSecond)) {}

Frame Riser::Next(float height) {
    const float level = mHeight.Toward(height, mFollow);
    const float band = Filter::Coefficient(kRiserLow * std::exp2(kRiserOctaves * level), mRate);
    return { mLeftFilter.Band(mLeft.Next(), band, kRiserDamping) * level * level,
             mRightFilter.Band(mRight.Next(), band, kRiserDamping) * level * level };
}

} // namespace orvane::player
