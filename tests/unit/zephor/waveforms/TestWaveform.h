// A waveform effect that does what a test says, and counts what was asked of it.
#pragma once

#include "zephor/waveforms/AsyncWaveFormFunctor.h"

#include <functional>
#include <vector>

namespace orvane::tests {

class TestWaveform final : public zephor::AsyncWaveFormFunctor {
public:
    explicit TestWaveform(const zephor::WaveformForm& form = zephor::Strokes(1))
        : AsyncWaveFormFunctor("Test", form) {}

    // One whose points all lie in one place.
    TestWaveform(const zephor::WaveformForm& form, float x, float y)
        : TestWaveform(form) {
        mMap = [=](const auto&, auto& point) { point.x = x, point.y = y; };
    }

    void Start(zephor::WaveFormContext& context) override {
        ++mStarts;
        if (mStart) mStart(context);
    }

    void PrepareFrame(zephor::WaveFormContext& context) override {
        ++mPrepared;
        if (mStep) context.sampleStep = mStep;
        if (mPrepare) mPrepare(context);
    }

    void MapPoint(const zephor::WaveFormContext&, zephor::WaveFormPoint&) override { ++mPlainMaps; }

    void MapPointAsync(const zephor::WaveFormContext& context, zephor::WaveFormPoint& point) override {
        mPoints.push_back(point);
        if (mMap) mMap(context, point);
    }

    [[nodiscard]] std::vector<int> Lines() const {
        std::vector<int> lines;
        for (const zephor::WaveFormPoint& point : mPoints) lines.push_back(point.line);
        return lines;
    }

    int mStep = 0; // of the samples, if it isn't 0
    std::function<void(zephor::WaveFormContext&)> mStart, mPrepare;
    std::function<void(const zephor::WaveFormContext&, zephor::WaveFormPoint&)> mMap;

    int mStarts = 0, mPrepared = 0, mPlainMaps = 0;
    std::vector<zephor::WaveFormPoint> mPoints; // as the map got them
};

constexpr int kOneSample = 256; // a step that takes the first sample of each line only

} // namespace orvane::tests
