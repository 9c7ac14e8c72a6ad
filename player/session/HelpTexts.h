// What the player tells the built-in visualizers in its user's language: their titles and the texts of their help
// panels.
#pragma once

#include "player/protocol/Requests.h"

#include <span>

namespace orvane::player {

// The particle visualizer shows all entries, the title among them, one below the other.
[[nodiscard]] std::span<const LocalizedText> QuellspireTexts();

// The classic visualizer goes by fixed numbers: its first panel shows entries 0 to 4, its second 0, 5, 6 and 7,
// and the last is the title.
[[nodiscard]] std::span<const LocalizedText> ZephorTexts();

} // namespace orvane::player
