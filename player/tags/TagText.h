// The texts of tags in their encodings.
//
// Each gives at most kLongestText units, as many as a track's text holds. A text ends with its first zero
// character; control characters become blanks, blanks at both ends go.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace orvane::player {

constexpr std::size_t kLongestText = 255; // UTF-16 units

// Bytes of an encoded text that are looked at: enough for kLongestText units in any encoding.
constexpr std::size_t kLongestEncodedText = 1024;

enum class Utf16Order { kByMark, kBigEndian }; // a byte order mark decides; without one little-endian

[[nodiscard]] std::u16string TextOfLatin1(std::span<const std::uint8_t> bytes);
[[nodiscard]] std::u16string TextOfUtf16(std::span<const std::uint8_t> bytes, Utf16Order order);

// Bytes that aren't valid UTF-8 are taken as Latin-1, which older programs wrote in its place.
[[nodiscard]] std::u16string TextOfUtf8(std::span<const std::uint8_t> bytes);

// Makes any text fit as told above.
[[nodiscard]] std::u16string TidyText(std::u16string text);

} // namespace orvane::player
