// The visualizers that a host offers, as a person chooses among them.
#pragma once

#include "player/protocol/PluginList.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace orvane::player {

struct Visualizer {
    std::u16string name;
    std::u16string path; // of a module; a built-in one has none

    bool operator==(const Visualizer&) const = default;
};

// Those that can be selected, each name once: one without a name can't be, and the host lists a module again for
// every player that connects.
[[nodiscard]] std::vector<Visualizer> SelectableVisualizers(std::span<const PluginEntry> plugins);

// Which one is meant: that of the name, or the first whose name holds `wish`; small and capital Latin letters are
// the same. UTF-8.
[[nodiscard]] std::optional<std::size_t> FindVisualizer(std::span<const Visualizer> visualizers,
                                                        std::string_view wish);

// One line for each: the name, and behind it "built-in" or the module's path, one below the other.
[[nodiscard]] std::vector<std::string> VisualizerLines(std::span<const Visualizer> visualizers);

} // namespace orvane::player
