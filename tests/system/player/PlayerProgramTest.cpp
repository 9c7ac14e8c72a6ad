// The player's console program against the real host.
#include "system/HostProcess.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace orvane::tests {
namespace {

struct Finished {
    std::optional<int> exitCode;
    std::string text;
};

Finished RunPlayer(const std::wstring& arguments) {
    ChildProcess player;
    if (!player.Start(ProgramBeside(L"orvane-player.exe"), arguments)) return {};
    const auto exitCode = player.WaitForExit();
    std::string text = player.Text();
    std::erase(text, '\r');
    return { exitCode, text };
}

TEST(PlayerProgram, SendsOneRequestAndPrintsTheReply) {
    HostProcess host;
    ASSERT_TRUE(host.Serve());
    const Finished move = RunPlayer(L"request MOVW");
    EXPECT_EQ(move.exitCode, 0);
    EXPECT_EQ(move.text, "> MOVW 4 bytes\n< 2 bytes  4F4B OK\n");

    const Finished tooShort = RunPlayer(L"request PUL");
    EXPECT_EQ(tooShort.exitCode, 0);
    EXPECT_EQ(tooShort.text, "> PUL 3 bytes\n"
                             "< 33 bytes\n"
                             "  4E6F2069 6E707574 206D6573 73616765 No input message\n"
                             "  2E204275 66666572 2073697A 65203D20 . Buffer size = \n"
                             "  33                                  3\n");

    const Finished start = RunPlayer(L"request STRT --hex \"00 01 02\" --timeout 30");
    EXPECT_EQ(start.exitCode, 0);
    EXPECT_EQ(start.text, "> STRT 7 bytes\n< 5 bytes  53746172 74 Start\n");
}

TEST(PlayerProgram, SendsAnEmptyRequest) {
    HostProcess host;
    ASSERT_TRUE(host.Serve());
    const Finished empty = RunPlayer(L"request \"\" --timeout 0.2");
    EXPECT_EQ(empty.exitCode, 4);
    EXPECT_EQ(empty.text,
              "> \"\" 0 bytes\n"
              "< (no reply)\n"
              "No reply came in time. Give the host more time with --timeout SECONDS, or see what "
              "its console says.\n");
}

TEST(PlayerProgram, TellsThatThereIsNoHost) {
    const Finished player = RunPlayer(L"request DRAW --timeout 0.1");
    EXPECT_EQ(player.exitCode, 2);
    EXPECT_EQ(player.text,
              "No host has opened \\\\.\\pipe\\Visualizer. Start orvane-visualizer.exe, then try "
              "again.\n");
}

TEST(PlayerProgram, TellsThatAnotherPlayerIsServed) {
    HostProcess host;
    ASSERT_TRUE(host.Serve());
    const player::PipeClient other = ConnectToHost();
    ASSERT_TRUE(other.IsConnected());
    const Finished player = RunPlayer(L"request DRAW --timeout 0.1");
    EXPECT_EQ(player.exitCode, 3);
    EXPECT_EQ(player.text, "The host serves another player. Close that player or give it time with --timeout "
                           "SECONDS.\n");
}

TEST(PlayerProgram, RefusesArgumentsThatMakeNoSense) {
    for (const auto arguments : { L"--nonsense", L"request", L"nonsense", L"request DRAW --hex 0",
                                  L"converse no-such-script.txt", L"request DRAW --text a --hex 00" }) {
        const Finished player = RunPlayer(arguments);
        EXPECT_EQ(player.exitCode, 1) << player.text;
        EXPECT_NE(player.text, "");
    }
}

// Every request of the protocol, an unknown tag, a request of three bytes and a reconnection, once each.
TEST(PlayerProgram, PlaysTheConversation) {
    HostProcess host;
    ASSERT_TRUE(host.Serve());
    const std::string script = ORVANE_CONVERSATION;
    const Finished player = RunPlayer(L"converse \"" + std::wstring(script.begin(), script.end()) + L"\"");
    EXPECT_EQ(player.exitCode, 0) << player.text;
    for (const auto tag : { "UPVM", "PULS", "KEYI", "SWND", "SWSV", "HWND", "NTFS", "XTFS", "PM2C", "DCTV",
                            "STRT", "DRAW", "IDLE", "STOP", "MOVW", "RSHP", "ACTV", "NOAR", "AR13", "AR14" })
        EXPECT_EQ(Count(player.text, std::string("> ") + tag + " "), 1) << tag;
    EXPECT_EQ(Count(player.text, "< 11 bytes  4E6F7420 68616E64 6C6564 Not handled\n"), 1) << player.text;
    EXPECT_EQ(Count(player.text, "  2E204275 66666572 2073697A 65203D20 . Buffer size = \n"), 1);
    EXPECT_EQ(Count(player.text, "> reconnect\n< (connected)\n"), 1);
    EXPECT_EQ(Count(host.Text(), "ServeConnection:Pipe is broken. Will atempt to create a new one.\n") >= 1,
              true);
}

} // namespace
} // namespace orvane::tests
