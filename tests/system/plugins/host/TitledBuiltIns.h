// Two built-in visualizers that do nothing but take their title from the localized strings.
#pragma once

#include "shell/server/BuiltIns.h"

namespace orvane::tests {

// One of Quellspire's kind, then one of Zephor's. Each is named "Quellspire" or "Zephor" for itself, and has no
// display name until its strings come: the last one is its title.
[[nodiscard]] std::span<const shell::BuiltIn> TitledBuiltIns();

} // namespace orvane::tests
