// The window server's windows, render target and icons as Initialize makes them.
#include "shell/server/WindowClassNames.h"
#include "support/windows/WindowServer.h"

#include <gmock/gmock.h>

namespace orvane::tests {
namespace {

using testing::HasSubstr;
using OOPWinInitialize = WindowServer;

std::wstring TextOf(HWND window) {
    wchar_t text[64] = {};
    GetWindowTextW(window, text, 64);
    return text;
}

std::wstring ClassOf(HWND window) {
    wchar_t name[64] = {};
    GetClassNameW(window, name, 64);
    return name;
}

TEST_F(OOPWinInitialize, TheTopLevelWindowIsABorderlessToolWindowInTheMiddleOfTheScreen) {
    MakeWindows();
    EXPECT_EQ(ClassOf(Window()), L"ORVANE OOPWIND");
    EXPECT_EQ(GetWindowLongW(Window(), GWL_EXSTYLE), 128);
    EXPECT_EQ(DWORD(GetWindowLongW(Window(), GWL_STYLE)) & ~DWORD(WS_CLIPSIBLINGS), 0x80000000);
    EXPECT_FALSE(IsWindowVisible(Window()));
    EXPECT_EQ(GetParent(Window()), nullptr);
    EXPECT_EQ(GetMenu(Window()), nullptr);
    EXPECT_EQ(TextOf(Window()), L"Orvane");

    const RECT desktop = WindowRectOf(GetDesktopWindow());
    const long left = (desktop.right - desktop.left - 1000) / 2;
    const long top = (desktop.bottom - desktop.top - 800) / 2;
    EXPECT_EQ(Values(WindowRectOf(Window())), (std::vector<long>{ left, top, left + 1000, top + 800 }));
    EXPECT_EQ(Values(ClientRectOf(Window())), (std::vector<long>{ 0, 0, 1000, 800 }));
}

TEST_F(OOPWinInitialize, TheProxyWindowIsAVisibleChildWithinTheBordersAndUnderTheStrip) {
    MakeWindows();
    EXPECT_EQ(ClassOf(Proxy()), L"ORVANE PROXY");
    EXPECT_EQ(GetWindowLongW(Proxy(), GWL_EXSTYLE), 0);
    EXPECT_EQ(DWORD(GetWindowLongW(Proxy(), GWL_STYLE)) & ~DWORD(WS_CLIPSIBLINGS), 0x50000000u);
    EXPECT_EQ(GetParent(Proxy()), Window());
    EXPECT_EQ(TextOf(Proxy()), L"Orvane Visualizer");
    RECT place = WindowRectOf(Proxy());
    MapWindowPoints(nullptr, Window(), reinterpret_cast<POINT*>(&place), 2);
    EXPECT_EQ(Values(place), (std::vector<long>{ 4, 34, 996, 796 })); // 992 by 762
}

TEST_F(OOPWinInitialize, MakesTheTargetOfTheClientAreaAndTheIconsInTheirOrder) {
    EXPECT_EQ(Ask("DRAW"), "OK");
    EXPECT_EQ(caption.calls,
              (Calls{ "CreateRenderTarget(1000 800)", "CreateBitmapFromPackedRows(close 72)",
                      "CreateBitmapFromPackedRows(maximize 72)", "CreateBitmapFromPackedRows(restore 72)" }));
    EXPECT_EQ(caption.window, Window());
    EXPECT_EQ(caption.targets, 1);
    EXPECT_EQ(caption.icons, 3);
}

TEST_F(OOPWinInitialize, AWindowThatCantBeMadeHasItsLineAndTheServerGoesOn) {
    UnregisterClassW(shell::kTopLevelClassName, GetModuleHandleW(nullptr));
    EXPECT_EQ(Ask("DRAW"), "OK");
    EXPECT_EQ(Window(), nullptr);
    EXPECT_EQ(Proxy(), nullptr);
    EXPECT_EQ(caption.calls, Calls{});
    EXPECT_TRUE(console.Text().starts_with("OOPWinPipeServer::Could not create an OOP window.\n"
                                           "RegisterBuiltInVisualizers**********************\n"))
        << console.Text();
}

TEST_F(OOPWinInitialize, AProxyWindowThatCantBeMadeHasItsLineAndTheServerGoesOn) {
    UnregisterClassW(shell::kProxyClassName, GetModuleHandleW(nullptr));
    EXPECT_EQ(Ask("DRAW"), "OK");
    EXPECT_NE(Window(), nullptr);
    EXPECT_EQ(Proxy(), nullptr);
    EXPECT_TRUE(console.Text().starts_with("OOPWinPipeServer::Could not create a visualizer window.\n"
                                           "RegisterBuiltInVisualizers**********************\n"))
        << console.Text();
}

TEST_F(OOPWinInitialize, ATargetThatCantBeMadeHasItsLineAndThereAreNoIcons) {
    caption.refuseTarget = true;
    EXPECT_EQ(Ask("DRAW"), "OK");
    EXPECT_EQ(caption.calls, Calls{ "CreateRenderTarget(1000 800)" });
    EXPECT_TRUE(console.Text().starts_with("Could not create an HWND render target for the OOP window\n"
                                           "RegisterBuiltInVisualizers**********************\n"))
        << console.Text();
    EXPECT_NE(Proxy(), nullptr);
}

TEST_F(OOPWinInitialize, EachIconThatCantBeMadeHasItsLineAndTheNextIsTried) {
    caption.refusedIcons = { "close", "maximize", "restore" };
    EXPECT_EQ(Ask("DRAW"), "OK");
    EXPECT_EQ(caption.calls.size(), 4u);
    EXPECT_EQ(caption.icons, 0);
    EXPECT_TRUE(console.Text().starts_with("Could not create the close box icon.\n"
                                           "Could not create the maximize box icon.\n"
                                           "Could not create the restore box icon.\n"
                                           "RegisterBuiltInVisualizers**********************\n"))
        << console.Text();
}

TEST_F(OOPWinInitialize, OneMissingIconLeavesTheOthers) {
    caption.refusedIcons = { "maximize" };
    EXPECT_EQ(Ask("DRAW"), "OK");
    EXPECT_EQ(caption.icons, 2);
    EXPECT_TRUE(console.Text().starts_with("Could not create the maximize box icon.\nRegister"))
        << console.Text();
}

TEST_F(OOPWinInitialize, BehindABrokenPipeTheWindowsStayAndTargetTitleAndListAreNew) {
    MakeWindows();
    const HWND window = Window(), proxy = Proxy();
    SetWindowTextW(window, L"Name - Artist");
    ShowWindow(window, SW_SHOW);
    ValidateRect(window, nullptr);
    server.InitializeAgain();
    EXPECT_EQ(Window(), window);
    EXPECT_EQ(Proxy(), proxy);
    EXPECT_EQ(Title(), L"Orvane");
    EXPECT_EQ(caption.calls,
              (Calls{ "CreateRenderTarget(1000 800)", "CreateBitmapFromPackedRows(close 72)",
                      "CreateBitmapFromPackedRows(maximize 72)", "CreateBitmapFromPackedRows(restore 72)" }));
    EXPECT_EQ(caption.targets, 1) << "the old one went";
    EXPECT_EQ(caption.icons, 3);
    EXPECT_EQ(server.mPlugins.size(), 4u) << "registered behind what was there";
    RECT update = {};
    EXPECT_TRUE(GetUpdateRect(window, &update, FALSE)) << "the strip still shows the old title";
    EXPECT_EQ(Values(update), (std::vector<long>{ 0, 0, 1000, 30 }));
}

TEST_F(OOPWinInitialize, TheDestructorReleasesTargetAndIconsAndLeavesTheWindows) {
    auto other = std::make_unique<TestWindowServer>();
    other->Initialize(1);
    const HWND window = other->TopLevelWindow(), proxy = other->ProxyWindow();
    EXPECT_EQ(caption.targets, 1);
    other.reset();
    EXPECT_EQ(caption.targets, 0);
    EXPECT_EQ(caption.icons, 0);
    EXPECT_TRUE(IsWindow(window));
    EXPECT_TRUE(IsWindow(proxy));
    DestroyWindow(window);
}

} // namespace
} // namespace orvane::tests
