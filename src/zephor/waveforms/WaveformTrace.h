// One waveform while its points are made.
#pragma once

#include "zephor/waveforms/AsyncWaveFormFunctor.h"
#include "zephor/waveforms/WaveformFrame.h"

#include <algorithm>

namespace orvane::zephor {

// How far a point lies along its line for each sample that was passed.
constexpr float kLinePerSample = 0.0039f;

class WaveformTrace {
public:
    // The functor has prepared the frame.
    WaveformTrace(AsyncWaveFormFunctor& functor, const WaveFormContext& context)
        : mFunctor(functor)
        , mContext(context) {
        mPoint.size = context.pointSize;
        mPoint.colorIndex = context.colorIndex;
    }

    // The point of the context's sample.
    const WaveFormPoint& Map(std::int32_t line, float t) {
        Place(line, t, 0, 0);
        if (mFunctor.usesAsyncMap)
            mFunctor.MapPointAsync(mContext, mPoint);
        else
            mFunctor.MapPoint(mContext, mPoint);
        return mPoint;
    }

    // The point without a map, where it is told to be.
    const WaveFormPoint& Place(std::int32_t line, float t, float x, float y) {
        mPoint.t = t;
        mPoint.line = line;
        mPoint.x = x;
        mPoint.y = y;
        return mPoint;
    }

private:
    AsyncWaveFormFunctor& mFunctor;
    const WaveFormContext& mContext;
    WaveFormPoint mPoint; // size and colour carry over from point to point
};

// A step that gets through the samples: at least 1. Beyond the last sample all steps are the same.
[[nodiscard]] inline int UsableStep(float step) {
    return step >= 1.0f ? int(std::min(step, float(kAudioPoints))) : 1;
}

// Calls `draw(sample, t)` for every step-th sample of a line.
template <class DrawSample>
void ForSamples(int step, const DrawSample& draw) {
    const float advance = float(step) * kLinePerSample;
    float t = 0;
    for (int sample = 0; sample < kAudioPoints; sample += step, t += advance) draw(sample, t);
}

} // namespace orvane::zephor
