// The borderless window: size, strip, clicks on it, system commands, creation and destruction.
#include "records/PulseEvents.h"
#include "shell/windows/SystemCommands.h"
#include "unit/shell/windows/WindowProcedures.h"

namespace orvane::tests {
namespace {

using TopLevelWindow = WindowProcedures;
using StripClicks = WindowProcedures;

constexpr char kNotFullScreen[] = "OOPWindowProc::WM_SIZE is NOT in full screen\n";

std::vector<long> PlaceInParent(HWND child) {
    RECT place = WindowRectOf(child);
    MapWindowPoints(nullptr, GetParent(child), reinterpret_cast<POINT*>(&place), 2);
    return Values(place);
}

TEST_F(TopLevelWindow, TheProxyFollowsItsSize) {
    SetWindowPos(Window(), nullptr, 0, 0, 640, 480, SWP_NOMOVE | SWP_NOZORDER);
    EXPECT_EQ(PlaceInParent(Proxy()), (std::vector<long>{ 4, 34, 636, 476 })); // 632 by 442
    EXPECT_EQ(console.Text(), kNotFullScreen);
    EXPECT_EQ(caption.calls, Calls{ "Resize(632 442)" });
    EXPECT_EQ(Log().calls, Calls{ "Reshape()" });
}

TEST_F(TopLevelWindow, ASizeMessageHasTheStripDrawnAgain) {
    ShowWindow(Window(), SW_SHOW);
    ValidateRect(Window(), nullptr);
    EXPECT_EQ(Told(Window(), WM_SIZE, SIZE_RESTORED, MAKELPARAM(1000, 800)), kNotFullScreen);
    RECT update = {};
    EXPECT_TRUE(GetUpdateRect(Window(), &update, FALSE));
    EXPECT_EQ(Values(update), (std::vector<long>{ 0, 0, 1000, 30 }));
}

TEST_F(TopLevelWindow, InFullScreenTheProxyCoversTheWholeClientArea) {
    server.SetFullScreen(true);
    EXPECT_EQ(PlaceInParent(Proxy()), Values(ClientRectOf(Window())));
    EXPECT_EQ(console.Text(), "OOPWindowProc::WM_SIZE is in full screen\n");
    console.Clear();
    server.SetFullScreen(false);
    EXPECT_EQ(PlaceInParent(Proxy()), (std::vector<long>{ 4, 34, 996, 796 }));
    EXPECT_EQ(console.Text(), kNotFullScreen);
}

TEST_F(TopLevelWindow, InFullScreenTheProxyCoversAMaximisedWindowToo) {
    ShowWindow(Window(), SW_MAXIMIZE);
    server.SetFullScreen(true);
    MSG message;
    while (PeekMessageW(&message, Window(), 0, 0, PM_REMOVE)) DispatchMessageW(&message);
    EXPECT_EQ(PlaceInParent(Proxy()), Values(ClientRectOf(Window())));
    server.SetFullScreen(false);
    while (PeekMessageW(&message, Window(), 0, 0, PM_REMOVE)) DispatchMessageW(&message);
    const RECT client = ClientRectOf(Window());
    EXPECT_EQ(PlaceInParent(Proxy()), (std::vector<long>{ 4, 34, client.right - 4, client.bottom - 4 }));
    ShowWindow(Window(), SW_RESTORE);
    EXPECT_EQ(PlaceInParent(Proxy()), (std::vector<long>{ 4, 34, 996, 796 }));
}

TEST_F(TopLevelWindow, WithoutAChildASizeMessageSaysNothing) {
    DestroyWindow(Proxy());
    EXPECT_EQ(Told(Window(), WM_SIZE, SIZE_RESTORED, MAKELPARAM(300, 200)), "");
}

TEST_F(TopLevelWindow, PaintsItsStrip) {
    ShowWindow(Window(), SW_SHOW);
    InvalidateRect(Window(), nullptr, TRUE);
    caption.calls.clear();
    UpdateWindow(Window());
    ASSERT_EQ(caption.calls.size(), 11u);
    EXPECT_EQ(caption.calls[2], "FillRectangle(0 0 1000 30)");
    EXPECT_EQ(caption.calls[9], "DrawText(Orvane 8 8 992 30)");
    EXPECT_FALSE(GetUpdateRect(Window(), nullptr, FALSE)) << "nothing is left to paint";
}

TEST_F(TopLevelWindow, WithoutAServerItPaintsNothingAndIsDoneWithIt) {
    LoseServer();
    ShowWindow(mTopLevel, SW_SHOW);
    caption.calls.clear();
    InvalidateRect(mTopLevel, nullptr, TRUE);
    UpdateWindow(mTopLevel);
    EXPECT_EQ(caption.calls, Calls{});
    EXPECT_FALSE(GetUpdateRect(mTopLevel, nullptr, FALSE));
}

TEST_F(TopLevelWindow, ClosingDestroysItAndLeavesTheServerAnswering) {
    records::sCloseRequested = true;
    const HWND window = Window();
    SendMessageW(window, WM_CLOSE, 0, 0);
    EXPECT_FALSE(IsWindow(window));
    EXPECT_FALSE(IsWindow(Proxy()));
    EXPECT_FALSE(records::sCloseRequested) << "there is nothing left to close";
    MSG message;
    EXPECT_FALSE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    for (const auto tag : { "SWND", "HWND", "NTFS", "XTFS" }) EXPECT_EQ(Ask(tag), "OK") << tag;
    EXPECT_EQ(Ask(WireBuilder().Raw("SWSV").String(u"One").U8(0).Get()), "OK");
    EXPECT_EQ(Ask(WireBuilder().Raw("ACTV").String(u"One").Get()), "PRXY");
}

// Clicks on the strip.

// The system command that was posted to the window, or 0.
WPARAM TakeCommand(HWND window) {
    MSG message = {};
    if (!PeekMessageW(&message, window, WM_SYSCOMMAND, WM_SYSCOMMAND, PM_REMOVE)) return 0;
    EXPECT_EQ(message.lParam, 0);
    return message.wParam;
}

TEST_F(StripClicks, PressAndReleaseBothAct) {
    for (const UINT click : { WM_NCLBUTTONDOWN, WM_NCLBUTTONUP }) {
        EXPECT_EQ(Told(Window(), click, HTMAXBUTTON), "");
        EXPECT_EQ(result, 0);
    }
    EXPECT_EQ(TakeCommand(Window()), WPARAM(SC_MAXIMIZE));
    EXPECT_EQ(TakeCommand(Window()), WPARAM(SC_MAXIMIZE));
    EXPECT_EQ(TakeCommand(Window()), 0u);
}

TEST_F(StripClicks, OnAMaximisedWindowTheBoxRestores) {
    ShowWindow(Window(), SW_MAXIMIZE);
    for (const UINT click : { WM_NCLBUTTONDOWN, WM_NCLBUTTONUP }) {
        EXPECT_EQ(Told(Window(), click, HTMAXBUTTON), "");
        EXPECT_EQ(result, 0);
        EXPECT_EQ(TakeCommand(Window()), WPARAM(SC_RESTORE));
    }
}

TEST_F(StripClicks, TheMinimiseBoxMinimises) {
    for (const UINT click : { WM_NCLBUTTONDOWN, WM_NCLBUTTONUP }) {
        EXPECT_EQ(Told(Window(), click, HTMINBUTTON), "");
        EXPECT_EQ(result, 0);
        EXPECT_EQ(TakeCommand(Window()), WPARAM(SC_MINIMIZE));
    }
}

TEST_F(StripClicks, TheCloseBoxTellsThePlayerAndNothingElse) {
    for (const UINT click : { WM_NCLBUTTONDOWN, WM_NCLBUTTONUP }) {
        EXPECT_EQ(Told(Window(), click, HTCLOSE), "");
        EXPECT_EQ(result, 0);
        EXPECT_EQ(TakeCommand(Window()), 0u);
        EXPECT_TRUE(IsWindow(Window()));
        EXPECT_EQ(Ask("PULS"), kCloseReply);
        EXPECT_EQ(Ask("PULS"), kNothingToTell);
    }
}

// System commands.

TEST(SystemCommands, EachIsNamedWhateverItsLowFourBits) {
    const std::pair<WPARAM, std::string> rows[] = {
        { 0xF000, "SC_SIZE" },
        { 0xF010, "SC_MOVE" },
        { 0xF020, "SC_MINIMIZE" },
        { 0xF030, "SC_MAXIMIZE" },
        { 0xF040, "SC_NEXTWINDOW" },
        { 0xF050, "SC_PREVWINDOW" },
        { 0xF060, "SC_CLOSE" },
        { 0xF070, "SC_VSCROLL" },
        { 0xF080, "SC_HSCROLL" },
        { 0xF090, "SC_MOUSEMENU" },
        { 0xF100, "SC_KEYMENU" },
        { 0xF120, "SC_RESTORE" },
        { 0xF130, "SC_TASKLIST" },
        { 0xF140, "SC_SCREENSAVE" },
        { 0xF150, "SC_HOTKEY" },
        { 0xF160, "SC_DEFAULT" },
        { 0xF170, "SC_MONITORPOWER" },
        { 0xF180, "SC_CONTEXTHELP" },
        { 0xF110, "" },
        { 0xF190, "" },
        { 0x0010, "" },
    };
    for (const auto& [command, name] : rows)
        for (const WPARAM low : { WPARAM(0), WPARAM(0xF) }) {
            const LogCapture console;
            shell::LogSystemCommand("Source", command | low);
            EXPECT_EQ(console.Text(), "Source:SYSTEMCOMMAND:" + name + "\n");
        }
}

TEST_F(TopLevelWindow, NamesASystemCommandAndHasItCarriedOut) {
    EXPECT_EQ(Told(Window(), WM_SYSCOMMAND, SC_MAXIMIZE | 2),
              std::string("OOPWindowProc:SYSTEMCOMMAND:SC_MAXIMIZE\n") + kNotFullScreen);
    EXPECT_TRUE(IsZoomed(Window()));
    EXPECT_EQ(Told(Window(), WM_SYSCOMMAND, SC_RESTORE),
              std::string("OOPWindowProc:SYSTEMCOMMAND:SC_RESTORE\n") + kNotFullScreen);
    EXPECT_FALSE(IsZoomed(Window()));
}

} // namespace
} // namespace orvane::tests
