#include "platform/Clock.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <thread>

namespace orvane::platform {
namespace {

TEST(Clock, ATestSetsItsOwnTimeAndTheSystemsComesBack) {
    const ClockSource fixed = [] { return 12.25; };
    const ClockSource other = [] { return -1.0; };
    EXPECT_EQ(SetClockSource(fixed), nullptr);
    EXPECT_EQ(NowSeconds(), 12.25);
    EXPECT_EQ(SetClockSource(other), fixed);
    EXPECT_EQ(NowSeconds(), -1.0);
    EXPECT_EQ(SetClockSource(nullptr), other);
    const double before = SystemSeconds();
    const double now = NowSeconds();
    EXPECT_LE(before, now);
    EXPECT_LE(now, SystemSeconds());
}

TEST(Clock, RunsOnByAtLeastTheTimeThatIsSlept) {
    const double before = SystemSeconds();
    std::this_thread::sleep_for(std::chrono::milliseconds(60));
    // A millisecond counter may have just ticked, and a system may step it in ticks of some 16 ms.
    EXPECT_GE(SystemSeconds() - before, 0.040);
}

TEST(Clock, CountsWholeMilliseconds) {
    const double milliseconds = SystemSeconds() * 1000;
    EXPECT_NEAR(milliseconds, std::round(milliseconds), 1e-3);
}

} // namespace
} // namespace orvane::platform
