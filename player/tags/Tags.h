// What a music file says about itself, for the track and the artwork that the host is told of.
//
// Read from the first of these that is there, and the later fill in what it left open:
//   ID3v2.2, 2.3, 2.4 in front of MP3 and anything else, and in the "id3 " chunk of a WAV file
//   FLAC: Vorbis comments and picture blocks      MP4, M4A: moov/udta/meta/ilst
//   WAV: LIST INFO                                ID3v1 behind files of no other kind
// Everything is bounded: nothing is read beyond the source, and a file that lies about sizes or goes on for ever
// costs kMostReads reads of kMostBytes bytes in all. What can't be read is left empty; nothing is ever an error.
#pragma once

#include "player/protocol/Requests.h"
#include "player/tags/ByteSource.h"

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace orvane::player {

// The largest picture that is kept, in bytes: one that still goes into one request behind its tag.
constexpr std::size_t kLargestCover = 0x100000 - 4;

// What is spent on one file. Common ones need some 50 reads; a film in thousands of fragments some 10,000.
constexpr std::uint64_t kMostReads = 65536;
constexpr std::uint64_t kMostBytes = 32 << 20;

struct Tags {
    std::u16string title, artist, album; // at most 255 units each
    std::vector<std::uint8_t> cover;     // a JPEG or PNG file of at most kLargestCover bytes, or empty

    bool operator==(const Tags&) const = default;
};

// `fileName` without its extension is the title if the file has none; it may be a whole path.
[[nodiscard]] Tags ReadTags(IByteSource& source, const std::filesystem::path& fileName);

// The same of a file on disk. A file that can't be opened has its name for a title.
[[nodiscard]] Tags ReadTagsOfFile(const std::filesystem::path& path);

// By which request a cover goes out: 13 is JPEG, 14 is PNG.
[[nodiscard]] ArtworkFormat CoverFormat(std::span<const std::uint8_t> cover);

} // namespace orvane::player
