// Effects that show the sound as one or two traces: the oscilloscopes.
#pragma once

#include "zephor/effects/waveforms/Rotation.h"
#include "zephor/waveforms/AsyncWaveFormFunctor.h"

namespace orvane::zephor {

// Two traces, mirrored across an axis that turns slowly.
class DefaultWaveformFunctor final : public AsyncWaveFormFunctor {
public:
    DefaultWaveformFunctor()
        : AsyncWaveFormFunctor("Default Waveform", Connected(2)) {}

    void PrepareFrame(WaveFormContext& context) override;
    void MapPointAsync(const WaveFormContext& context, WaveFormPoint& point) override;

private:
    Rotation mAxis;
};

// Two traces as walls, at an angle of their own.
class RandomCorridorFunctor final : public AsyncWaveFormFunctor {
public:
    RandomCorridorFunctor()
        : AsyncWaveFormFunctor("Random Corridor", Connected(2)) {}

    void Start(WaveFormContext& context) override;
    void MapPointAsync(const WaveFormContext& context, WaveFormPoint& point) override;

private:
    Rotation mAxis;
};

// The spectrum twice, from below and from above, one from left to right and one from right to left.
class ExampleSpectrumFunctor final : public AsyncWaveFormFunctor {
public:
    ExampleSpectrumFunctor()
        : AsyncWaveFormFunctor("Example Spectrum", Connected(2)) {}

    void PrepareFrame(WaveFormContext& context) override;
    void MapPointAsync(const WaveFormContext& context, WaveFormPoint& point) override;
};

// One trace, brighter where it is louder.
class BigAndBandedFunctor final : public AsyncWaveFormFunctor {
public:
    BigAndBandedFunctor()
        : AsyncWaveFormFunctor("Big And Banded", Connected(1)) {}

    void MapPointAsync(const WaveFormContext& context, WaveFormPoint& point) override;
};

// A radius that sweeps round, with the sound standing on it.
class RadarSweepFunctor final : public AsyncWaveFormFunctor {
public:
    RadarSweepFunctor()
        : AsyncWaveFormFunctor("Radar Sweep", Connected(1).FullFrame()) {}

    void Start(WaveFormContext& context) override;
    void PrepareFrame(WaveFormContext& context) override;
    void MapPointAsync(const WaveFormContext& context, WaveFormPoint& point) override;

private:
    float mRadiansPerSecond = 0;
    Rotation mRadius;
};

} // namespace orvane::zephor
