// Waveforms drawn over the one in force, up to three at a time, for some twelve seconds each.
//
// They come in large and shrink, around the image's upper left corner (see DrawOverlay).
#pragma once

#include "zephor/registry/EffectSequence.h"
#include "zephor/waveforms/AsyncWaveFormFunctor.h"
#include "zephor/waveforms/WaveformFrame.h"

#include <array>

namespace orvane::zephor {

struct ZephorOverlaySlot {
    WaveFormContext context;
    // The greatest colour index. Falls by one in each frame past the end, and with 0 the overlay goes.
    // An overlay gets kFullColour; a slot that never had one starts at 0 and so runs on below.
    std::int32_t colorCap = 0;
    double endTime = 0, startTime = 0; // seconds
    float targetX = 0, targetY = 0;    // where a drifting overlay comes from
    float strength = 0;                // how far it still is from its place, 1 to 0
    bool started = false;              // the waveform's Start was called
    bool drift = false;

    static constexpr std::int32_t kFullColour = 256;
};

struct ZephorOverlaySet {
    static constexpr int kSlots = 3;
    static constexpr std::int32_t kFree = -1;

    std::int32_t activeCount = 0;
    double nextCheckTime = 0; // seconds; before it no overlay starts
    std::array<ZephorOverlaySlot, kSlots> slots;
    std::array<std::int32_t, kSlots> indices{}; // the waveform of each slot, or kFree
    std::array<std::int32_t, kSlots> recent{};  // the last waveform that each slot was given
};

using Waveforms = WaveformSequence<AsyncWaveFormFunctor>;

// By what new overlays are chosen.
struct OverlayRules {
    bool changesHeld = false; // change mode 0: a slot gets its last waveform again
    bool hold = false;        // a new overlay may start 60 times a second instead of twice
};

// Starts an overlay if the time has come and the draw allows it, and draws those that there are. `waveforms` has
// one waveform or more. Allocates nothing; seeds rand() as DrawWaveforms does, after each overlay.
void UpdateOverlays(ZephorOverlaySet& set, const WaveformFrame& frame, const OverlayRules& rules,
                    const Waveforms& waveforms);

// Draws one frame of a slot's waveform.
void DrawOverlay(ZephorOverlaySlot& slot, AsyncWaveFormFunctor& waveform, const WaveformFrame& frame);

} // namespace orvane::zephor
