#include "platform/Cores.h"

#include <gtest/gtest.h>

#include <thread>

namespace orvane::platform {
namespace {

TEST(Cores, ThereAreNotMoreThanTheSystemRunsThreadsOn) {
    // None means that the system would not tell, as Wine without /sys.
    EXPECT_LE(ProcessorCores(), std::thread::hardware_concurrency());
}

} // namespace
} // namespace orvane::platform
