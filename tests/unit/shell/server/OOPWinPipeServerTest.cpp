// The window server's requests and what it does on the main thread.
#include "shell/dispatch/ThreadMessages.h"
#include "support/windows/WindowServer.h"

#include <thread>

namespace orvane::tests {
namespace {

using namespace shell;
using OOPWinPipeServer = WindowServer;

TEST_F(OOPWinPipeServer, ShowingPutsTheWindowOnTopAndChangesNeitherPlaceNorSize) {
    MakeWindows();
    const RECT before = WindowRectOf(Window());
    const HWND other = CreateWindowW(L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 50, 50, nullptr, nullptr,
                                     nullptr, nullptr);
    SetWindowPos(other, HWND_TOP, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE);
    EXPECT_EQ(Ask("SWND"), "OK");
    EXPECT_EQ(said, "OOPWinPipeServer ShowVisualizerWindow (and place on top of Z order)\n");
    EXPECT_TRUE(IsWindowVisible(Window()));
    bool above = false;
    for (HWND at = GetWindow(Window(), GW_HWNDNEXT); at; at = GetWindow(at, GW_HWNDNEXT))
        above |= at == other;
    EXPECT_TRUE(above);
    EXPECT_EQ(Values(WindowRectOf(Window())), Values(before));
    DestroyWindow(other);
}

TEST_F(OOPWinPipeServer, HidingHidesAndDeactivates) {
    MakeWindows();
    ShowWindow(Window(), SW_SHOW);
    EXPECT_EQ(Ask("HWND"), "OK");
    EXPECT_EQ(said, "OOPWinPipeServer HideVisualizerWindow\n");
    EXPECT_FALSE(IsWindowVisible(Window()));
    EXPECT_EQ(TakePosted(), UINT(MESSAGE_DEACT_VISUALIZER));
}

TEST_F(OOPWinPipeServer, WithoutAWindowEachRequestHasItsLineAndIsAnswered) {
    UnregisterClassW(L"ORVANE OOPWIND", GetModuleHandleW(nullptr));
    EXPECT_EQ(Ask("SWND"), "OK");
    EXPECT_EQ(said, "OOPWinPipeServer ShowVisualizerWindow (and place on top of Z order)\n"
                    "OOPWinPipeServer ShowVisualizerWindow: no mOOPWind\n");
    EXPECT_EQ(Ask("HWND"), "OK");
    EXPECT_EQ(said, "OOPWinPipeServer HideVisualizerWindow\n");
    EXPECT_EQ(TakePosted(), UINT(MESSAGE_DEACT_VISUALIZER));
    EXPECT_EQ(Ask("NTFS"), "OK");
    EXPECT_EQ(said, "OOPWinPipeServer EnterFullscreen\n");
    EXPECT_FALSE(server.IsFullScreen());
    EXPECT_EQ(Ask("XTFS"), "OK");
    EXPECT_EQ(said, "OOPWinPipeServer ExitFullscreen\n");
    console.Clear();
    server.UpdateWindowTitle();
    server.ActivateProxyWindowInMainThread(0, 0, 0, 0);
    EXPECT_EQ(console.Text(), "OOPWinPipeServer::ActivateProxyWindowInMainThread failed because there was no "
                              "visualizer window to work with.\n");
}

TEST_F(OOPWinPipeServer, ATextForTheConsoleIsWrittenAsItIsUpToItsZeroByte) {
    EXPECT_EQ(Ask(WireBuilder().Raw("PM2C100% %s %n \xC3\xA4\n").U8(0).Raw("behind").Get()), "OK");
    EXPECT_EQ(said, "100% %s %n \xC3\xA4\n");
    EXPECT_EQ(Ask(WireBuilder().Raw("PM2C").U8(0).Get()), "OK");
    EXPECT_EQ(said, "");
}

TEST_F(OOPWinPipeServer, ATextWithoutAZeroByteEndsAtTheBuffersEnd) {
    const std::string text((1 << 20) - 4, 'x');
    EXPECT_EQ(Ask("PM2C" + text), "OK");
    EXPECT_EQ(said.size(), text.size());
    EXPECT_TRUE(said == text);
}

TEST_F(OOPWinPipeServer, ActivationShowsTheProxyActivatesInItAndStartsTheTrack) {
    MakeWindows();
    MakeCurrent();
    SetTrack(u"Name", u"Artist");
    ShowWindow(Proxy(), SW_HIDE);
    server.ActivateProxyWindowInMainThread(1, 2, 3, 4);
    EXPECT_EQ(Log().calls, (Calls{ "ActivateInWindow()", "StartExternalVisualPlayback(Name, 0, 0, 0)" }));
    EXPECT_EQ(Log().window.handle, Proxy());
    EXPECT_NE(GetWindowLongW(Proxy(), GWL_STYLE) & WS_VISIBLE, 0);
    EXPECT_EQ(Title(), L"Name - Artist");
    EXPECT_EQ(console.Text(), "");
}

TEST_F(OOPWinPipeServer, ActivationWithoutATrackShowsTheVisualizersName) {
    MakeWindows();
    MakeCurrent(1);
    server.ActivateProxyWindowInMainThread(0, 0, 0, 0);
    EXPECT_EQ(Log(1).calls, Calls{ "ActivateInWindow()" });
    EXPECT_EQ(Title(), L"Second");
}

TEST_F(OOPWinPipeServer, ActivationWithoutAVisualizerOnlyShowsTheProxy) {
    MakeWindows();
    ShowWindow(Proxy(), SW_HIDE);
    SetTrack(u"Name", u"Artist");
    server.ActivateProxyWindowInMainThread(0, 0, 0, 0);
    EXPECT_NE(GetWindowLongW(Proxy(), GWL_STYLE) & WS_VISIBLE, 0);
    EXPECT_EQ(Title(), L"Orvane");
    EXPECT_EQ(console.Text(), "");
}

TEST_F(OOPWinPipeServer, AFailedActivationHasItsLineLeavesTheTitleAndStartsNothing) {
    MakeWindows();
    MakeCurrent();
    SetTrack(u"Name", u"Artist");
    Log().activateResult = false;
    server.ActivateProxyWindowInMainThread(0, 0, 0, 0);
    EXPECT_EQ(console.Text(), "OOPWinPipeServer::failed to activate plugin with proxy window.\n");
    EXPECT_EQ(Log().calls, Calls{ "ActivateInWindow()" });
    EXPECT_EQ(Title(), L"Orvane");
    EXPECT_NE(server.mCurrentPlugin, nullptr) << "it stays current";
}

TEST_F(OOPWinPipeServer, DeactivationDeactivatesAndLeavesNoCurrentVisualizer) {
    MakeWindows();
    server.DeactivateVisualizerOnMainThread();
    EXPECT_EQ(console.Text(), "") << "nothing is current";
    MakeCurrent();
    server.DeactivateVisualizerOnMainThread();
    EXPECT_EQ(Log().calls, Calls{ "Deactivate()" });
    EXPECT_EQ(server.mCurrentPlugin, nullptr);
    EXPECT_EQ(console.Text(), "SetCurrentPluginNoLock::Setting current valid plugin to null\n");
}

TEST_F(OOPWinPipeServer, StartingATrackPlaysItAndShowsItsTitle) {
    EXPECT_EQ(Ask(WireBuilder().Raw("STRT").Raw(AsText(SampleTrackBlock())).Get()), "Start");
    EXPECT_EQ(TakePosted(), UINT(MESSAGE_START_VISUALIZER));
    MakeCurrent();
    console.Clear();
    server.StartVisualizerWithTrackParam();
    EXPECT_EQ(Log().calls, Calls{ "StartExternalVisualPlayback(Name, 8192, -5, 4144)" }); // 0x2000, 0x1030
    EXPECT_EQ(Title(), L"Name - Artist");
    EXPECT_EQ(console.Text(), "");
}

TEST_F(OOPWinPipeServer, StartingWithoutATrackOrAVisualizerHasItsLines) {
    MakeWindows();
    MakeCurrent();
    server.StartVisualizerWithTrackParam();
    EXPECT_EQ(console.Text(), "OOPWinPipeServer::StartVisualizerWithTrackParam no mTrackParamData\n");
    EXPECT_EQ(Title(), L"Orvane");
    EXPECT_EQ(Log().calls, Calls{});

    console.Clear();
    server.mCurrentPlugin = nullptr;
    SetTrack(u"Name", u"Artist");
    server.StartVisualizerWithTrackParam();
    EXPECT_EQ(console.Text(), "StartVisualizerWithTrackParam::Current plugin is null. Cannot Start track\n");
    EXPECT_EQ(Title(), L"Name - Artist") << "the title is shown all the same";
}

TEST_F(OOPWinPipeServer, StartingRunsWhileTheLockIsHeld) {
    MakeWindows();
    MakeCurrent();
    SetTrack(u"Name", u"Artist");
    const platform::OwnedLock lock(server.mPluginLock);
    server.StartVisualizerWithTrackParam();
    EXPECT_EQ(Log().calls.size(), 1u);
}

TEST_F(OOPWinPipeServer, TheRenderTargetKeepsTheProxysSize) {
    MakeWindows();
    MakeCurrent();
    server.ResizeRenderTarget(992, 762);
    EXPECT_EQ(caption.calls, Calls{ "Resize(992 762)" });
    EXPECT_EQ(Log().calls, Calls{ "Reshape()" });

    caption.refuseTarget = true;
    server.InitializeAgain(); // no target now
    caption.calls.clear();
    server.mCurrentPlugin = nullptr;
    server.ResizeRenderTarget(10, 20);
    EXPECT_EQ(caption.calls, Calls{});
}

// The title.

TEST_F(OOPWinPipeServer, AnEmptyNameAndAnEmptyArtistMakeATitleOfTheSeparatorAlone) {
    MakeWindows();
    SetTrack(u"", u"");
    server.UpdateWindowTitle();
    EXPECT_EQ(Title(), L" - ");
}

TEST_F(OOPWinPipeServer, ATrackComesBeforeTheVisualizersName) {
    MakeWindows();
    MakeCurrent();
    SetTrack(u"Name", u"");
    server.UpdateWindowTitle();
    EXPECT_EQ(Title(), L"Name - ");
    server.mTrackParamData = records::TrackParamRef();
    server.UpdateWindowTitle();
    EXPECT_EQ(Title(), L"One");
    server.mCurrentPlugin = nullptr;
    SetWindowTextW(Window(), L"as it was");
    server.UpdateWindowTitle();
    EXPECT_EQ(Title(), L"as it was");
}

TEST_F(OOPWinPipeServer, ANewTitleHasTheStripDrawnAgainAndNothingElse) {
    MakeWindows();
    ShowWindow(Window(), SW_SHOW);
    SetTrack(u"Name", u"Artist");
    ValidateRect(Window(), nullptr);
    server.UpdateWindowTitle();
    RECT update = {};
    EXPECT_TRUE(GetUpdateRect(Window(), &update, FALSE));
    EXPECT_EQ(Values(update), (std::vector<long>{ 0, 0, 1000, 30 }));
}

TEST_F(OOPWinPipeServer, ATitleEndsAtTheFirstZeroUnitOfAText) {
    MakeWindows();
    SetTrack(std::u16string_view(u"Na\0me", 5), std::u16string_view(u"Ar\0tist", 7));
    server.UpdateWindowTitle();
    EXPECT_EQ(Title(), L"Na - Ar");
}

TEST_F(OOPWinPipeServer, ATitleOf255UnitsRunsOnIntoTheNextField) {
    MakeWindows();
    SetTrack(std::u16string(255, u'n'), std::u16string(255, u'a'));
    const records::TrackParamRef track = server.mTrackParamData;
    track->mInfoString2.Assign(u"s"); // behind the name: its count, 1, and then its text
    track->mTrackAlbum.Assign(u"al"); // behind the artist
    server.UpdateWindowTitle();
    EXPECT_EQ(Title(), std::wstring(255, L'n') + L"\x01s - " + std::wstring(255, L'a') + L"\x02" + L"al");
}

TEST_F(OOPWinPipeServer, ALongTitleIsCutAt2048UnitsWithItsZero) {
    MakeWindows();
    SetTrack(std::u16string(255, u'n'), u"never reached");
    const records::TrackParamRef track = server.mTrackParamData;
    // Each field full, from the name to the eighth text: 8 times 256 units without a zero unit, counts
    // among them.
    for (auto* text : { &track->mInfoString2, &track->mTrackArtist, &track->mTrackAlbum, &track->mInfoString5,
                        &track->mInfoString6, &track->mInfoString7, &track->mInfoString8 })
        text->Assign(std::u16string(255, u'm'));
    track->mInfoWords2[0] = 0x00780078; // "xx", the next two units
    server.UpdateWindowTitle();
    std::wstring expected(255, L'n');
    for (int i = 0; i < 7; ++i) expected += wchar_t(255) + std::wstring(255, L'm');
    EXPECT_EQ(expected.size(), 2047u);
    EXPECT_EQ(Title(), expected);
}

TEST_F(OOPWinPipeServer, ATrackWithoutAnyZeroUnitMakesATitleThatIsCut) {
    MakeWindows();
    server.mTrackParamData = records::MakeTrackParam();
    const records::TrackParamRef track = server.mTrackParamData;
    std::memset(static_cast<void*>(track.get()), 'z', sizeof(*track));
    server.UpdateWindowTitle();
    EXPECT_EQ(Title(), std::wstring(2047, L'\x7A7A'));
}

} // namespace
} // namespace orvane::tests
