// The delta field effects, in the order in which they are registered.
#pragma once

#include "zephor/deltafields/DeltafieldFunctor.h"

#include <memory>
#include <span>

namespace orvane::zephor {

// Makes a functor anew, with parameters of its own.
using DeltaFactory = std::unique_ptr<DeltafieldFunctor> (*)();

// An effect's index counts through the four lists, one after the other. Lists grow at their ends.
[[nodiscard]] std::span<const DeltaFactory> DeltaList1();
[[nodiscard]] std::span<const DeltaFactory> DeltaList2();
[[nodiscard]] std::span<const DeltaFactory> DeltaList3();
[[nodiscard]] std::span<const DeltaFactory> DeltaList4();

} // namespace orvane::zephor
