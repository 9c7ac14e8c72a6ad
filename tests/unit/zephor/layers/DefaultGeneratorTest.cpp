#include "zephor/layers/DefaultGenerator.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace orvane::zephor {
namespace {

TEST(DefaultGenerator, GivesTheSameValueWithEveryCallAndSoFixesWhatIsDecidedByIt) {
    for (int call = 0; call < 3; ++call) EXPECT_EQ(DefaultGeneratorValue(), 3499211612u);
    EXPECT_EQ(DefaultGeneratorValue() % 9, 2u);
    EXPECT_EQ(DefaultGeneratorValue() % 12, 8u);
    EXPECT_EQ(DefaultGeneratorValue() & 3, 0u);
    EXPECT_LT(std::int32_t(DefaultGeneratorValue()), 0);
}

} // namespace
} // namespace orvane::zephor
