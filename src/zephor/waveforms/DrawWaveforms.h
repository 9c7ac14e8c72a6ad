// The waveforms of a frame: the one in force and, mixed into it point by point, the one that it replaces.
#pragma once

#include "zephor/waveforms/WaveformFrame.h"
#include "zephor/waveforms/WaveformStage.h"

namespace orvane::zephor {

// Draws one frame of the stage; nothing at all if no waveform is in force. Allocates nothing.
//
// During a fade each point travels from the old waveform's to the new one's, in straight lines over the frames of
// the fade; the drawing style is the old one's in the first half and the new one's in the second.
//
// Leaves the process's rand() seeded with the clock's whole seconds: effects seed it for themselves.
void DrawWaveforms(WaveformStage& stage, const WaveformFrame& frame);

// Seeds the process's rand() with the clock's whole seconds.
void SeedRandByClock();

} // namespace orvane::zephor
