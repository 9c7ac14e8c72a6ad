#include "shell/windows/ProxyMessages.h"

#include "platform/LogLine.h"
#include "shell/windows/MessageHandlers.h"

namespace orvane::shell {

namespace {

// KEEP: WM_KEYLAST and WM_IME_KEYLAST are numbers of ranges' ends. The first is a message of its own behind
// the keyboard's; the second is the number of WM_IME_COMPOSITION, which is so named in the log. Pinned by
// ProxyMessages.RangeEndsAreNamedAsSuch.
struct NamedMessage {
    UINT number;
    const char* line;
};

constexpr NamedMessage kNamed[] = {
    { WM_ENABLE, "Proxy: WM_ENABLE\n" },
    { WM_SETREDRAW, "Proxy: WM_SETREDRAW\n" },
    { WM_SETTEXT, "Proxy: WM_SETTEXT\n" },
    { WM_GETTEXT, "Proxy: WM_GETTEXT\n" },
    { WM_GETTEXTLENGTH, "Proxy: WM_GETTEXTLENGTH\n" },
    { WM_CLOSE, "Proxy: WM_CLOSE\n" },
    { WM_QUIT, "Proxy: WM_QUIT\n" },
    { WM_SYSCOLORCHANGE, "Proxy: WM_SYSCOLORCHANGE\n" },
    { WM_WININICHANGE, "Proxy: WM_WININICHANGE\n" },
    { WM_DEVMODECHANGE, "Proxy: WM_DEVMODECHANGE\n" },
    { WM_FONTCHANGE, "Proxy: WM_FONTCHANGE\n" },
    { WM_TIMECHANGE, "Proxy: WM_TIMECHANGE\n" },
    { WM_CANCELMODE, "Proxy: WM_CANCELMODE\n" },
    { WM_QUEUESYNC, "WM_QUEUESYNC\n" },
    { WM_GETMINMAXINFO, "WM_GETMINMAXINFO\n" },
    { WM_GETDLGCODE, "Proxy::WM_GETDLGCODE\n" },
    { WM_NCRBUTTONDBLCLK, "Proxy::WM_NCRBUTTONDBLCLK\n" },
    { WM_NCMBUTTONDOWN, "Proxy::WM_NCMBUTTONDOWN\n" },
    { WM_NCMBUTTONUP, "Proxy::WM_NCMBUTTONUP\n" },
    { WM_NCMBUTTONDBLCLK, "Proxy::WM_NCMBUTTONDBLCLK\n" },
    { WM_KEYUP, "Proxy::Control WM_KEYUP\n" },
    { WM_DEADCHAR, "Proxy::WM_DEADCHAR\n" },
    { WM_SYSKEYDOWN, "Proxy::WM_SYSKEYDOWN\n" },
    { WM_SYSKEYUP, "Proxy::WM_SYSKEYUP\n" },
    { WM_SYSCHAR, "Proxy::WM_SYSCHAR\n" },
    { WM_SYSDEADCHAR, "Proxy::WM_SYSDEADCHAR\n" },
    { WM_KEYLAST, "Proxy::WM_KEYLAST\n" },
    { WM_IME_STARTCOMPOSITION, "Proxy::WM_IME_STARTCOMPOSITION\n" },
    { WM_IME_ENDCOMPOSITION, "Proxy::WM_IME_ENDCOMPOSITION\n" },
    { WM_IME_KEYLAST, "Proxy::WM_IME_KEYLAST\n" },
    { WM_COMMAND, "Proxy::WM_COMMAND\n" },
    { WM_HSCROLL, "Proxy::WM_HSCROLL\n" },
    { WM_VSCROLL, "Proxy::WM_VSCROLL\n" },
    { WM_INITMENU, "Proxy::WM_INITMENU\n" },
    { WM_INITMENUPOPUP, "WM_INITMENUPOPUP\n" },
    { WM_LBUTTONDBLCLK, "Proxy: WM_LBUTTONDBLCLK\n" },
    { WM_RBUTTONDOWN, "Proxy: WM_RBUTTONDOWN\n" },
    { WM_RBUTTONUP, "Proxy: WM_RBUTTONUP\n" },
    { WM_RBUTTONDBLCLK, "Proxy: WM_RBUTTONDBLCLK\n" },
    { WM_MBUTTONDOWN, "Proxy: WM_MBUTTONDOWN\n" },
    { WM_MBUTTONUP, "Proxy: WM_MBUTTONUP\n" },
    { WM_MBUTTONDBLCLK, "Proxy: WM_MBUTTONDBLCLK\n" },
    { WM_NEXTMENU, "WM_NEXTMENU\n" },
    { WM_MOVING, "WM_MOVING\n" },
    { WM_ENTERSIZEMOVE, "WM_ENTERSIZEMOVE\n" },
    { WM_EXITSIZEMOVE, "WM_EXITSIZEMOVE\n" },
    { WM_IME_CONTROL, "WM_IME_CONTROL\n" },
    { WM_IME_COMPOSITIONFULL, "WM_IME_COMPOSITIONFULL\n" },
    { WM_IME_SELECT, "WM_IME_SELECT\n" },
    { WM_IME_CHAR, "WM_IME_CHAR\n" },
    { WM_MOUSEHOVER, "WM_MOUSEHOVER\n" },
};
static_assert(std::size(kNamed) == 51);

struct NumberRange {
    UINT first, last; // both included
};

// Too frequent, or too dull, to be told.
constexpr NumberRange kSilent[] = {
    { 3, 3 },     { 6, 8 },     { 15, 15 },   { 24, 24 },   { 28, 28 },
    { 32, 34 },   { 70, 71 },   { 127, 127 }, { 129, 134 }, { 160, 165 },
    { 275, 275 }, { 512, 514 }, { 532, 533 }, { 641, 642 }, { 675, 675 },
};

} // namespace

void LogProxyMessage(UINT number) {
    const bool silent = std::any_of(std::begin(kSilent), std::end(kSilent), [&](const NumberRange& range) {
        return range.first <= number && number <= range.last;
    });
    if (silent) return;
    if (const auto* row = FindRow(kNamed, number))
        platform::LogLine(row->line);
    else
        platform::LogFormat(platform::LineBuffer::k1024, "Message 0x%X not handled\n", number);
}

} // namespace orvane::shell
