// Keys, pulses, sizes, tracks and refusals in any order: the visualizer lives through them, and shows frames.
#include "ZephorWalk.h"

#include <gtest/gtest.h>

#include <random>

namespace orvane::zephor {
namespace {

TEST(ZephorWalk, AnyOrderOfWhatAPlayerAndAWindowDoIsLivedThrough) {
    constexpr unsigned kWalks = 12;
    constexpr std::size_t kSteps = 1000; // bytes, of which a step takes about two
    for (unsigned seed = 1; seed <= kWalks; ++seed) {
        std::mt19937 generator(seed);
        std::vector<std::uint8_t> bytes(kSteps);
        for (std::uint8_t& byte : bytes) byte = std::uint8_t(generator() >> 24);
        EXPECT_GT(tests::ZephorWalk(bytes).Run(), 50u) << seed;
    }
}

} // namespace
} // namespace orvane::zephor
