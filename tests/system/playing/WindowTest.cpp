// The player, the real host and a module that keeps a log: the whole way from a song to a picture.
#include "orvane_plugin.h"
#include "support/ModuleLog.h"
#include "system/playing/PlayingTest.h"

#include <array>

namespace orvane::tests {
namespace {

namespace fs = std::filesystem;

constexpr char kFirstLines[] = "Playing: long\nVisualizer: recorder\n";
constexpr char kGoneLine[] = "The visualizer host is gone: starting it again.\n";

// The host's top-level window; null while there is none.
HWND HostWindow() {
    return FindWindowW(L"ORVANE OOPWIND", nullptr);
}

HWND ProxyWindow() {
    return GetWindow(HostWindow(), GW_CHILD);
}

// Copies of both programs with one module between them.
class WindowTest : public PlayingTest {
protected:
    WindowTest() {
        fs::create_directories(mFolder / "Plug-ins");
        fs::copy_file(fs::path(OwnProgram()).parent_path() / "modules" / "recorder.dll",
                      mFolder / "Plug-ins" / "recorder.dll", fs::copy_options::overwrite_existing);
        mPlayerProgram = CopyProgram(L"orvane-player.exe", "orvane-player.exe");
        (void)CopyProgram(L"orvane-visualizer.exe", "orvane-visualizer.exe");
    }

    void Start(const std::wstring& arguments) {
        const StartOptions options{ .variables = { { L"ORVANE_MODULE_LOG", mLog.wstring() } },
                                    .input = true };
        ASSERT_TRUE(StartPlayer(
            mPlayer, L"--visualizer recorder " + arguments + L" " + Quoted(WriteTone("long.wav", 600)),
            options, mPlayerProgram.wstring()));
    }

    [[nodiscard]] std::size_t Calls(std::uint32_t message) const {
        return CallsOf(ReadModuleLog(mLog), ModuleCall::Kind::Handler, message).size();
    }

    void WaitForPulses(std::size_t count) {
        ASSERT_TRUE(WaitUntil([&] { return Calls(ORVANE_MSG_PULSE) >= count; })) << mPlayer.Text();
    }

    // It ends well, having said these lines and its summary.
    void ExpectEnd(const std::string& lines) {
        const Played played = Finish(mPlayer);
        EXPECT_EQ(played.exitCode, 0) << played.text;
        EXPECT_EQ(WithoutSummary(played.text), lines);
        EXPECT_TRUE(WaitUntil([] { return HostWindow() == nullptr; })); // the host has gone with it
    }

