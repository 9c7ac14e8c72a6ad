// Every colour map of the classic visualizer.
#pragma once

#include "zephor/colours/ColourMaps.h"

namespace orvane::zephor {

// Ids 0 to 10 are the fixed tables, 11 to 65 the computed maps. They live until the process ends; their
// parameters are shared by all who use them, on one thread.
[[nodiscard]] const ColourMaps& AllColourMaps();

} // namespace orvane::zephor
