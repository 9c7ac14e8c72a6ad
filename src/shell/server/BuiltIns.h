// The visualizers that are built into a program, as its server registers them.
#pragma once

#include "plugins/PlugInMemory.h"

#include <span>

namespace orvane::shell {

struct BuiltIn {
    plugins::PlugInOwner<plugins::VisualPlugIn> (*make)(); // null if memory is short
};

// The table that this program was linked with, in the order of registration. Each program brings its own.
[[nodiscard]] std::span<const BuiltIn> LinkedBuiltIns();

} // namespace orvane::shell
