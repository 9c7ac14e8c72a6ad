// The three bands from which effects and colours are drawn, as the numbers that fall into them: 0.66 is 21,626.2
// of 32,767, and 0.33 is 10,813.1.
#pragma once

#include "support/ScriptedRand.h"

namespace orvane::tests {

constexpr RandRange kUpper = { 21627, 32767 }, kMiddle = { 10814, 21626 }, kLower = { 0, 10813 };

} // namespace orvane::tests
