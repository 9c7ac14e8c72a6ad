// 'SWSV': a visualizer's name, a byte that means nothing, and perhaps a track.
#pragma once

#include "records/StringBlock.h"
#include "shell/wire/BufferReader.h"

namespace orvane::shell {

// Reads the visualizer's name. A name that fails leaves what it left in `name`; nobody is told but the
// console.
void ReadVisualizerName(BufferReader& reader, records::StringBlock& name);

// Reads and drops the byte behind the name; a missing one prints its line.
void SkipSelectionByte(BufferReader& reader);

// Whether a track block follows: at least 5 bytes remain and the next four are the marker 'FLAT', which is
// taken off. Fewer bytes are left alone, in silence.
[[nodiscard]] bool TakeTrackMarker(BufferReader& reader);

} // namespace orvane::shell
