// Effects of unconnected strokes, many of them.
#pragma once

#include "zephor/waveforms/AsyncWaveFormFunctor.h"

#include <cstdint>

namespace orvane::zephor {

// The sound in the eight symmetric positions of a square.
class KaleidoscopeFunctor final : public AsyncWaveFormFunctor {
public:
    KaleidoscopeFunctor()
        : AsyncWaveFormFunctor("Kaleidoscope", Strokes(8)) {}

    void MapPointAsync(const WaveFormContext& context, WaveFormPoint& point) override;
};

// A cloud of particles around the middle, further out where the sound is louder.
class ParticlePulseFunctor final : public AsyncWaveFormFunctor {
public:
    ParticlePulseFunctor()
        : AsyncWaveFormFunctor("Particle Pulse", Strokes(1).FullFrame()) {}

    void Start(WaveFormContext& context) override;
    void PrepareFrame(WaveFormContext& context) override;
    void MapPointAsync(const WaveFormContext& context, WaveFormPoint& point) override;

private:
    float mSize = 1; // pixels
    float mPhase = 0;
};

// Rockets that burst one after the other; each pass has particles of its own.
// The particles of a pass are drawn from rand() anew in each frame, from the same seed.
class Explosion1Functor final : public AsyncWaveFormFunctor {
public:
    Explosion1Functor()
        : AsyncWaveFormFunctor("Explosion1", Strokes(1)) {}

    void Start(WaveFormContext& context) override;
    void PrepareFrame(WaveFormContext& context) override;
    void MapPointAsync(const WaveFormContext& context, WaveFormPoint& point) override;

    // The seed of a pass.
    [[nodiscard]] static std::uint32_t SeedOf(float seed, std::int32_t pass);

private:
    double mStart = 0;
    float mSeed = 0;
    float mCentreX = 0, mCentreY = 0; // of the burst in the air
    float mTurned = 0;                // each burst's particles are the last one's, turned
    float mReach = 0, mFallen = 0;    // how far the particles have come
};

} // namespace orvane::zephor
