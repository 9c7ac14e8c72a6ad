#include "platform/NativeWindow.h"

#include <gtest/gtest.h>

namespace orvane::platform {
namespace {

constexpr PixelRect kUntouched = { -1, -2, -3, -4 };

TEST(NativeWindow, NoWindowAnswersNothing) {
    const NativeWindow none;
    PixelRect rect = kUntouched;
    EXPECT_FALSE(none);
    EXPECT_FALSE(ClientRectOf(none, rect));
    EXPECT_FALSE(WindowRectOf(none, rect));
    EXPECT_FALSE(IsParentIconic(none));
    EXPECT_EQ(rect, kUntouched);
}

TEST(NativeWindow, ARectanglesSizeIsItsExclusiveEndLessItsBeginning) {
    constexpr PixelRect kRect = { -10, 20, 300, 25 };
    EXPECT_EQ(kRect.Width(), 310);
    EXPECT_EQ(kRect.Height(), 5);
}

} // namespace
} // namespace orvane::platform
