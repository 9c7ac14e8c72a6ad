// Texts as panels show them.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvane::visualizer {

using TextColumn = std::vector<std::u16string>; // top to bottom

// UTF-16 of a UTF-8 text; nothing if it is none or has more than 2047 units.
[[nodiscard]] std::optional<std::u16string> PanelText(std::string_view utf8);

// Appends the text if there is one: what doesn't convert leaves no gap.
void AppendPanelText(TextColumn& column, std::string_view utf8);

} // namespace orvane::visualizer
