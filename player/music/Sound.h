// What every instrument is made of: frames, oscillators, filters, noise, envelopes.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>

namespace orvane::player {

struct Frame {
    float left = 0, right = 0;

    Frame& operator+=(const Frame& other) {
        left += other.left;
        right += other.right;
        return *this;
    }

    friend Frame operator*(const Frame& frame, float factor) {
        return { frame.left * factor, frame.right * factor };
    }

    friend Frame operator+(Frame a, const Frame& b) { return a += b; }
};

// How loud a sound is on either side at a place between left (-1) and right (1): equally loud everywhere.
[[nodiscard]] inline Frame Panning(float place) {
    return { std::sqrt((1 - place) / 2), std::sqrt((1 + place) / 2) };
}

[[nodiscard]] inline float HertzOf(int note) {
    return 440 * std::exp2(float(note - 69) / 12);
}

// What an envelope is multiplied with each frame to fall to 1/e in that time.
[[nodiscard]] inline float FallPerFrame(double seconds, double framesPerSecond) {
    return float(std::exp(-1 / (seconds * framesPerSecond)));
}

// A phase from 0 to 1 and its sounds; `step` is the frequency by the rate. Corners are rounded over one frame on
// either side, which takes away most of what would fold down from above half the rate.
class Oscillator {
public:
    explicit Oscillator(float phase = 0)
        : mPhase(phase) {}

    [[nodiscard]] float Saw(float step) {
        const float sample = 2 * mPhase - 1 - Corner(mPhase, step);
        Advance(step);
        return sample;
    }

    [[nodiscard]] float Square(float step) {
        const float half = mPhase < 0.5f ? mPhase + 0.5f : mPhase - 0.5f;
        const float sample = (mPhase < 0.5f ? 1.0f : -1.0f) + Corner(mPhase, step) - Corner(half, step);
        Advance(step);
        return sample;
    }

    [[nodiscard]] float Sine(float step, float shift = 0) {
        const float sample = std::sin(2 * std::numbers::pi_v<float> * (mPhase + shift));
        Advance(step);
        return sample;
    }

    void Restart() { mPhase = 0; }

private:
    void Advance(float step) {
        mPhase += step;
        if (mPhase >= 1) mPhase -= 1;
    }

    [[nodiscard]] static float Corner(float phase, float step) {
        if (phase < step) {
            const float t = phase / step - 1;
            return -t * t;
        }
        if (phase > 1 - step) {
            const float t = (phase - 1) / step + 1;
            return t * t;
        }
        return 0;
    }

    float mPhase;
};

// A state-variable filter of two poles. `damping` from 2 (none of it rings) down to 0.4.
class Filter {
public:
    // The frequency as the filter wants it, 2 sin(pi f / rate) by the first terms of its series; held where the
    // filter is stable.
    [[nodiscard]] static float Coefficient(float hertz, double framesPerSecond) {
        constexpr float mostStable = 0.9f;
        const float x = std::numbers::pi_v<float> * std::min(hertz / float(framesPerSecond), 0.25f);
        return std::min(2 * x * (1 - x * x / 6), mostStable);
    }

    [[nodiscard]] float Low(float in, float coefficient, float damping) {
        Run(in, coefficient, damping);
        return mLow;
    }

    [[nodiscard]] float Band(float in, float coefficient, float damping) {
        Run(in, coefficient, damping);
        return mBand;
    }

    [[nodiscard]] float High(float in, float coefficient, float damping) {
        return Run(in, coefficient, damping);
    }

private:
    float Run(float in, float coefficient, float damping) {
        mLow += coefficient * mBand;
        const float high = in - mLow - damping * mBand;
        mBand += coefficient * high;
        return high;
    }

    float mLow = 0, mBand = 0;
};

// White noise, the same from the same seed.
class Noise {
public:
    explicit Noise(std::uint32_t seed)
        : mState(seed) {}

    // -1 to 1
    [[nodiscard]] float Next() {
        mState ^= mState << 13;
        mState ^= mState >> 17;
        mState ^= mState << 5;
        return float(std::int32_t(mState)) * 0x1p-31f;
    }

private:
    std::uint32_t mState; // not 0
};

// An envelope that follows a target, without a step at either end.
class Glide {
public:
    // `perFrame` as from FallPerFrame.
    float Toward(float target, float perFrame) { return mValue = target + (mValue - target) * perFrame; }

    [[nodiscard]] float Value() const { return mValue; }

private:
    float mValue = 0;
};

} // namespace orvane::player
