// The current track as one flat record, handed to plug-ins by pointer.
#pragma once

#include "records/StringBlock.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <type_traits>

namespace orvane::records {

// The format of the track's sound, 40 bytes. The words come from the player one by one; the last two are
// the halves of a 64-bit float (low half first), which is read as such by a visualizer.
struct AudioFormatBlock {
    std::uint32_t word0;
    std::uint32_t zero; // never filled
    std::uint32_t words1[7];
    std::uint32_t word8;
};

static_assert(sizeof(AudioFormatBlock) == 40 && offsetof(AudioFormatBlock, words1) == 8 &&
              offsetof(AudioFormatBlock, word8) == 36);

// Filled field by field from a track block, zeroed before that. Nothing in it is a pointer, and no field is
// padded: external modules read it at these offsets.
struct TrackParamObj {
    std::uint32_t mInfoWords1[2];
    StringBlock mTrackName;
    StringBlock mInfoString2;
    StringBlock mTrackArtist;
    StringBlock mTrackAlbum;
    StringBlock mInfoString5;
    StringBlock mInfoString6;
    StringBlock mInfoString7;
    StringBlock mInfoString8;
    std::uint32_t mInfoWords2[2];
    std::int16_t mInfoShorts1[2];
    std::uint32_t mInfoWords3[11];
    StringBlock mInfoString9;
    std::uint8_t mInfoBytes[2];
    std::int16_t mInfoShorts2[3];
    std::uint32_t mInfoWords4[2];
    std::int16_t mInfoShorts3[2];
    StringBlock mInfoString10;
    float mInfoFloat;
    StringBlock mInfoString11;
    std::uint64_t mInfoLong;
    AudioFormatBlock mAudioFormat;
    std::int32_t mTrackStartA;
    std::uint32_t mTrackStartB;
};

static_assert(std::is_trivially_copyable_v<TrackParamObj> && std::is_standard_layout_v<TrackParamObj>);
static_assert(offsetof(TrackParamObj, mTrackName) == 8);
static_assert(offsetof(TrackParamObj, mInfoString2) == 520);
static_assert(offsetof(TrackParamObj, mTrackArtist) == 1032);
static_assert(offsetof(TrackParamObj, mTrackAlbum) == 1544);
static_assert(offsetof(TrackParamObj, mInfoString5) == 2056);
static_assert(offsetof(TrackParamObj, mInfoString6) == 2568);
static_assert(offsetof(TrackParamObj, mInfoString7) == 3080);
static_assert(offsetof(TrackParamObj, mInfoString8) == 3592);
static_assert(offsetof(TrackParamObj, mInfoWords2) == 4104);
static_assert(offsetof(TrackParamObj, mInfoShorts1) == 4112);
static_assert(offsetof(TrackParamObj, mInfoWords3) == 4116);
static_assert(offsetof(TrackParamObj, mInfoString9) == 4160);
static_assert(offsetof(TrackParamObj, mInfoBytes) == 4672);
static_assert(offsetof(TrackParamObj, mInfoShorts2) == 4674);
static_assert(offsetof(TrackParamObj, mInfoWords4) == 4680);
static_assert(offsetof(TrackParamObj, mInfoShorts3) == 4688);
static_assert(offsetof(TrackParamObj, mInfoString10) == 4692);
static_assert(offsetof(TrackParamObj, mInfoFloat) == 5204);
static_assert(offsetof(TrackParamObj, mInfoString11) == 5208);
static_assert(offsetof(TrackParamObj, mInfoLong) == 5720);
static_assert(offsetof(TrackParamObj, mAudioFormat) == 5728);
static_assert(offsetof(TrackParamObj, mTrackStartA) == 5768);
static_assert(offsetof(TrackParamObj, mTrackStartB) == 5772);
static_assert(sizeof(TrackParamObj) == 5776);

using TrackParamRef = std::shared_ptr<TrackParamObj>;

// A new zeroed track, shared by reference count and released by plain free. Null if memory is short.
[[nodiscard]] inline TrackParamRef MakeTrackParam() {
    return { static_cast<TrackParamObj*>(std::calloc(1, sizeof(TrackParamObj))), std::free };
}

} // namespace orvane::records
