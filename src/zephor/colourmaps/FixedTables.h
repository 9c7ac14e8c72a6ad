// The colour maps that are tables: ids 0 to 10, gradients through hand-chosen stops.
#pragma once

#include "zephor/colours/ColourTable.h"

#include <cstddef>
#include <span>

namespace orvane::zephor {

constexpr std::size_t kFixedTables = 11;

[[nodiscard]] std::span<const ColourTable, kFixedTables> FixedTables();

} // namespace orvane::zephor
