// A localized text that the player hands to a built-in visualizer.
#pragma once

#include <cstddef>
#include <cstring>
#include <string_view>
#include <vector>

namespace orvane::records {

// UTF-8, each field zero-padded and without a terminator when full. The last entry of a list is a built-in's
// display title, the others are its help texts: `key` is what is shown, `value` the key to press.
struct LocalizedString {
    char key[256];
    char value[8];
};

static_assert(sizeof(LocalizedString) == 264 && offsetof(LocalizedString, value) == 256);

using LocalizedStrings = std::vector<LocalizedString>;

} // namespace orvane::records
