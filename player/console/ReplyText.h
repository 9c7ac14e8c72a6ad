// Requests and replies as lines to read.
#pragma once

#include "player/console/RequestLine.h"

#include <span>
#include <string>
#include <string_view>

namespace orvane::player {

// "> PULS 12 bytes\n": the tag and the length of the whole request, its tag included.
[[nodiscard]] std::string RequestText(const Request& request);

// "< 4 bytes  00000000 ....\n": the length, the bytes in groups of four, and as text, a point for what can't
// be shown. A reply of more than 16 bytes goes on in lines of their own. If the request has a reply that can be
// decoded ('PULS', 'UPVM'), what it says follows.
[[nodiscard]] std::string ReplyText(std::string_view tag, std::span<const std::uint8_t> reply);

} // namespace orvane::player
