#pragma once

#include <cstdint>
#include <random>

namespace orvane::zephor {

// The first output of a 32-bit Mersenne twister with its default seed, made anew for each call: 3499211612, always.
// KEEP: decisions taken by this value look random and are fixed; changing it would change what is drawn.
// Pinned by DefaultGenerator.GivesTheSameValueWithEveryCallAndSoFixesWhatIsDecidedByIt.
inline std::uint32_t DefaultGeneratorValue() {
    return static_cast<std::uint32_t>(std::mt19937()());
}

} // namespace orvane::zephor
