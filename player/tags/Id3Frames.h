// The frames of an ID3v2 tag, and the encodings of numbers and bytes that only ID3 has.
#pragma once

#include "player/tags/Cursor.h"
#include "player/tags/TagBuilder.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace orvane::player {

// A size of four times seven bits; nothing if a top bit is set.
[[nodiscard]] std::optional<std::uint32_t> Id3SyncsafeSize(std::uint32_t value);

// Takes the zero away that was put behind every byte of 0xFF.
void UndoId3Unsynchronisation(std::vector<std::uint8_t>& bytes);

// Reads the frames of a tag's body of version 2, 3 or 4 up to its padding. `unsynchronised` is for version 4,
// whose frames are so one by one; the body of the older versions is given readable.
void ReadId3Frames(Cursor body, std::uint8_t version, bool unsynchronised, TagBuilder& tags);

} // namespace orvane::player
