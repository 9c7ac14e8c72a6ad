#include "platform/Display.h"

#include <gtest/gtest.h>

namespace orvane::platform {
namespace {

int sAsked = 0;

TEST(Display, TheFactorIsTheDpiOver96) {
    SetDpiSource([] { return 120; });
    EXPECT_EQ(DisplayFactor(), 1.25);
    SetDpiSource([] { return 96; });
    EXPECT_EQ(DisplayFactor(), 1.0);
    SetDpiSource(nullptr);
}

TEST(Display, AScreenThatCantBeAskedGives1) {
    SetDpiSource([] { return 0; });
    EXPECT_EQ(DisplayFactor(), 1.0);
    SetDpiSource(nullptr);
}

TEST(Display, TheScreenIsAskedOnce) {
    sAsked = 0;
    SetDpiSource([] { return 96 + 48 * sAsked++; });
    EXPECT_EQ(DisplayFactor(), 1.0);
    EXPECT_EQ(DisplayFactor(), 1.0);
    EXPECT_EQ(sAsked, 1);
    SetDpiSource(nullptr);
}

TEST(Display, TheSystemsOwnScreenHasADensity) {
    EXPECT_GE(SystemDpi(), 48);
    EXPECT_LE(SystemDpi(), 960);
    EXPECT_EQ(DisplayFactor(), SystemDpi() / 96.0);
}

} // namespace
} // namespace orvane::platform
