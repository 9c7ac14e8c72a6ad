// The windows in a user's hands: the boxes of the strip, dragging, full screen, keys, closing.
#include "system/windows/WindowsTest.h"

namespace orvane::tests {
namespace {

using Use = WindowsTest;

// The middle of a box, for a window with that rectangle.
int BoxX(const std::vector<long>& rect, int inset) {
    return int(rect[2]) - inset - 12;
}

int BoxY(const std::vector<long>& rect) {
    return int(rect[1]) + 18;
}

constexpr int kCloseInset = 18, kZoomInset = 64;

TEST_F(Use, TheStripsBoxMaximisesAndRestores) {
    Show();
    const auto windowed = RectOf(mWindow);
    ClickAt(BoxX(windowed, kZoomInset), BoxY(windowed));
    EXPECT_TRUE(WaitUntil([&] { return IsZoomed(mWindow) != FALSE; }));
    EXPECT_TRUE(mHost->WaitForText("OOPWindowProc:SYSTEMCOMMAND:SC_MAXIMIZE\n"));
    const auto maximised = RectOf(mWindow);
    EXPECT_GT(maximised[2] - maximised[0], 1000);
    EXPECT_TRUE(WaitUntil([&] {
        return RectInParent(mProxy) ==
               std::vector<long>{ 4, 34, maximised[2] - maximised[0] - 4, maximised[3] - maximised[1] - 4 };
    }));

    ClickAt(BoxX(maximised, kZoomInset), BoxY(maximised));
    EXPECT_TRUE(WaitUntil([&] { return !IsZoomed(mWindow); }));
    EXPECT_TRUE(mHost->WaitForText("OOPWindowProc:SYSTEMCOMMAND:SC_RESTORE\n"));
    EXPECT_EQ(RectOf(mWindow), windowed);
    EXPECT_TRUE(WaitUntil([&] { return RectInParent(mProxy) == std::vector<long>{ 4, 34, 996, 796 }; }));
}

TEST_F(Use, APostedCommandMinimisesAndTheNextRestores) {
    Show();
    SelectExample();
    PostMessageW(mWindow, WM_SYSCOMMAND, SC_MINIMIZE, 0);
    EXPECT_TRUE(WaitUntil([&] { return IsIconic(mWindow) != FALSE; }));
    EXPECT_TRUE(mHost->WaitForText("OOPWindowProc:SYSTEMCOMMAND:SC_MINIMIZE\n"));
    for (int i = 0; i < 10; ++i) EXPECT_EQ(Pulse(), std::string(4, '\0'));
    PostMessageW(mWindow, WM_SYSCOMMAND, SC_RESTORE, 0);
    EXPECT_TRUE(WaitUntil([&] { return !IsIconic(mWindow); }));
    EXPECT_TRUE(WaitUntil([&] { return RectInParent(mProxy) == std::vector<long>{ 4, 34, 996, 796 }; }));
}

TEST_F(Use, TheCloseBoxTellsThePlayerAndLeavesTheWindow) {
    Show();
    const auto rect = RectOf(mWindow);
    ClickAt(BoxX(rect, kCloseInset), BoxY(rect));
    std::string reply;
    EXPECT_TRUE(WaitUntil([&] { return (reply = Pulse()).size() > 4; }));
    EXPECT_EQ(reply, std::string(4, '\0') + "WSLC");
    EXPECT_TRUE(IsWindowVisible(mWindow));
    EXPECT_EQ(Ask("HWND"), "OK");
    EXPECT_FALSE(IsWindowVisible(mWindow));
}

TEST_F(Use, DraggingTheCornerSizesTheProxyWithIt) {
    Show();
    SelectExample();
    const auto before = RectOf(mWindow);
    MoveMouse(int(before[2]) - 2, int(before[3]) - 2);
    PressMouse();
    for (int step = 1; step <= 10; ++step) {
        MoveMouse(int(before[2]) - 2 - 20 * step, int(before[3]) - 2 - 15 * step);
        EXPECT_EQ(Pulse(), std::string(4, '\0')) << "a pulse goes on meanwhile";
    }
    EXPECT_TRUE(WaitUntil([&] { return RectOf(mWindow)[2] == before[2] - 200; })) << RectOf(mWindow)[2];
    ReleaseMouse();
    const auto after = RectOf(mWindow);
    EXPECT_EQ(after, (std::vector<long>{ before[0], before[1], before[2] - 200, before[3] - 150 }));
    EXPECT_TRUE(WaitUntil([&] { return RectInParent(mProxy) == std::vector<long>{ 4, 34, 796, 646 }; }));
}

TEST_F(Use, PostedWorkIsNotLostWhileTheWindowIsDragged) {
    constexpr int kRequests = 100;
    Show();
    const auto before = RectOf(mWindow);
    const int x = int(before[0]) + 300, y = int(before[1]) + 15;
    MoveMouse(x, y);
    PressMouse();
    MoveMouse(x + 40, y + 30);
    ASSERT_TRUE(WaitUntil([&] { return RectOf(mWindow)[0] == before[0] + 40; })) << "it isn't being dragged";
    for (int i = 0; i < kRequests; ++i) EXPECT_EQ(Ask("IDLE"), "OK");
    EXPECT_TRUE(mHost->WaitForText("Current plugin is null. Cannot idle\n", kRequests));
    EXPECT_EQ(Ask(ActivateRequest(kExampleName)), "PRXY");
    EXPECT_TRUE(WaitUntil([&] { return TitleOf(mWindow) == L"Orvane Oscilloscope"; }))
        << "while the button is down";
    MoveMouse(x + 50, y + 30);
    EXPECT_TRUE(WaitUntil([&] { return RectOf(mWindow)[0] == before[0] + 50; })) << "still being dragged";
    ReleaseMouse();
    EXPECT_EQ(Ask("DRAW"), "OK");
}

TEST_F(Use, FullScreenByRequestCoversTheScreenAndGoesBack) {
    Show();
    const auto windowed = RectOf(mWindow);
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(Ask("NTFS"), "OK");
        EXPECT_EQ(RectOf(mWindow), ScreenRect());
        EXPECT_EQ(RectOf(mProxy), ScreenRect());
    }
    EXPECT_EQ(Ask("XTFS"), "OK");
    EXPECT_EQ(RectOf(mWindow), windowed);
    EXPECT_EQ(RectInParent(mProxy), (std::vector<long>{ 4, 34, 996, 796 }));
    EXPECT_EQ(Count(mHost->Text(), "OOPWindowProc::WM_SIZE is in full screen\n"), 1);
}

// Whether the thread that has the keyboard shows its cursor.
bool CursorIsShown() {
    CURSORINFO info = {};
    info.cbSize = sizeof(info);
    EXPECT_TRUE(GetCursorInfo(&info));
    return (info.flags & CURSOR_SHOWING) != 0;
}

const std::string kNothingToTell(4, '\0');

class Keyboard : public WindowsTest {
protected:
    void SetUp() override {
        ASSERT_NO_FATAL_FAILURE(WindowsTest::SetUp());
        SelectExample();
        mWindowed = RectOf(mWindow);
        ClickAt(int(mWindowed[0]) + 300, int(mWindowed[1]) + 15); // the strip: the window gets the keyboard
        EXPECT_TRUE(WaitUntil([&] { return GetForegroundWindow() == mWindow; }));
    }

