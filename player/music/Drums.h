// The drums: kick, snare, hat, crash, and noise that rises. Each is struck with a strength of 0 to 1.
#pragma once

#include "player/music/Sound.h"

namespace orvane::player {

// A sine that falls from a click to its note.
class Kick {
public:
    explicit Kick(double framesPerSecond);
    void Strike(float strength);
    [[nodiscard]] float Next();

    // How much the other instruments give way to it, 0 to 1.
    [[nodiscard]] float Pressure() const { return mPressure; }

private:
    const float mRate;
    const float mToneFall, mPitchFall, mPressureFall;
    Oscillator mTone;
    float mLevel = 0, mAttack = 0, mPitch = 0, mPressure = 0;
};

// Noise around a middle frequency over a short tone.
class Snare {
public:
    explicit Snare(double framesPerSecond);
    void Strike(float strength);
    [[nodiscard]] Frame Next();

private:
    const float mToneStep, mToneFall, mNoiseFall, mBand;
    Oscillator mTone;
    Noise mLeft{ 0x1234567 }, mRight{ 0x89ABCDE };
    Filter mLeftFilter, mRightFilter;
    float mToneLevel = 0, mNoiseLevel = 0;
};

// High noise that falls away: a hat in a moment, a crash in seconds.
class Cymbal {
public:
    Cymbal(double framesPerSecond, double fallSeconds, float hertz, std::uint32_t seed);
    void Strike(float strength);
    [[nodiscard]] Frame Next();

private:
    const float mFall, mCutoff;
    Noise mLeft, mRight;
    Filter mLeftFilter, mRightFilter;
    float mLevel = 0;
};

// Noise whose pitch and loudness follow `height`, 0 (silent) to 1.
class Riser {
public:
    explicit Riser(double framesPerSecond);
    [[nodiscard]] Frame Next(float height);

private:
    const double mRate;
    const float mFollow;
    Noise mLeft{ 0x2468ACE }, mRight{ 0x13579BD };
    Filter mLeftFilter, mRightFilter;
    Glide mHeight;
};

} // namespace orvane::player
