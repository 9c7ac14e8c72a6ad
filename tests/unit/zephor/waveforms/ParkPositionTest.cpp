#include "zephor/waveforms/ParkPosition.h"

#include "platform/Random.h"
#include "zephor/layers/DefaultGenerator.h"

#include <gtest/gtest.h>

namespace orvane::zephor {
namespace {

TEST(ParkPosition, TheDefaultGeneratorParksAboveTheScreen) {
    platform::SeedRand(1234); // 4068, 213
    const ParkPosition position = DrawParkPosition(DefaultGeneratorValue());
    EXPECT_NEAR(position.x, -1.503403f, 1e-6f);
    EXPECT_NEAR(position.y, -1.506500f, 1e-6f);
}

TEST(ParkPosition, AValueThatIsNotNegativeWouldParkToTheRight) {
    platform::SeedRand(1234);
    const ParkPosition position = DrawParkPosition(0x7FFFFFFF);
    EXPECT_NEAR(position.x, 1.624149f, 1e-6f);  // 4068 * 3.051851e-05 + 1.5
    EXPECT_NEAR(position.y, -1.973998f, 1e-6f); // 213 * 0.00012207404 - 2
}

} // namespace
} // namespace orvane::zephor
