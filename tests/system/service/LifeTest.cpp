// Start and end of the host process.
#include "system/HostProcess.h"
#include "system/service/Expected.h"
#include "system/service/Roles.h"

#include <gtest/gtest.h>

#include <chrono>

namespace orvane::tests {
namespace {

using namespace std::chrono_literals;

TEST(HostLife, TheExitCodeIsThatOfWmQuit) {
    HostProcess host;
    ASSERT_TRUE(host.Serve());
    EXPECT_EQ(host.Quit(7), 7);
    EXPECT_EQ(host.Text(), ExpectedStart() + ExpectedEnd());
}

TEST(HostLife, EndsAlsoWhileAClientIsConnected) {
    HostProcess host;
    ASSERT_TRUE(host.Serve());
    player::PipeClient client = ConnectToHost();
    ASSERT_TRUE(client.Exchange(WireBuilder().Raw("DRAW").Get(), kPatience).outcome);
    EXPECT_EQ(host.Quit(3), 3);
    EXPECT_EQ(client.Exchange(WireBuilder().Raw("DRAW").Get(), kPatience).outcome.failure,
              player::Failure::kConnectionLost);
    EXPECT_EQ(client.Connect(0ms).failure, player::Failure::kHostNotFound);
}

TEST(HostLife, StaysWhenItsClientGoesAway) {
    HostProcess host;
    ASSERT_TRUE(host.Serve());
    ASSERT_TRUE(ConnectToHost().IsConnected());
    ASSERT_TRUE(host.WaitForText(kWaitingForClient, 2));
    EXPECT_TRUE(host.IsRunning());
    EXPECT_EQ(host.Quit(), 0);
}

TEST(HostLife, WithoutItsPipeItEndsWithMinusOneAndStartsNoService) {
    const auto other = player::Adopt(CreateNamedPipeW(player::kVisualizerPipe, PIPE_ACCESS_DUPLEX,
                                                      PIPE_TYPE_MESSAGE, 1, 0, 0, 0, nullptr));
    ASSERT_TRUE(other);
    HostProcess host;
    ASSERT_TRUE(host.Launch());
    EXPECT_EQ(host.WaitForExit(), -1);
    EXPECT_EQ(host.Text(), ExpectedPreparation() +
                               "CreateNamedPipe failed during initialization of the server. Error 231\n");
}

// Whether the process has a console, asked by a process that has none of its own.
std::optional<int> AttachToConsoleOf(const HostProcess& host) {
    ChildProcess asker;
    const std::wstring arguments = std::wstring(kAttachConsoleRole) + L" " + std::to_wstring(host.Id());
    if (!asker.Start(OwnProgram(), arguments, { .flags = DETACHED_PROCESS })) return std::nullopt;
    return asker.WaitForExit();
}

constexpr int kHasConsole = 0;
constexpr int kHasNone = 1;

TEST(HostConsole, TheSwitchOpensOneWhereverItStands) {
    for (const auto arguments : { L"-c", L"one two -c" }) {
        HostProcess host;
        ASSERT_TRUE(host.Serve(arguments));
        EXPECT_EQ(AttachToConsoleOf(host), kHasConsole) << std::wstring(arguments).size();
        EXPECT_EQ(host.Quit(), 0);
    }
}

TEST(HostConsole, NoOtherArgumentOpensOne) {
    for (const auto arguments : { L"", L"-C", L"-cc", L"/c c --c" }) {
        HostProcess host;
        ASSERT_TRUE(host.Serve(arguments));
        EXPECT_EQ(AttachToConsoleOf(host), kHasNone) << std::wstring(arguments).size();
        EXPECT_EQ(host.Quit(), 0);
    }
}

} // namespace
} // namespace orvane::tests
