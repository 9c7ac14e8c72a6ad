// Effects that wind a line through the picture.
#pragma once

#include "zephor/effects/waveforms/Rotation.h"
#include "zephor/waveforms/AsyncWaveFormFunctor.h"

namespace orvane::zephor {

// Two strands that cross one another, along an axis that turns.
class DoubleHelixFunctor final : public AsyncWaveFormFunctor {
public:
    DoubleHelixFunctor()
        : AsyncWaveFormFunctor("Double Helix", Connected(2).FullFrame()) {}

    void Start(WaveFormContext& context) override;
    void PrepareFrame(WaveFormContext& context) override;
    void MapPointAsync(const WaveFormContext& context, WaveFormPoint& point) override;

private:
    float mTurnSpeed = 0, mPhaseSpeed = 0; // radians a second
    float mFrequency = 0;                  // radians along the whole line
    float mAmplitude = 0;
    float mPhase = 0;
    Rotation mAxis;
};

// A string that never finds the same knot twice: a Lissajous figure whose two frequencies wander on their own, and
// which the sound plucks.
class DTWildFunctor final : public AsyncWaveFormFunctor {
public:
    DTWildFunctor()
        : AsyncWaveFormFunctor("DT Wild", Connected(1)) {}

    void Start(WaveFormContext& context) override;
    void PrepareFrame(WaveFormContext& context) override;
    void MapPointAsync(const WaveFormContext& context, WaveFormPoint& point) override;

private:
    float mStartPhase = 0;                  // so that no two turns on stage are alike
    float mFrequencyX = 0, mFrequencyY = 0; // radians along the whole line
    float mPhaseX = 0, mPhaseY = 0;
    Rotation mTilt;
};

} // namespace orvane::zephor
