// The player and the process that it finds or starts as its host.
#include "system/HostProcess.h"
#include "system/playing/PlayingTest.h"
#include "system/playing/WitnessHost.h"

#include <psapi.h>

#include <array>
#include <vector>

namespace orvane::tests {
namespace {

constexpr char kGoneLine[] = "The visualizer host is gone: starting it again.\n";

// Full paths of all processes.
std::vector<std::pair<DWORD, std::wstring>> Processes() {
    std::vector<std::pair<DWORD, std::wstring>> processes;
    std::array<DWORD, 4096> ids;
    DWORD bytes = 0;
    if (!EnumProcesses(ids.data(), sizeof(ids), &bytes)) return processes;
    for (std::size_t i = 0; i < bytes / sizeof(DWORD); ++i) {
        const auto process = player::Adopt(OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, ids[i]));
        std::wstring path(MAX_PATH, L'\0');
        DWORD length = DWORD(path.size());
        if (!process || !QueryFullProcessImageNameW(process.get(), 0, path.data(), &length)) continue;
        path.resize(length);
        processes.emplace_back(ids[i], path);
    }
    return processes;
}

// Those hosts that run; 0 for none.
DWORD RunningHost() {
    for (const auto& [id, path] : Processes())
        if (path.ends_with(L"\\orvane-visualizer.exe")) return id;
    return 0;
}

class HostTest : public PlayingTest {};

// This folder's host lists no plug-ins of its own, so there may be nothing to show; the list is what tells.
TEST_F(HostTest, StartsAHostAndEndsItAgain) {
    ASSERT_EQ(RunningHost(), 0u);
    const Played listed = Play(L"--list");
    EXPECT_EQ(listed.exitCode, 0) << listed.text;
    EXPECT_EQ(RunningHost(), 0u);
}

TEST_F(HostTest, LeavesAHostThatWasThereRunning) {
    HostProcess host;
    ASSERT_TRUE(host.Serve());
    EXPECT_EQ(Play(L"--list").exitCode, 0);
    EXPECT_TRUE(host.IsRunning());
    EXPECT_EQ(host.Quit(), 0);
}

TEST_F(HostTest, TellsThatAnotherPlayerIsServed) {
    HostProcess host;
    ASSERT_TRUE(host.Serve());
    const player::PipeClient other = ConnectToHost();
    ASSERT_TRUE(other.IsConnected());
    const Played played = Play(Quoted(WriteTone("tone.wav", 1)));
    EXPECT_EQ(played.exitCode, 3);
    EXPECT_EQ(played.text, "The visualizer host serves another player: close that player, then try again.\n");
}

TEST_F(HostTest, TellsThatThereIsNoProgramToStart) {
    const auto lonely = CopyProgram(L"orvane-player.exe", "lonely-player.exe");
    const Played played = Play(Quoted(WriteTone("tone.wav", 1)), lonely.wstring());
    EXPECT_EQ(played.exitCode, 2);
    EXPECT_EQ(
        played.text,
        "There is no visualizer host: put orvane-visualizer.exe into the folder of orvane-player.exe.\n");
}

TEST_F(HostTest, TellsThatTheHostEndsAtOnce) {
    const auto player = CopyProgram(L"orvane-player.exe", "orvane-player.exe");
    (void)CopyProgram(L"odd-host.exe", "orvane-visualizer.exe");
    ChildProcess process;
    ASSERT_TRUE(StartPlayer(process, Quoted(WriteTone("tone.wav", 1)),
                            { .variables = { { L"ORVANE_ODD_HOST", L"7" } } }, player.wstring()));
    const Played played = Finish(process);
    EXPECT_EQ(played.exitCode, 2);
    EXPECT_EQ(played.text,
              "The visualizer host can't be started (system error 7): run orvane-visualizer.exe by hand.\n");
}

// Another program makes the pipe before the host that was started does: it gets nothing of what is played.
TEST_F(HostTest, TurnsAwayAServerThatItDidNotStart) {
    const auto player = CopyProgram(L"orvane-player.exe", "orvane-player.exe");
    (void)CopyProgram(L"odd-host.exe", "orvane-visualizer.exe");
    const auto started = player::Adopt(CreateEventW(nullptr, TRUE, FALSE, L"OrvaneOddHost"));
    ChildProcess process;
    ASSERT_TRUE(StartPlayer(process, Quoted(WriteTone("tone.wav", 1)), {}, player.wstring()));
    ASSERT_EQ(WaitForSingleObject(started.get(), DWORD(kPatience.count())), WAIT_OBJECT_0);
    const WitnessHost impostor;
    ASSERT_TRUE(impostor.IsThere());
    const Played played = Finish(process);
    EXPECT_EQ(played.exitCode, 6);
    EXPECT_EQ(played.text,
              "Another program answers in the visualizer host's place: close it, then try again.\n");
    EXPECT_EQ(impostor.Tags(), std::vector<std::string>());
    EXPECT_EQ(RunningHost(), 0u); // nor is the odd one left
}

TEST_F(HostTest, TellsWhatIsWrongWithASongBeforeAnyHostIsStarted) {
    const Played missing = Play(L"no-such-song.wav");
    EXPECT_EQ(missing.exitCode, 1);
    EXPECT_EQ(missing.text, "There is no file \"no-such-song.wav\": check its name.\n");

    const auto text = Write("text.mp3", "This is no music.\n");
    const Played noSound = Play(Quoted(text));
    EXPECT_EQ(noSound.exitCode, 1);
    EXPECT_EQ(noSound.text, NoSoundLine(text));

    const Played noPicture = Play(L"--artwork nothing.png " + Quoted(WriteTone("tone.wav", 1)));
    EXPECT_EQ(noPicture.exitCode, 1);
    EXPECT_EQ(noPicture.text, "There is no picture \"nothing.png\": check the name behind --artwork.\n");

    const auto large = Write("large.png", std::string(0x100000 - 3, 'x')); // a byte more than fits
    const Played tooLarge = Play(L"--artwork " + Quoted(large) + L" " + Quoted(WriteTone("tone.wav", 1)));
    EXPECT_EQ(tooLarge.exitCode, 1);
    EXPECT_EQ(tooLarge.text, std::string("The picture \"")
                                 .append(large.string())
                                 .append("\" is larger than 1 MiB: make it smaller.\n"));
}

// A host that breaks off: a real one takes its place, if it has something to show.
TEST_F(HostTest, SaysThatItStartsTheHostAgain) {
    ChildProcess player;
    {
        WitnessHost host({}, 5);
        ASSERT_TRUE(host.IsThere());
        ASSERT_TRUE(StartPlayer(player, L"--seconds 2 " + Quoted(WriteTone("long.wav", 600))));
        ASSERT_TRUE(player.WaitForText("is gone"));
    }
    const Played played = Finish(player);
    ASSERT_TRUE(played.exitCode);
    EXPECT_EQ(Count(played.text, kGoneLine), 1) << played.text;
    EXPECT_EQ(RunningHost(), 0u);
}

} // namespace
} // namespace orvane::tests
