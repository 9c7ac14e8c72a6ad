#include "player/session/Visualizers.h"

#include "platform/Text.h"

#include <algorithm>

namespace orvane::player {

namespace {

std::string InLowerCase(std::string text) {
    for (char& character : text)
        if (character >= 'A' && character <= 'Z') character = char(character - 'A' + 'a');
    return text;
}

} // namespace

std::vector<Visualizer> SelectableVisualizers(std::span<const PluginEntry> plugins) {
    std::vector<Visualizer> selectable;
    for (const PluginEntry& plugin : plugins) {
        const bool known = std::any_of(selectable.begin(), selectable.end(), [&](const Visualizer& other) {
            return other.name == plugin.displayName;
        });
        if (known || plugin.displayName.empty()) continue;
        const bool module = plugin.kind == kExternalPlugin;
        selectable.push_back({ plugin.displayName, module ? plugin.path : std::u16string() });
    }
    return selectable;
}

std::optional<std::size_t> FindVisualizer(std::span<const Visualizer> visualizers, std::string_view wish) {
    const std::string wanted = InLowerCase(std::string(wish));
    std::optional<std::size_t> found;
    for (std::size_t i = 0; i < visualizers.size(); ++i) {
        const std::string name = InLowerCase(platform::Utf8FromUtf16(visualizers[i].name));
        if (name == wanted) return i;
        if (!found && name.find(wanted) != std::string::npos) found = i;
    }
    return found;
}

std::vector<std::string> VisualizerLines(std::span<const Visualizer> visualizers) {
    constexpr std::size_t kGap = 2; // blanks behind the longest name
    std::size_t width = 0;
    for (const Visualizer& visualizer : visualizers) width = std::max(width, visualizer.name.size());
    std::vector<std::string> lines;
    for (const Visualizer& visualizer : visualizers) {
        std::string line = platform::Utf8FromUtf16(visualizer.name);
        line.append(width + kGap - visualizer.name.size(), ' ');
        line.append(visualizer.path.empty() ? "built-in" : platform::Utf8FromUtf16(visualizer.path));
        lines.push_back(std::move(line));
    }
    return lines;
}

} // namespace orvane::player
