// Effects that show nothing: for those who look at the feedback alone.
#pragma once

#include "zephor/waveforms/AsyncWaveFormFunctor.h"

namespace orvane::zephor {

// A place off the screen.
constexpr float kNowhere = -2;

// Without a line of its own: while another waveform fades out, its lines leave by the upper left corner.
class NullWaveformFunctor final : public AsyncWaveFormFunctor {
public:
    NullWaveformFunctor()
        : AsyncWaveFormFunctor("Null", Strokes(0)) {}

    void MapPointAsync(const WaveFormContext& /*context*/, WaveFormPoint& point) override {
        point.x = point.y = kNowhere;
    }
};

// The same with three lines, connected.
class NullFunctor final : public AsyncWaveFormFunctor {
public:
    NullFunctor()
        : AsyncWaveFormFunctor("Null", Connected(3).FullFrame()) {}

    void MapPointAsync(const WaveFormContext& /*context*/, WaveFormPoint& point) override {
        point.x = point.y = kNowhere;
    }
};

} // namespace orvane::zephor
