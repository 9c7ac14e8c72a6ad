// Makes the sound of a frame out of the bytes of a pulse.
#pragma once

#include "records/AudioRenderData.h"
#include "zephor/layers/ZephorAudioState.h"

namespace orvane::zephor {

// Fills all of `audio` but the kernels.
void ConditionAudio(ZephorAudioState& audio, const records::AudioRenderData& raw);

} // namespace orvane::zephor