    // The reply to the first pulse that has something to tell.
    std::string NextNews() {
        std::string reply;
        EXPECT_TRUE(WaitUntil([&] { return (reply = Pulse()).size() > 4; }));
        return reply;
    }

    // `toggle` leads into full screen and back, and leaves the player nothing to be told.
    template <typename Toggle>
    void ExpectToggles(Toggle toggle) {
        EXPECT_TRUE(CursorIsShown());
        toggle();
        EXPECT_TRUE(WaitUntil([&] { return RectOf(mProxy) == ScreenRect(); }));
        EXPECT_EQ(RectOf(mWindow), ScreenRect());
        EXPECT_TRUE(WaitUntil([&] { return !CursorIsShown(); }));
        toggle();
        EXPECT_TRUE(WaitUntil([&] { return RectInParent(mProxy) == std::vector<long>{ 4, 34, 996, 796 }; }));
        EXPECT_EQ(RectOf(mWindow), mWindowed);
        EXPECT_TRUE(CursorIsShown());
        EXPECT_EQ(Pulse(), kNothingToTell);
    }

    std::vector<long> mWindowed;
};

TEST_F(Keyboard, CtrlFTogglesFullScreenAndTellsThePlayerNothing) {
    ExpectToggles([] { Type({ VK_CONTROL, 'F' }); });
}

// As the character that the system makes of it. The key itself is also watched by some graphics libraries, which
// make a window that they draw on full screen by themselves.
TEST_F(Keyboard, AltEnterInEitherWindowTogglesFullScreenAndTellsThePlayerNothing) {
    constexpr LPARAM kEnterWithAlt = 0x201C0001;
    for (const HWND window : { mWindow, mProxy })
        ExpectToggles([&] { PostMessageW(window, WM_SYSCHAR, '\r', kEnterWithAlt); });
}

TEST_F(Keyboard, ACharacterThatTheModuleDoesNotTakeComesToThePlayer) {
    Type({ 'A' });
    // The scan code of "a" is 0x1E, typed once.
    EXPECT_EQ(NextNews(), AsText(WireBuilder().U32(0).U32(0x4B455943).U32('a').U32(0x1E0001).Get()));
    EXPECT_EQ(Pulse(), kNothingToTell);
}

TEST_F(Keyboard, AnExtendedKeyComesToThePlayerAsTwoZeroWords) {
    Type({ VK_RIGHT });
    EXPECT_EQ(NextNews(), AsText(WireBuilder().U32(0).U32(0x4B455958).U32(0).U32(0).Get()));
    EXPECT_EQ(Pulse(), kNothingToTell);
}

TEST_F(Keyboard, CtrlTAsksThePlayerToClose) {
    Type({ VK_CONTROL, 'T' });
    EXPECT_EQ(NextNews(), kNothingToTell + "WSLC");
    EXPECT_TRUE(IsWindowVisible(mWindow));
    EXPECT_EQ(Pulse(), kNothingToTell);
    EXPECT_EQ(mHost->Text().find("HandleKey"), std::string::npos) << "no plug-in was asked";
}

TEST_F(Use, ClosingTheWindowLeavesTheProcessAnsweringEveryRequest) {
    SelectExample();
    PostMessageW(mWindow, WM_CLOSE, 0, 0);
    EXPECT_TRUE(WaitUntil([&] { return !IsWindow(mWindow); }));
    EXPECT_FALSE(IsWindow(mProxy));
    for (const auto tag : { "SWND", "NTFS", "XTFS", "DRAW", "IDLE", "MOVW", "NOAR" })
        EXPECT_EQ(Ask(tag), "OK") << tag;
    EXPECT_EQ(Pulse(), std::string(4, '\0'));
    EXPECT_EQ(Ask(WireBuilder().Raw("SWSV").String(kExampleName).U8(0).Get()), "OK");
    EXPECT_EQ(Ask(ActivateRequest(kExampleName)), "PRXY");
    EXPECT_EQ(Ask(SampleStartRequest()), "Start");
    EXPECT_EQ(Ask(WireBuilder().Raw("KEYI").U32(0).U32(1).U16('a').Get()), "OK");
    EXPECT_EQ(Ask(WireBuilder().Raw("RSHP").U32(0).U32(0).U32(640).U32(480).Get()), "OK");
    EXPECT_EQ(Ask(WireBuilder().Raw("PM2Cstill here\n").U8(0).Get()), "OK");
    EXPECT_EQ(Ask("STOP"), "OK");
    EXPECT_EQ(Ask("HWND"), "OK");
    EXPECT_EQ(Ask("DCTV"), "OK");
    EXPECT_EQ(List().plugins.size(), 2u);
    Reconnect();
    EXPECT_EQ(Ask("SWND"), "OK");
    EXPECT_TRUE(mHost->IsRunning());
    EXPECT_EQ(mHost->Quit(5), 5);
}

} // namespace
} // namespace orvane::tests
