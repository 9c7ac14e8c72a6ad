// The child window in which plug-ins draw: what it acts upon, and what it says of everything else.
#include "shell/windows/ProxyMessages.h"
#include "unit/shell/windows/WindowProcedures.h"

#include <map>
#include <set>

namespace orvane::tests {
namespace {

using ProxyWindow = WindowProcedures;

TEST_F(ProxyWindow, ItsSizeGoesToTheRenderTargetAndTheVisualizer) {
    EXPECT_EQ(Told(Proxy(), WM_SIZE, SIZE_RESTORED, MAKELPARAM(640, 40000)), "");
    EXPECT_EQ(caption.calls, Calls{ "Resize(640 40000)" });
    EXPECT_EQ(Log().calls, Calls{ "Reshape()" });
}

TEST_F(ProxyWindow, ErasesNothing) {
    const HDC context = GetDC(Proxy());
    EXPECT_EQ(Told(Proxy(), WM_ERASEBKGND, WPARAM(context)), "");
    EXPECT_EQ(result, 0);
    ReleaseDC(Proxy(), context);
}

TEST_F(ProxyWindow, NamesASystemCommand) {
    EXPECT_EQ(Told(Proxy(), WM_SYSCOMMAND, 0xF160), "Proxy:SYSTEMCOMMAND:SC_DEFAULT\n");
}

TEST_F(ProxyWindow, WithoutAServerASizeIsPassedOn) {
    LoseServer();
    caption.calls.clear();
    EXPECT_EQ(Told(mProxy, WM_SIZE, SIZE_RESTORED, MAKELPARAM(10, 20)), "");
    EXPECT_EQ(caption.calls, Calls{});
}

// The messages that it does nothing about. Numbers are those of the platform's documentation.

std::string Line(UINT number) {
    const LogCapture console;
    shell::LogProxyMessage(number);
    return console.Text();
}

const std::map<UINT, std::string> kNamed = {
    { 0x000A, "Proxy: WM_ENABLE\n" },
    { 0x000B, "Proxy: WM_SETREDRAW\n" },
    { 0x000C, "Proxy: WM_SETTEXT\n" },
    { 0x000D, "Proxy: WM_GETTEXT\n" },
    { 0x000E, "Proxy: WM_GETTEXTLENGTH\n" },
    { 0x0010, "Proxy: WM_CLOSE\n" },
    { 0x0012, "Proxy: WM_QUIT\n" },
    { 0x0015, "Proxy: WM_SYSCOLORCHANGE\n" },
    { 0x001A, "Proxy: WM_WININICHANGE\n" },
    { 0x001B, "Proxy: WM_DEVMODECHANGE\n" },
    { 0x001D, "Proxy: WM_FONTCHANGE\n" },
    { 0x001E, "Proxy: WM_TIMECHANGE\n" },
    { 0x001F, "Proxy: WM_CANCELMODE\n" },
    { 0x0023, "WM_QUEUESYNC\n" },
    { 0x0024, "WM_GETMINMAXINFO\n" },
    { 0x0087, "Proxy::WM_GETDLGCODE\n" },
    { 0x00A6, "Proxy::WM_NCRBUTTONDBLCLK\n" },
    { 0x00A7, "Proxy::WM_NCMBUTTONDOWN\n" },
    { 0x00A8, "Proxy::WM_NCMBUTTONUP\n" },
    { 0x00A9, "Proxy::WM_NCMBUTTONDBLCLK\n" },
    { 0x0101, "Proxy::Control WM_KEYUP\n" },
    { 0x0103, "Proxy::WM_DEADCHAR\n" },
    { 0x0104, "Proxy::WM_SYSKEYDOWN\n" },
    { 0x0105, "Proxy::WM_SYSKEYUP\n" },
    { 0x0106, "Proxy::WM_SYSCHAR\n" },
    { 0x0107, "Proxy::WM_SYSDEADCHAR\n" },
    { 0x0109, "Proxy::WM_KEYLAST\n" },
    { 0x010D, "Proxy::WM_IME_STARTCOMPOSITION\n" },
    { 0x010E, "Proxy::WM_IME_ENDCOMPOSITION\n" },
    { 0x010F, "Proxy::WM_IME_KEYLAST\n" },
    { 0x0111, "Proxy::WM_COMMAND\n" },
    { 0x0114, "Proxy::WM_HSCROLL\n" },
    { 0x0115, "Proxy::WM_VSCROLL\n" },
    { 0x0116, "Proxy::WM_INITMENU\n" },
    { 0x0117, "WM_INITMENUPOPUP\n" },
    { 0x0203, "Proxy: WM_LBUTTONDBLCLK\n" },
    { 0x0204, "Proxy: WM_RBUTTONDOWN\n" },
    { 0x0205, "Proxy: WM_RBUTTONUP\n" },
    { 0x0206, "Proxy: WM_RBUTTONDBLCLK\n" },
    { 0x0207, "Proxy: WM_MBUTTONDOWN\n" },
    { 0x0208, "Proxy: WM_MBUTTONUP\n" },
    { 0x0209, "Proxy: WM_MBUTTONDBLCLK\n" },
    { 0x0213, "WM_NEXTMENU\n" },
    { 0x0216, "WM_MOVING\n" },
    { 0x0231, "WM_ENTERSIZEMOVE\n" },
    { 0x0232, "WM_EXITSIZEMOVE\n" },
    { 0x0283, "WM_IME_CONTROL\n" },
    { 0x0284, "WM_IME_COMPOSITIONFULL\n" },
    { 0x0285, "WM_IME_SELECT\n" },
    { 0x0286, "WM_IME_CHAR\n" },
    { 0x02A1, "WM_MOUSEHOVER\n" },
};

const std::set<UINT> kSilent = { 3,   6,   7,   8,   15,  24,  28,  32,  33,  34,  70,  71,
                                 127, 129, 130, 131, 132, 133, 134, 160, 161, 162, 163, 164,
                                 165, 275, 512, 513, 514, 532, 533, 641, 642, 675 };

TEST(ProxyMessages, FiftyOneAreNamed) {
    EXPECT_EQ(kNamed.size(), 51u);
    for (const auto& [number, line] : kNamed) EXPECT_EQ(Line(number), line) << number;
}

TEST(ProxyMessages, TheDullOnesArePassedOnInSilence) {
    EXPECT_EQ(kSilent.size(), 34u);
    for (const UINT number : kSilent) EXPECT_EQ(Line(number), "") << number;
}

TEST(ProxyMessages, EveryOtherIsToldByItsNumber) {
    EXPECT_EQ(Line(0x31F), "Message 0x31F not handled\n");
    EXPECT_EQ(Line(0xC0DE), "Message 0xC0DE not handled\n");
    for (UINT number = 0; number < 0x500; ++number) {
        if (kNamed.contains(number) || kSilent.contains(number)) continue;
        char line[64] = {};
        std::snprintf(line, sizeof(line), "Message 0x%X not handled\n", number);
        EXPECT_EQ(Line(number), line);
    }
}

TEST(ProxyMessages, RangeEndsAreNamedAsSuch) {
    EXPECT_EQ(Line(0x0109), "Proxy::WM_KEYLAST\n");     // a message of its own, behind the keyboard's
    EXPECT_EQ(Line(0x010F), "Proxy::WM_IME_KEYLAST\n"); // that of a composition
    EXPECT_EQ(Line(0x0108), "Message 0x108 not handled\n");
}

TEST_F(ProxyWindow, TellsItsOtherMessagesAndPassesThemOn) {
    EXPECT_EQ(Told(Proxy(), WM_SETTEXT, 0, LPARAM(L"New text")), "Proxy: WM_SETTEXT\n");
    wchar_t text[16] = {};
    EXPECT_EQ(Told(Proxy(), WM_GETTEXT, 16, LPARAM(text)), "Proxy: WM_GETTEXT\n");
    EXPECT_STREQ(text, L"New text");
    EXPECT_EQ(Told(Proxy(), WM_MOUSEMOVE, 0, MAKELPARAM(5, 5)), "");
    EXPECT_EQ(Told(Proxy(), WM_APP + 1), "Message 0x8001 not handled\n");
}

} // namespace
} // namespace orvane::tests
