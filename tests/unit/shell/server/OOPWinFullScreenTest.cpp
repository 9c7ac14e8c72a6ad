// Full screen, and the keys that the window server takes.
#include "records/PulseEvents.h"
#include "support/windows/WindowServer.h"

namespace orvane::tests {
namespace {

class FullScreen : public WindowServer {
protected:
    void SetUp() override {
        MakeWindows();
        SetWindowPos(Window(), nullptr, 120, 60, 700, 500, SWP_NOZORDER | SWP_NOACTIVATE);
        mWindowed = Values(WindowRectOf(Window()));
    }

    static std::vector<long> Screen() {
        return { 0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN) };
    }

    [[nodiscard]] bool IsTopmost() const {
        return (GetWindowLongW(Window(), GWL_EXSTYLE) & WS_EX_TOPMOST) != 0;
    }

    std::vector<long> mWindowed;
    int mCursor = CursorCount();
};

TEST_F(FullScreen, ByRequestCoversTheMonitorWithoutACursorAndGoesBack) {
    EXPECT_EQ(Ask("NTFS"), "OK");
    EXPECT_EQ(said, "OOPWinPipeServer EnterFullscreen\n");
    EXPECT_TRUE(server.IsFullScreen());
    EXPECT_EQ(Values(WindowRectOf(Window())), Screen());
    EXPECT_TRUE(IsTopmost());
    EXPECT_EQ(CursorCount(), mCursor - 1);

    EXPECT_EQ(Ask("XTFS"), "OK");
    EXPECT_EQ(said, "OOPWinPipeServer ExitFullscreen\n");
    EXPECT_FALSE(server.IsFullScreen());
    EXPECT_EQ(Values(WindowRectOf(Window())), mWindowed);
    EXPECT_FALSE(IsTopmost());
    EXPECT_EQ(CursorCount(), mCursor);
}

TEST_F(FullScreen, EnteringTwiceChangesNothingTheSecondTime) {
    server.SetFullScreen(true);
    server.SetFullScreen(true);
    EXPECT_EQ(CursorCount(), mCursor - 1);
    EXPECT_EQ(Values(WindowRectOf(Window())), Screen());
    server.SetFullScreen(false);
    EXPECT_EQ(CursorCount(), mCursor) << "shown once";
    EXPECT_EQ(Values(WindowRectOf(Window())), mWindowed);
}

TEST_F(FullScreen, LeavingWithoutHavingEnteredChangesNothing) {
    server.SetFullScreen(false);
    EXPECT_EQ(CursorCount(), mCursor);
    EXPECT_EQ(Values(WindowRectOf(Window())), mWindowed);
}

TEST_F(FullScreen, TogglingGoesInAndOut) {
    server.ToggleFullScreen();
    EXPECT_TRUE(server.IsFullScreen());
    server.ToggleFullScreen();
    EXPECT_FALSE(server.IsFullScreen());
    EXPECT_EQ(Values(WindowRectOf(Window())), mWindowed);
    EXPECT_EQ(CursorCount(), mCursor);
}

TEST_F(FullScreen, AWindowThatIsGoneIsLeftAlone) {
    DestroyWindow(Window());
    EXPECT_EQ(Ask("NTFS"), "OK");
    EXPECT_FALSE(server.IsFullScreen());
    EXPECT_EQ(CursorCount(), mCursor);
}

TEST_F(FullScreen, AWindowThatGoesMeanwhileStillGivesTheCursorBack) {
    server.SetFullScreen(true);
    DestroyWindow(Window());
    EXPECT_EQ(Ask("XTFS"), "OK");
    EXPECT_FALSE(server.IsFullScreen());
    EXPECT_EQ(CursorCount(), mCursor);
}

// The size stays as it is, so no size message comes by itself, and the proxy window would keep its old place.
TEST_F(FullScreen, AWindowThatHasTheMonitorsSizeAlreadyIsToldItsSize) {
    SetWindowPos(Window(), nullptr, 0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN), 0);
    for (const bool on : { true, false }) {
        MSG message = {};
        while (PeekMessageW(&message, Window(), 0, 0, PM_REMOVE)) {}
        server.SetFullScreen(on);
        ASSERT_TRUE(PeekMessageW(&message, Window(), WM_SIZE, WM_SIZE, PM_REMOVE)) << on;
        EXPECT_EQ(message.lParam, MAKELPARAM(GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)));
    }
}

// Keys.

using Keys = WindowServer;

TEST_F(Keys, ACharacterGoesToTheCurrentVisualizer) {
    MakeWindows();
    MakeCurrent();
    Log().keyResult = true;
    EXPECT_TRUE(server.HandleKey(0x263A, 0x1E0001));
    EXPECT_EQ(Log().calls, Calls{ "KeyInput(1, 0)" });
    EXPECT_EQ(Log().characters, u"\u263A");
    EXPECT_EQ(console.Text(), "");
    EXPECT_EQ(Ask("PULS"), std::string(4, '\0'));
}

TEST_F(Keys, ACharacterThatIsNotTakenIsLeftForThePlayerWithItsParameter) {
    MakeWindows();
    MakeCurrent();
    BYTE before[256] = {}, keys[256] = {};
    GetKeyboardState(before);
    keys[VK_CONTROL] = 0x80;
    SetKeyboardState(keys);
    EXPECT_FALSE(server.HandleKey('a', 0x1E0001));
    SetKeyboardState(before);
    EXPECT_EQ(records::sKeyEventState, 1u);
    EXPECT_EQ(records::sKeyEventCode, 0x61u);
    EXPECT_EQ(records::sKeyEventParam, 0x1E0001u);
    EXPECT_TRUE(
        console.Text() == "OOPWindowProc::HandleKey. controlKeyState 0xFFFFFF80 shiftKeyState 0x0. \n" ||
        console.Text() == "OOPWindowProc::HandleKey. controlKeyState 0xFFFF8000 shiftKeyState 0x0. \n")
        << console.Text();
}

TEST_F(Keys, ASecondCharacterBeforeThePulseOverwritesTheFirst) {
    MakeWindows();
    MakeCurrent();
    server.HandleKey('a', 1);
    server.HandleKey('b', 2);
    EXPECT_EQ(Ask("PULS"), AsText(WireBuilder().U32(0).U32(0x4B455943).U32('b').U32(2).Get()));
    EXPECT_EQ(Ask("PULS"), std::string(4, '\0'));
}

TEST_F(Keys, WithoutAVisualizerACharacterHasItsLineAndIsLeftToNobody) {
    MakeWindows();
    EXPECT_FALSE(server.HandleKey('a', 1));
    EXPECT_EQ(console.Text(), "OOPWinPipeServer::Current plugin is null. Cannot take key input\n");
    EXPECT_EQ(records::sKeyEventState, 0u);
    EXPECT_EQ(Ask("PULS"), std::string(4, '\0'));
}

TEST_F(Keys, ACharacterWaitsUntilTheLockIsFree) {
    MakeWindows();
    MakeCurrent();
    const platform::OwnedLock lock(server.mPluginLock);
    EXPECT_THROW(server.HandleKey('a', 1), std::system_error) << "it takes the lock, and this thread has it";
    EXPECT_EQ(Log().calls, Calls{});
}

} // namespace
} // namespace orvane::tests
