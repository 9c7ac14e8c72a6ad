#include "shell/entry/CommandLine.h"

#include <gtest/gtest.h>

namespace orvane::shell {
namespace {

TEST(WantsConsole, IsAskedForByTheSwitchInAnyPlace) {
    EXPECT_TRUE(WantsConsole(L"orvane-visualizer.exe -c"));
    EXPECT_TRUE(WantsConsole(L"orvane-visualizer.exe one -c"));
    EXPECT_TRUE(WantsConsole(L"orvane-visualizer.exe one two -c"));
    EXPECT_TRUE(WantsConsole(L"orvane-visualizer.exe -c one two"));
}

TEST(WantsConsole, TheSwitchMayBeQuoted) {
    EXPECT_TRUE(WantsConsole(LR"("C:\Program Files\orvane-visualizer.exe" "-c")"));
    EXPECT_TRUE(WantsConsole(LR"(orvane-visualizer.exe -"c")"));
}

TEST(WantsConsole, NothingElseMeansIt) {
    EXPECT_FALSE(WantsConsole(L"orvane-visualizer.exe -cx"));
    EXPECT_FALSE(WantsConsole(L"orvane-visualizer.exe -C"));
    EXPECT_FALSE(WantsConsole(L"orvane-visualizer.exe --c"));
    EXPECT_FALSE(WantsConsole(L"orvane-visualizer.exe /c"));
    EXPECT_FALSE(WantsConsole(L"orvane-visualizer.exe c"));
    EXPECT_FALSE(WantsConsole(L"orvane-visualizer.exe -"));
    EXPECT_FALSE(WantsConsole(LR"(orvane-visualizer.exe "one -c" two)"));
    EXPECT_FALSE(WantsConsole(LR"(orvane-visualizer.exe "-c ")"));
}

TEST(WantsConsole, WithoutArgumentsThereIsNone) {
    EXPECT_FALSE(WantsConsole(L"orvane-visualizer.exe"));
    EXPECT_FALSE(WantsConsole(LR"("C:\Program Files\Orvane -c\orvane-visualizer.exe")"));
    EXPECT_FALSE(WantsConsole(L"")) << "the platform puts the program's own path in";
}

} // namespace
} // namespace orvane::shell
