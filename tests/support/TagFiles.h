// Music files made byte by byte, without any sound, for tests and fuzz seeds of the tag reader.
#pragma once

#include "support/Wire.h"

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

namespace orvane::tests {

// Bytes are kept in strings here: most of them are texts.
[[nodiscard]] std::string Join(std::initializer_list<std::string_view> parts);
[[nodiscard]] std::string BigValue(std::uint64_t value, int bytes);
[[nodiscard]] std::string LittleValue(std::uint64_t value, int bytes);
[[nodiscard]] Bytes AsBytes(std::string_view text);

// `length` bytes that begin as a picture does; `fill` tells one from another.
[[nodiscard]] std::string Jpeg(std::size_t length, char fill = 'j');
[[nodiscard]] std::string Png(std::size_t length, char fill = 'p');

// ID3v2: a tag of version 2, 3 or 4 around its body, and frames in the form of each. `flags` of a frame is the
// second byte of its flags; version 2 has none.
[[nodiscard]] std::string Id3Tag(int version, std::string_view body, std::uint8_t flags = 0);
[[nodiscard]] std::string Id3Frame(int version, std::string_view name, std::string_view data,
                                   std::uint8_t flags = 0);
[[nodiscard]] std::string Syncsafe(std::uint32_t value);

// The data of a text frame in Latin-1, and of a picture frame with a Latin-1 description.
[[nodiscard]] std::string Id3Text(std::string_view text);
[[nodiscard]] std::string Id3Picture(std::uint8_t kind, std::string_view image,
                                     std::string_view description = "cover");

// 128 bytes.
[[nodiscard]] std::string Id3v1Tag(std::string_view title, std::string_view artist, std::string_view album);

// FLAC: "fLaC" and blocks, the last of which is marked so.
struct FlacBlock {
    std::uint8_t type;
    std::string content;
};

[[nodiscard]] std::string FlacFile(std::initializer_list<FlacBlock> blocks);
[[nodiscard]] std::string VorbisComments(std::initializer_list<std::string_view> comments);
[[nodiscard]] std::string FlacPicture(std::uint32_t kind, std::string_view image);

// MP4: a box, and a file that has the items of a tag list where they belong, behind some sound.
[[nodiscard]] std::string Box(std::string_view name, std::string_view content);
[[nodiscard]] std::string Mp4Item(std::string_view name, std::uint32_t type, std::string_view value);
[[nodiscard]] std::string Mp4File(std::string_view items);

// WAV: a chunk, padded; a LIST of them; a file of chunks behind a format and some sound.
[[nodiscard]] std::string Chunk(std::string_view name, std::string_view content);
[[nodiscard]] std::string InfoList(std::string_view chunks);
[[nodiscard]] std::string WavFile(std::string_view chunks);

} // namespace orvane::tests
