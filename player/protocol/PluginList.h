// The host's list of visualizers, out of the reply to the localized strings.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace orvane::player {

constexpr std::size_t kDisplayNameLimit = 255; // UTF-16 units
constexpr std::size_t kPathLimit = 1027;       // UTF-16 units

enum PluginKind : std::uint32_t { kExternalPlugin = 0, kZephorPlugin = 1, kQuellspirePlugin = 2 };

struct PluginEntry {
    std::uint32_t word0 = 0;
    std::uint32_t options = 0;
    std::uint32_t rate = 0;
    std::uint32_t word1 = 0;
    std::uint32_t word2 = 0;
    std::array<std::uint32_t, 4> limits = {};
    std::uint32_t kind = kExternalPlugin;
    std::array<std::uint8_t, 4> bytes = {};
    std::u16string displayName; // by which a visualizer is selected
    std::u16string path;        // of an external module

    bool operator==(const PluginEntry&) const = default;
};

struct PluginList {
    std::uint32_t claimed = 0; // how many the reply says that there are
    std::vector<PluginEntry> plugins;
    bool whole = false; // all that were claimed are there, and nothing behind them
};

// The list is big-endian, unlike everything else on the pipe. Entries that came whole are kept, also if what
// follows them is cut off or claims a text longer than its limit. Nothing beyond the reply is read, and no
// more memory taken than the reply has bytes for, whatever it claims.
[[nodiscard]] PluginList DecodePluginList(std::span<const std::uint8_t> reply);

} // namespace orvane::player
