// The waveform effects in their order. An index counts through the three lists, one after the other, and stands in
// presets, so a position never changes: lists grow at their ends.
//
// Each effect is one object, made with the first use of its list and never freed.
#pragma once

#include "zephor/registry/EffectSequence.h"
#include "zephor/waveforms/AsyncWaveFormFunctor.h"

#include <span>

namespace orvane::zephor {

using WaveformList = std::span<AsyncWaveFormFunctor* const>;

[[nodiscard]] WaveformList WaveformList1();
[[nodiscard]] WaveformList WaveformList2();
[[nodiscard]] WaveformList WaveformList3();

[[nodiscard]] WaveformSequence<AsyncWaveFormFunctor> WaveformLists();

} // namespace orvane::zephor
