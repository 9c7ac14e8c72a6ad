// The readers of the formats, each from the front of a stretch of the file. They add what they find to the
// builder, and end where the format isn't what it seemed to be.
#pragma once

#include "player/tags/Cursor.h"
#include "player/tags/TagBuilder.h"

namespace orvane::player {

// A tag at the front of the stretch. Returns its length in bytes with its header and footer; 0 if there is none.
std::uint64_t ReadId3v2(Cursor stretch, TagBuilder& tags);

// The last 128 bytes of the stretch.
void ReadId3v1(Cursor stretch, TagBuilder& tags);

// From "fLaC" on.
void ReadFlac(Cursor stretch, TagBuilder& tags);

// From the first box on.
void ReadMp4(Cursor stretch, TagBuilder& tags);

// From "RIFF" on.
void ReadWav(Cursor stretch, TagBuilder& tags);

} // namespace orvane::player