    const fs::path mLog = mFolder / "module.log";
    fs::path mPlayerProgram;
    ChildProcess mPlayer;
};

TEST_F(WindowTest, ShowsEveryFrameInTheHostThatItStarted) {
    ASSERT_NO_FATAL_FAILURE(Start(L"--seconds 1"));
    const Played played = Finish(mPlayer);
    EXPECT_EQ(played.exitCode, 0) << played.text;
    EXPECT_EQ(WithoutSummary(played.text), kFirstLines);
    EXPECT_EQ(FramesPlayed(played.text), Calls(ORVANE_MSG_PULSE));
    EXPECT_GT(Calls(ORVANE_MSG_PULSE), 5u);
    EXPECT_LE(Calls(ORVANE_MSG_PULSE), 62u); // sixty a second, the first at once, and one that was on its way
    EXPECT_EQ(Calls(ORVANE_MSG_ACTIVATE), 1u);
    EXPECT_EQ(Calls(ORVANE_MSG_STOP), 1u);
    EXPECT_EQ(Calls(ORVANE_MSG_DEACTIVATE), 1u);
    EXPECT_EQ(HostWindow(), nullptr);
}

TEST_F(WindowTest, NamesTheTrackInTheTitle) {
    ASSERT_NO_FATAL_FAILURE(Start(L"--artist Somebody"));
    ASSERT_NO_FATAL_FAILURE(WaitForPulses(3));
    std::array<wchar_t, 100> title = {};
    GetWindowTextW(HostWindow(), title.data(), int(title.size()));
    EXPECT_EQ(std::wstring(title.data()), L"long - Somebody");
    EXPECT_TRUE(IsWindowVisible(HostWindow()));
    ASSERT_TRUE(mPlayer.Type("q"));
    ExpectEnd("Playing: long - Somebody\nVisualizer: recorder\n");
}

TEST_F(WindowTest, EndsByEscapeTypedInTheWindow) {
    ASSERT_NO_FATAL_FAILURE(Start(L""));
    ASSERT_NO_FATAL_FAILURE(WaitForPulses(3));
    PostMessageW(ProxyWindow(), WM_CHAR, 0x1B, 1);
    ExpectEnd(kFirstLines);
}

TEST_F(WindowTest, EndsByTheCloseBox) {
    ASSERT_NO_FATAL_FAILURE(Start(L""));
    ASSERT_NO_FATAL_FAILURE(WaitForPulses(3));
    PostMessageW(HostWindow(), WM_NCLBUTTONDOWN, HTCLOSE, 0);
    ExpectEnd(kFirstLines);
}

TEST_F(WindowTest, FillsTheScreenAndLeavesIt) {
    const auto fillsScreen = [] {
        RECT place = {};
        GetWindowRect(HostWindow(), &place);
        return place.right - place.left == GetSystemMetrics(SM_CXSCREEN) &&
               place.bottom - place.top == GetSystemMetrics(SM_CYSCREEN);
    };
    ASSERT_NO_FATAL_FAILURE(Start(L"--full-screen --monitor 1"));
    ASSERT_NO_FATAL_FAILURE(WaitForPulses(3));
    EXPECT_TRUE(WaitUntil(fillsScreen));
    ASSERT_TRUE(mPlayer.Type("f"));
    EXPECT_TRUE(WaitUntil([&] { return !fillsScreen(); }));
    ASSERT_TRUE(mPlayer.Type("q"));
    ExpectEnd(kFirstLines);
}

TEST_F(WindowTest, StartsAHostAgainThatWasKilled) {
    ASSERT_NO_FATAL_FAILURE(Start(L""));
    ASSERT_NO_FATAL_FAILURE(WaitForPulses(3));
    DWORD id = 0;
    GetWindowThreadProcessId(HostWindow(), &id);
    const auto host = player::Adopt(OpenProcess(PROCESS_TERMINATE, FALSE, id));
    ASSERT_TRUE(TerminateProcess(host.get(), 3));
    ASSERT_TRUE(WaitUntil([&] { return Calls(ORVANE_MSG_ACTIVATE) == 2; })) << mPlayer.Text();
    ASSERT_NO_FATAL_FAILURE(WaitForPulses(Calls(ORVANE_MSG_PULSE) + 3));
    ASSERT_TRUE(mPlayer.Type("q"));
    ExpectEnd(std::string(kFirstLines) + kGoneLine + "Visualizer: recorder\n");
}

// A host whose window is destroyed goes on without one: to the user it is gone.
TEST_F(WindowTest, StartsAHostAgainThatLostItsWindow) {
    ASSERT_NO_FATAL_FAILURE(Start(L""));
    ASSERT_NO_FATAL_FAILURE(WaitForPulses(3));
    PostMessageW(HostWindow(), WM_CLOSE, 0, 0);
    ASSERT_TRUE(WaitUntil([&] { return Calls(ORVANE_MSG_ACTIVATE) == 2; })) << mPlayer.Text();
    ASSERT_TRUE(mPlayer.Type("q"));
    ExpectEnd(std::string(kFirstLines) + kGoneLine + "Visualizer: recorder\n");
}

TEST_F(WindowTest, GivesUpWhenTheWindowIsLostTwice) {
    ASSERT_NO_FATAL_FAILURE(Start(L""));
    for (std::size_t time = 1; time <= 2; ++time) {
        ASSERT_TRUE(WaitUntil([&] { return Calls(ORVANE_MSG_ACTIVATE) == time && HostWindow(); }))
            << mPlayer.Text();
        ASSERT_NO_FATAL_FAILURE(WaitForPulses(Calls(ORVANE_MSG_PULSE) + 3));
        PostMessageW(HostWindow(), WM_CLOSE, 0, 0);
    }
    const Played played = Finish(mPlayer);
    EXPECT_EQ(played.exitCode, 5);
    EXPECT_EQ(WithoutSummary(played.text),
              std::string(kFirstLines) + kGoneLine + "Visualizer: recorder\n" +
                  "The visualizer host is gone again. Try another visualizer with --visualizer NAME.\n");
}

} // namespace
} // namespace orvane::tests
