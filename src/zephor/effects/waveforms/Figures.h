// Effects that draw a thing.
#pragma once

#include "zephor/effects/waveforms/Rotation.h"
#include "zephor/waveforms/AsyncWaveFormFunctor.h"

namespace orvane::zephor {

// A planet of meridians, parallels and rings that comes from afar and swallows the picture.
class DTZoomPlanetFunctor final : public WaveFormFunctor {
public:
    DTZoomPlanetFunctor()
        : WaveFormFunctor("DT Zoom Planet", Connected(11).FullFrame()) {}

    void Start(WaveFormContext& context) override;
    void PrepareFrame(WaveFormContext& context) override;
    void MapPoint(const WaveFormContext& context, WaveFormPoint& point) override;

private:
    double mStart = 0;
    float mSide = 1; // 1 or -1: from which side it comes
    float mCentreX = 0, mCentreY = 0, mRadius = 0;
};

// A glass whose sand runs as the sound does. It is turned over when the sand has run out.
class HourGlassFunctor final : public AsyncWaveFormFunctor {
public:
    HourGlassFunctor()
        : AsyncWaveFormFunctor("Hour glass", Strokes(3).FullFrame()) {}

    void Start(WaveFormContext& context) override;
    void PrepareFrame(WaveFormContext& context) override;
    void MapPointAsync(const WaveFormContext& context, WaveFormPoint& point) override;

private:
    void PlaceWall(float side, float sound, WaveFormPoint& point) const;
    void PlaceGrain(float sound, WaveFormPoint& point) const;

    double mStart = 0;
    float mRun = 0;   // how much of the sand has run, 0 to 1
    float mFall = 0;  // grains in the air move by this, in heights of the air
    Rotation mTurned; // upright but while it is turned over
};

} // namespace orvane::zephor
