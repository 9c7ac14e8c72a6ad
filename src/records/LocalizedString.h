// A localized text that the player hands to a built-in visualizer.
#pragma once

#include <cstddef>
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

// The field's text as a zero-terminated one. A key of 256 bytes isn't terminated: its text runs on into the
// value, which lies in the same entry, and ends there, 264 bytes from its start at the latest. A value of 8
// bytes ends with the entry.
[[nodiscard]] inline std::string_view KeyText(const LocalizedString& entry) {
    const auto* start = reinterpret_cast<const char*>(&entry);
    const std::string_view whole(start, sizeof entry);
    return whole.substr(0, whole.find('\0'));
}

[[nodiscard]] inline std::string_view ValueText(const LocalizedString& entry) {
    const std::string_view whole(entry.value, sizeof entry.value);
    return whole.substr(0, whole.find('\0'));
}

// An entry of these texts, each cut to its field.
[[nodiscard]] inline LocalizedString MakeLocalizedString(std::string_view key, std::string_view value) {
    LocalizedString entry{};
    key.copy(entry.key, sizeof entry.key);
    value.copy(entry.value, sizeof entry.value);
    return entry;
}

} // namespace orvane::records
