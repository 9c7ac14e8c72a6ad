// The localized strings of 'UPVM', by the built-in visualizer that they are for.
#pragma once

#include "records/LocalizedString.h"

#include <cstdint>
#include <span>

namespace orvane::shell {

struct LocalizedGroups {
    records::LocalizedStrings quellspire; // groups "Q"
    records::LocalizedStrings zephor;     // groups "Z"
};

// Scans a payload byte by byte. Outside a group, bytes other than "Q" and "Z" are passed over. Behind the
// group's letter stands its entry count, then entries "<key>...<value>".
//
// A group ends as soon as its list, over all groups of that letter, holds exactly that many entries; a count
// that the list never meets again (0, say) lets the group run to the end of the payload. An entry that is cut
// off there is dropped. Of a key longer than 256 bytes, or a value longer than 8, later bytes overwrite the
// field's beginning.
[[nodiscard]] LocalizedGroups ParseLocalizedGroups(std::span<const std::uint8_t> payload);

} // namespace orvane::shell
