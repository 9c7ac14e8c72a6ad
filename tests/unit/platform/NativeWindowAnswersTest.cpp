// The window of a native program: it answers what its test has set.
#include "platform/NativeWindow.h"

#include <gtest/gtest.h>

namespace orvane::platform {
namespace {

TEST(NativeWindowAnswers, AWindowAnswersWhatItsTestHasSet) {
    NativeWindowAnswers answers;
    answers.client = { 0, 0, 640, 480 };
    answers.window = { 100, 50, 756, 569 };
    const NativeWindow window = answers.AsWindow();
    PixelRect client, outer;
    EXPECT_TRUE(window);
    EXPECT_TRUE(ClientRectOf(window, client));
    EXPECT_TRUE(WindowRectOf(window, outer));
    EXPECT_EQ(client, answers.client);
    EXPECT_EQ(outer, answers.window);
    EXPECT_FALSE(IsParentIconic(window));
}

TEST(NativeWindowAnswers, AMinimisedParentIsTold) {
    NativeWindowAnswers answers;
    answers.parentIconic = true;
    EXPECT_TRUE(IsParentIconic(answers.AsWindow()));
}

TEST(NativeWindowAnswers, AWindowThatIsGoneLeavesTheRectangleAsItWas) {
    NativeWindowAnswers answers;
    answers.rectsAvailable = false;
    PixelRect rect = { 1, 2, 3, 4 };
    EXPECT_FALSE(ClientRectOf(answers.AsWindow(), rect));
    EXPECT_FALSE(WindowRectOf(answers.AsWindow(), rect));
    EXPECT_EQ(rect, (PixelRect{ 1, 2, 3, 4 }));
}

TEST(NativeWindowAnswers, TwoWindowsAreEqualExactlyIfTheyAreOne) {
    NativeWindowAnswers one, other;
    EXPECT_EQ(one.AsWindow(), one.AsWindow());
    EXPECT_NE(one.AsWindow(), other.AsWindow());
    EXPECT_NE(one.AsWindow(), NativeWindow{});
}

} // namespace
} // namespace orvane::platform
