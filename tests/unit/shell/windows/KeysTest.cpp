// Keys in both windows, each with the pulse reply that it leads to.
#include "records/PulseEvents.h"
#include "unit/shell/windows/WindowProcedures.h"

namespace orvane::tests {
namespace {

using Keys = WindowProcedures;
using ProxyCharacters = WindowProcedures;

constexpr LPARAM kPlainKey = 0x1E0001;
constexpr LPARAM kExtendedKey = 0x14D0001; // bit 24, the right arrow's scan code
constexpr WPARAM kCtrlT = 20, kCtrlF = 6;
constexpr char kLeftOver[] = "OOPWindowProc::HandleKey. controlKeyState 0x0 shiftKeyState 0x0. \n";

// What both windows do, with the top-level window's own result of a taken key in second place.
struct Target {
    HWND window;
    LRESULT taken;
};

TEST_F(Keys, ATakenCharacterGoesNoFurther) {
    Log().keyResult = true;
    for (const Target& target : { Target{ Window(), 0 }, { Proxy(), 1 } }) {
        EXPECT_EQ(Told(target.window, WM_CHAR, 'a', kPlainKey), "");
        EXPECT_EQ(result, target.taken);
        EXPECT_EQ(Ask("PULS"), kNothingToTell);
    }
    EXPECT_EQ(Log().characters, u"aa");
}

TEST_F(Keys, AnUnhandledAWithItsParameterLeadsToAReplyOf16BytesThatEndsInBothWords) {
    for (const HWND window : { Window(), Proxy() }) {
        EXPECT_EQ(Told(window, WM_CHAR, 'a', kPlainKey), kLeftOver);
        EXPECT_EQ(result, 0);
        const std::string reply = Ask("PULS");
        EXPECT_EQ(reply.size(), 16u);
        EXPECT_EQ(reply, KeyReply(kCharacterEvent, 0x61, 0x1E0001));
        EXPECT_EQ(reply.substr(4, 4), "CYEK");
        EXPECT_EQ(Ask("PULS"), kNothingToTell);
    }
}

TEST_F(Keys, WithoutAVisualizerACharacterLeadsToNothing) {
    server.mCurrentPlugin = nullptr;
    for (const HWND window : { Window(), Proxy() }) {
        EXPECT_EQ(Told(window, WM_CHAR, 'a', kPlainKey),
                  "OOPWinPipeServer::Current plugin is null. Cannot take key input\n");
        EXPECT_EQ(Ask("PULS"), kNothingToTell);
    }
}

TEST_F(Keys, AnExtendedKeyLeadsToTwoZeroWords) {
    for (const HWND window : { Window(), Proxy() }) {
        EXPECT_EQ(Told(window, WM_KEYDOWN, VK_RIGHT, kExtendedKey), "");
        const std::string reply = Ask("PULS");
        EXPECT_EQ(reply, KeyReply(kExtendedKeyEvent, 0, 0));
        EXPECT_EQ(reply.substr(4, 4), "XYEK");
        EXPECT_EQ(Ask("PULS"), kNothingToTell);
    }
}

TEST_F(Keys, AnExtendedKeyBehindACharacterLeftOverShowsThatCharactersWords) {
    SendMessageW(Proxy(), WM_CHAR, 'a', kPlainKey);
    SendMessageW(Proxy(), WM_KEYDOWN, VK_RIGHT, kExtendedKey);
    EXPECT_EQ(Ask("PULS"), KeyReply(kExtendedKeyEvent, 0x61, 0x1E0001));
}

TEST_F(Keys, APlainKeyGoingDownLeadsToNothing) {
    for (const HWND window : { Window(), Proxy() }) {
        EXPECT_EQ(Told(window, WM_KEYDOWN, 'A', kPlainKey), "");
        EXPECT_EQ(Ask("PULS"), kNothingToTell);
    }
}

TEST_F(Keys, TheControlKeyIsTold) {
    EXPECT_EQ(Told(Window(), WM_KEYDOWN, 17, 0x1D0001), "OOPWindowProc::Control key down\n");
    EXPECT_EQ(Told(Proxy(), WM_KEYDOWN, 17, 0x1D0001), "Proxy::Control key down\n");
    EXPECT_EQ(Ask("PULS"), kNothingToTell);
    // The right one is an extended key besides.
    EXPECT_EQ(Told(Proxy(), WM_KEYDOWN, 17, 0x11D0001), "Proxy::Control key down\n");
    EXPECT_EQ(Ask("PULS"), KeyReply(kExtendedKeyEvent, 0, 0));
}

TEST_F(Keys, CtrlTReachesNeitherTheVisualizerNorHandleKeyAndAsksToClose) {
    for (const Target& target : { Target{ Window(), 0 }, { Proxy(), 1 } }) {
        EXPECT_EQ(Told(target.window, WM_CHAR, kCtrlT, 0x140001), "");
        EXPECT_EQ(result, target.taken);
        EXPECT_EQ(Log().calls, Calls{});
        EXPECT_EQ(Ask("PULS"), kCloseReply);
        EXPECT_EQ(Ask("PULS"), kNothingToTell);
        Log().calls.clear(); // of the pulses
    }
}

TEST_F(Keys, CtrlFTogglesFullScreenAndReachesNoVisualizer) {
    for (const HWND window : { Window(), Proxy() })
        for (const bool on : { true, false }) {
            SendMessageW(window, WM_CHAR, kCtrlF, 0x210001);
            EXPECT_EQ(server.IsFullScreen(), on);
        }
    EXPECT_EQ(Log().characters, u"");
    EXPECT_EQ(Ask("PULS"), kNothingToTell);
}

TEST_F(Keys, AltEnterTogglesFullScreenWithNoLineOfItsOwn) {
    const RECT windowed = WindowRectOf(Window());
    const int cursor = CursorCount();
    for (const HWND window : { Window(), Proxy() }) {
        console.Clear();
        SendMessageW(window, WM_SYSCOMMAND, SC_KEYMENU, 13);
        EXPECT_TRUE(server.IsFullScreen());
        EXPECT_EQ(Values(WindowRectOf(Window())),
                  (std::vector<long>{ 0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN) }));
        EXPECT_EQ(CursorCount(), cursor - 1);
        EXPECT_EQ(console.Text(), "OOPWindowProc::WM_SIZE is in full screen\n");
        SendMessageW(window, WM_SYSCOMMAND, SC_KEYMENU, 13);
        EXPECT_FALSE(server.IsFullScreen());
        EXPECT_EQ(Values(WindowRectOf(Window())), Values(windowed));
        EXPECT_EQ(CursorCount(), cursor);
    }
    EXPECT_EQ(Ask("PULS"), kNothingToTell);
}

TEST_F(Keys, AltEnterComesToItsCommandAsACharacter) {
    constexpr LPARAM kEnterWithAlt = 0x201C0001;
    EXPECT_EQ(Told(Window(), WM_SYSCHAR, '\r', kEnterWithAlt),
              "OOPWindowProc::WM_SYSCHAR\nOOPWindowProc::WM_SIZE is in full screen\n");
    EXPECT_EQ(Told(Proxy(), WM_SYSCHAR, '\r', kEnterWithAlt),
              "Proxy::WM_SYSCHAR\nOOPWindowProc::WM_SIZE is NOT in full screen\n");
}

TEST_F(Keys, AnotherKeyMenuDoesNothing) {
    for (const HWND window : { Window(), Proxy() }) {
        EXPECT_EQ(Told(window, WM_SYSCOMMAND, SC_KEYMENU, 'x'), "");
        EXPECT_FALSE(server.IsFullScreen());
    }
}

TEST_F(Keys, SystemKeysAreToldByTheTopLevelWindow) {
    EXPECT_EQ(Told(Window(), WM_SYSKEYDOWN, 'X', 0x202D0001), "OOPWindowProc::WM_SYSKEYDOWN\n");
    EXPECT_EQ(Told(Window(), WM_SYSKEYUP, 'X', LPARAM(0xE02D0001)), "OOPWindowProc::WM_SYSKEYUP\n");
    EXPECT_EQ(Told(Window(), WM_SYSCHAR, 'x', 0x202D0001), "OOPWindowProc::WM_SYSCHAR\n");
    EXPECT_EQ(Ask("PULS"), kNothingToTell);
}

TEST_F(Keys, WithCloseAndAKeyPendingTheCloseComesFirst) {
    SendMessageW(Proxy(), WM_CHAR, 'a', kPlainKey);
    SendMessageW(Proxy(), WM_CHAR, kCtrlT, 0x140001);
    EXPECT_EQ(Ask("PULS"), kCloseReply);
    EXPECT_EQ(Ask("PULS"), KeyReply(kCharacterEvent, 0x61, 0x1E0001));
    EXPECT_EQ(Ask("PULS"), kNothingToTell);
}

TEST_F(ProxyCharacters, ATakenOneGivesOne) {
    Log().keyResult = true;
    EXPECT_EQ(SendMessageW(Proxy(), WM_CHAR, 'a', kPlainKey), 1);
    EXPECT_EQ(SendMessageW(Window(), WM_CHAR, 'a', kPlainKey), 0);
}

TEST_F(ProxyCharacters, OnlyTheLowByteIsHandedOn) {
    SendMessageW(Proxy(), WM_CHAR, 0x263A, kPlainKey);
    EXPECT_EQ(Log().characters, u"\x3A");
    EXPECT_EQ(Ask("PULS"), KeyReply(kCharacterEvent, 0x3A, 0x1E0001));
    SendMessageW(Window(), WM_CHAR, 0x263A, kPlainKey);
    EXPECT_EQ(Ask("PULS"), KeyReply(kCharacterEvent, 0x263A, 0x1E0001))
        << "the other window hands on all of it";
}

// 0x114 and 0x106 have the low bytes of Ctrl+T and Ctrl+F, but are other characters.
TEST_F(ProxyCharacters, TheKeysWithAMeaningAreComparedWhole) {
    SendMessageW(Proxy(), WM_CHAR, 0x114, kPlainKey);
    SendMessageW(Proxy(), WM_CHAR, 0x106, kPlainKey);
    EXPECT_FALSE(records::sCloseRequested);
    EXPECT_FALSE(server.IsFullScreen());
    EXPECT_EQ(Log().characters, (std::u16string{ 20, 6 }));
}

TEST_F(Keys, WithoutAServerKeysHaveTheirLinesAndLeadToNothing) {
    LoseServer();
    EXPECT_EQ(Told(mTopLevel, WM_CHAR, 'a', kPlainKey),
              "OOPWindowProc::WM_CHAR no sOOPWindowProcPipeServer\n");
    EXPECT_EQ(Told(mTopLevel, WM_CHAR, kCtrlF, 1),
              "OOPWindowProc::WM_CHAR VK_XBUTTON2 no sOOPWindowProcPipeServer\n");
    EXPECT_EQ(Told(mTopLevel, WM_SYSCOMMAND, SC_KEYMENU, 13),
              "OOPWindowProc::WM_SYSCOMMAND no sOOPWindowProcPipeServer\n");
    EXPECT_EQ(Told(mProxy, WM_CHAR, 'a', kPlainKey), "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(Told(mProxy, WM_CHAR, kCtrlF, 1), "Proxy::WM_CHAR VK_XBUTTON2 no sPipeServer\n");
    EXPECT_EQ(Told(mProxy, WM_SYSCOMMAND, SC_KEYMENU, 13),
              "Proxy::WM_SYSCOMMAND no sOOPWindowProcPipeServer\n");
    EXPECT_EQ(records::sKeyEventState, 0u);
    EXPECT_EQ(Told(mProxy, WM_CHAR, kCtrlT, 1), "");
    EXPECT_EQ(result, 1);
    EXPECT_TRUE(records::sCloseRequested) << "needs no server";
}

} // namespace
} // namespace orvane::tests
