#include "player/session/Commands.h"

#include <gtest/gtest.h>

#include <cctype>
#include <string>

namespace orvane::player {
namespace {

using Keys = std::vector<ConsoleKey>;

TEST(Commands, KnowsTheKeysOfTheConsole) {
    EXPECT_EQ(CommandOfConsoleKey(' '), Command::kPause);
    EXPECT_EQ(CommandOfConsoleKey(kLeftKey), Command::kSeekBack);
    EXPECT_EQ(CommandOfConsoleKey(kRightKey), Command::kSeekForward);
    EXPECT_EQ(CommandOfConsoleKey('n'), Command::kNextTrack);
    EXPECT_EQ(CommandOfConsoleKey('p'), Command::kPreviousTrack);
    EXPECT_EQ(CommandOfConsoleKey('v'), Command::kNextVisualizer);
    EXPECT_EQ(CommandOfConsoleKey('f'), Command::kFullScreen);
    EXPECT_EQ(CommandOfConsoleKey('q'), Command::kEnd);
    EXPECT_EQ(CommandOfConsoleKey(kEscapeKey), Command::kEnd);
    EXPECT_EQ(CommandOfConsoleKey('N'), Command::kNextTrack);
    for (const ConsoleKey key : Keys{ 'x', '.', ',', '[', '{', 0, 0x4E00 })
        EXPECT_EQ(CommandOfConsoleKey(key), Command::kNone) << key;
}

TEST(Commands, KnowsTheKeysOfTheWindow) {
    EXPECT_EQ(CommandOfWindowCharacter(' '), Command::kPause);
    EXPECT_EQ(CommandOfWindowCharacter('['), Command::kSeekBack);
    EXPECT_EQ(CommandOfWindowCharacter(']'), Command::kSeekForward);
    EXPECT_EQ(CommandOfWindowCharacter('.'), Command::kNextTrack);
    EXPECT_EQ(CommandOfWindowCharacter(','), Command::kPreviousTrack);
    EXPECT_EQ(CommandOfWindowCharacter('v'), Command::kNextVisualizer);
    EXPECT_EQ(CommandOfWindowCharacter('V'), Command::kNextVisualizer);
    EXPECT_EQ(CommandOfWindowCharacter(0x1B), Command::kEnd);
}

// Keys that one of the built-in visualizers takes, and so never come back, mustn't mean anything here either: another
// visualizer gives them back.
TEST(Commands, LeavesTheVisualizersKeysAlone) {
    const std::string quellspire = "+=-/?ASCEFILMNPRX";
    const std::string zephor = "/HASQWZXCFILMORT";
    for (const char key : quellspire + zephor) {
        EXPECT_EQ(CommandOfWindowCharacter(std::uint32_t(key)), Command::kNone) << key;
        EXPECT_EQ(CommandOfWindowCharacter(std::uint32_t(std::tolower(key))), Command::kNone) << key;
    }
    EXPECT_EQ(CommandOfWindowCharacter(0), Command::kNone);
    EXPECT_EQ(CommandOfWindowCharacter(kLeftKey), Command::kNone);
}

TEST(Commands, ReadsKeysOutOfATerminalsBytes) {
    EXPECT_EQ(KeysOfTerminal("vq "), (Keys{ 'v', 'q', ' ' }));
    EXPECT_EQ(KeysOfTerminal(""), Keys());
    EXPECT_EQ(KeysOfTerminal("\x1B[D\x1B[C"), (Keys{ kLeftKey, kRightKey }));
    EXPECT_EQ(KeysOfTerminal("\x1BOD\x1BOC"), (Keys{ kLeftKey, kRightKey }));
    EXPECT_EQ(KeysOfTerminal("a\x1B[Cb"), (Keys{ 'a', kRightKey, 'b' }));
}

TEST(Commands, TakesALoneEscapeForTheKey) {
    EXPECT_EQ(KeysOfTerminal("\x1B"), Keys{ kEscapeKey });
    EXPECT_EQ(KeysOfTerminal("\x1Bq"), (Keys{ kEscapeKey, 'q' }));
    EXPECT_EQ(KeysOfTerminal("\x1B\x1B[D"), (Keys{ kEscapeKey, kLeftKey }));
}

TEST(Commands, PassesOverOtherSequences) {
    EXPECT_EQ(KeysOfTerminal("\x1B[A"), Keys());                 // up
    EXPECT_EQ(KeysOfTerminal("\x1B[15~q"), Keys{ 'q' });         // F5
    EXPECT_EQ(KeysOfTerminal("\x1B[1;5Cq"), Keys{ 'q' });        // right with Ctrl
    EXPECT_EQ(KeysOfTerminal("\x1B[1;"), Keys());                // cut off
    EXPECT_EQ(KeysOfTerminal("\xC3\xA9"), (Keys{ 0xC3, 0xA9 })); // bytes of other characters mean nothing
}

} // namespace
} // namespace orvane::player
