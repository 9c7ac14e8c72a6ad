#include "platform/Cores.h"

#include <gtest/gtest.h>

#include <thread>

namespace orvane::platform {
namespace {

TEST(Cores, ThereIsAtLeastOneAndNotMoreThanTheSystemRunsThreadsOn) {
    EXPECT_GE(ProcessorCores(), 1u);
    EXPECT_LE(ProcessorCores(), std::thread::hardware_concurrency());
}

} // namespace
} // namespace orvane::platform
