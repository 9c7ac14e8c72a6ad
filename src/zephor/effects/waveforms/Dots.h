// Effects of filled dots.
#pragma once

#include "zephor/waveforms/AsyncWaveFormFunctor.h"

namespace orvane::zephor {

// Rows of dots that fly out from the middle and come back, each pass further up and down.
class AttackFunctor final : public AsyncWaveFormFunctor {
public:
    AttackFunctor()
        : AsyncWaveFormFunctor("Attack", FilledDots(4)) {}

    void Start(WaveFormContext& context) override;
    void PrepareFrame(WaveFormContext& context) override;
    void MapPointAsync(const WaveFormContext& context, WaveFormPoint& point) override;

private:
    double mStart = 0, mLength = 0; // seconds
    float mOut = 0;                 // how far out the dots are
    float mWavePhase = 0;
};

// A row of dots that goes through the picture, each as large as its sample is loud.
class FallingOrbsFunctor final : public AsyncWaveFormFunctor {
public:
    FallingOrbsFunctor()
        : AsyncWaveFormFunctor("Falling Orbs", FilledDots(1)) {}

    void Start(WaveFormContext& context) override;
    void PrepareFrame(WaveFormContext& context) override;
    void MapPointAsync(const WaveFormContext& context, WaveFormPoint& point) override;

private:
    double mStart = 0;
    float mSpeed = 0; // half screens a second
    float mHeight = 0;
};

// Three strings of pearls whose waves come and go.
class DTSineDotFunctor final : public AsyncWaveFormFunctor {
public:
    DTSineDotFunctor()
        : AsyncWaveFormFunctor("DT Sine Dot", FilledDots(3)) {}

    void PrepareFrame(WaveFormContext& context) override;
    void MapPointAsync(const WaveFormContext& context, WaveFormPoint& point) override;

private:
    static constexpr int kStrings = 3;

    struct String {
        float frequency = 0; // radians along the whole line
        float phase = 0;
        float amplitude = 0;
    };

    String mStrings[kStrings];
};

} // namespace orvane::zephor
