// An effect on its own: started, prepared and asked for single points.
#pragma once

#include "platform/Random.h"
#include "zephor/layers/ZephorAudioState.h"
#include "zephor/waveforms/AsyncWaveFormFunctor.h"

#include <gtest/gtest.h>

namespace orvane::zephor {

constexpr float kNear = 1e-4f;

template <class Effect>
class EffectOnItsOwn : public testing::Test {
protected:
    EffectOnItsOwn() {
        mContext.waveform = mWaveform;
        mContext.spectrum = mSpectrum;
    }

    void StartAt(double time, int seed = 1234) { // 4068, 213, 12761, 8758
        platform::SeedRand(std::uint32_t(seed));
        mContext.time = time;
        mEffect.Start(mContext);
    }

    void PrepareAt(double time) {
        mContext.time = time;
        mContext.pointSize = 1;
        mContext.sampleStep = 1;
        mContext.colorIndex = 255;
        mEffect.PrepareFrame(mContext);
    }

    // The point of line `line` at `t`, where the sample of the moment is `wave`.
    WaveFormPoint Map(int line, float t, float wave = 0) {
        mContext.sampleWave = wave;
        WaveFormPoint point{
            .t = t, .line = line, .size = mContext.pointSize, .colorIndex = mContext.colorIndex
        };
        if (mEffect.usesAsyncMap)
            mEffect.MapPointAsync(mContext, point);
        else
            mEffect.MapPoint(mContext, point);
        return point;
    }

    static void ExpectPlace(const WaveFormPoint& point, float x, float y) {
        EXPECT_NEAR(point.x, x, kNear);
        EXPECT_NEAR(point.y, y, kNear);
    }

    Effect mEffect;
    WaveFormContext mContext;
    float mWaveform[kAudioPoints] = {}, mSpectrum[kAudioPoints] = {};
};

} // namespace orvane::zephor
