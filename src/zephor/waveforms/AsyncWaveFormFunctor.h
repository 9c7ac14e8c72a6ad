// The family of waveform effects: small functions from a sample of sound to a point on the screen.
//
// An effect is one object that lives as long as the process and is used again and again, as the waveform in
// force, as the one that fades out and as an overlay, even as several of these at once. What it draws is fixed
// by Start (drawn at random, mostly) and PrepareFrame; the maps are pure but for effects that draw from rand().
//
// All calls come on the thread that draws the frame. Nothing is allocated in them.
#pragma once

#include "zephor/waveforms/WaveFormContext.h"

#include <string_view>

namespace orvane::zephor {

// How an effect is drawn. Written as Connected(2).FullFrame().
struct WaveformForm {
    std::int32_t lineCount = 1; // times the samples are walked in each frame
    bool connectPoints = false;
    bool drawDots = false, fillDots = false;
    bool fullFrame = false;

    // x and y stretch over the whole screen. Otherwise a square stays a square.
    [[nodiscard]] constexpr WaveformForm FullFrame() const {
        WaveformForm form = *this;
        form.fullFrame = true;
        return form;
    }
};

// Each point a stroke, one pixel long and as wide as the point's size.
[[nodiscard]] constexpr WaveformForm Strokes(std::int32_t lineCount) {
    return { .lineCount = lineCount };
}

// Segments from point to point.
[[nodiscard]] constexpr WaveformForm Connected(std::int32_t lineCount) {
    return { .lineCount = lineCount, .connectPoints = true };
}

[[nodiscard]] constexpr WaveformForm FilledDots(std::int32_t lineCount) {
    return { .lineCount = lineCount, .drawDots = true, .fillDots = true };
}

class AsyncWaveFormFunctor {
public:
    AsyncWaveFormFunctor(std::string_view displayName, const WaveformForm& form)
        : AsyncWaveFormFunctor(displayName, form, true) {}

    // The order of the operations is part of the contract.
    virtual ~AsyncWaveFormFunctor() = default;

    AsyncWaveFormFunctor(const AsyncWaveFormFunctor&) = delete;
    AsyncWaveFormFunctor& operator=(const AsyncWaveFormFunctor&) = delete;

    // When the effect takes the stage. There needn't be any sound in the context yet.
    virtual void Start(WaveFormContext& /*context*/) {}

    // Once in each frame (of an overlay, in each pass): the step, the colour, the size of points.
    virtual void PrepareFrame(WaveFormContext& /*context*/) {}

    // For each sample of each line, the one or the other by usesAsyncMap. The point comes at (0, 0), with the
    // size and colour of this effect's last point; a map that writes nothing leaves it there.
    virtual void MapPoint(const WaveFormContext& /*context*/, WaveFormPoint& /*point*/) {}

    virtual void MapPointAsync(const WaveFormContext& /*context*/, WaveFormPoint& /*point*/) {}

    std::int32_t lineCount;
    bool usesAsyncMap;
    bool connectPoints;
    std::int32_t passCount = 1; // repeats of a whole trace, for overlays only
    bool drawDots;
    bool fillDots;
    bool fullFrame;
    std::string_view name; // display name

protected:
    AsyncWaveFormFunctor(std::string_view displayName, const WaveformForm& form, bool async)
        : lineCount(form.lineCount)
        , usesAsyncMap(async)
        , connectPoints(form.connectPoints)
        , drawDots(form.drawDots)
        , fillDots(form.fillDots)
        , fullFrame(form.fullFrame)
        , name(displayName) {}
};

// An effect whose points come from MapPoint.
class WaveFormFunctor : public AsyncWaveFormFunctor {
public:
    WaveFormFunctor(std::string_view displayName, const WaveformForm& form)
        : AsyncWaveFormFunctor(displayName, form, false) {}
};

} // namespace orvane::zephor
