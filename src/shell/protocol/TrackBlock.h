// The track block of 'STRT' and 'SWSV': what is playing.
#pragma once

#include "records/TrackParam.h"
#include "shell/wire/BufferReader.h"

namespace orvane::shell {

// Reads a track block into a zeroed `track`, field by field.
//
// Fields that underflow print their line and stay 0, texts that fail print theirs, and the read goes on with
// the next field. False, and nothing further is read, if the 64-bit field, the last word of the audio format
// or one of the two start values doesn't fit; what was read so far stays in `track`. A part whose key is
// wrong or missing is passed over.
[[nodiscard]] bool ParseTrackBlock(BufferReader& reader, records::TrackParamObj& track);

} // namespace orvane::shell
