// The waveform in force and the one that fades out behind it.
#pragma once

#include "zephor/waveforms/AsyncWaveFormFunctor.h"

#include <array>

namespace orvane::zephor {

struct WaveformStage {
    static constexpr std::int32_t kFadeFrames = 128;
    static constexpr int kParkedLines = 15;

    // A waveform takes the stage, and the one in force begins to fade out.
    void PutOn(std::int32_t index, AsyncWaveFormFunctor* next) {
        previousWaveformIndex = waveformIndex;
        previousWaveform = waveform;
        waveformIndex = index;
        waveform = next;
        fadeFrames = kFadeFrames;
    }

    std::int32_t waveformIndex = 0;
    AsyncWaveFormFunctor* waveform = nullptr; // null: nothing is drawn
    std::int32_t previousWaveformIndex = 0;
    AsyncWaveFormFunctor* previousWaveform = nullptr; // null: there was none
    // Frames left of the fade. Whoever owns the stage lets it fall by one before each frame, so a fade is first
    // drawn at kFadeFrames - 1.
    std::int32_t fadeFrames = 0;
    WaveFormContext previousContext, currentContext;
    bool contextsReady = false; // set by the first frame
    // For lines that a waveform doesn't have: if a line is parked it waits off the screen, otherwise it repeats
    // one of those that the waveform has.
    std::array<bool, kParkedLines> parked{};
    std::array<float, kParkedLines> parkX{}, parkY{};
};

} // namespace orvane::zephor
