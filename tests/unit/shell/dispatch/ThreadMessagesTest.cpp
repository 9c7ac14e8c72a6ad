#include "shell/dispatch/ThreadMessages.h"

#include <gtest/gtest.h>

namespace orvane::shell {
namespace {

TEST(ThreadMessages, HaveTheirNumbersAndLeaveOneOut) {
    EXPECT_EQ(std::uint32_t(MESSAGE_START_VISUALIZER), 32968u);
    EXPECT_EQ(std::uint32_t(MESSAGE_ACTVT_VISUALIZER), 32970u);
    EXPECT_EQ(std::uint32_t(MESSAGE_SHAPE_VISUALIZER), 32971u);
    EXPECT_EQ(std::uint32_t(MESSAGE_DRAWV_VISUALIZER), 32972u);
    EXPECT_EQ(std::uint32_t(MESSAGE_STOPV_VISUALIZER), 32973u);
    EXPECT_EQ(std::uint32_t(MESSAGE_IDLEV_VISUALIZER), 32974u);
    EXPECT_EQ(std::uint32_t(MESSAGE_ARTWK_VISUALIZER), 32975u);
    EXPECT_EQ(std::uint32_t(MESSAGE_DEACT_VISUALIZER), 32976u);
}

} // namespace
} // namespace orvane::shell
