#include "platform/LogLine.h"
#include "records/PulseEvents.h"
#include "shell/server/OOPWinPipeServer.h"
#include "shell/server/WindowGeometry.h"
#include "shell/windows/HitTest.h"
#include "shell/windows/InputRelay.h"
#include "shell/windows/MessageHandlers.h"
#include "shell/windows/WindowProcedures.h"

namespace orvane::shell {

using platform::LogLine;

namespace {

// From the window's creation to its destruction.
OOPWinPipeServer* sOOPWindowProcPipeServer = nullptr;

POINT SignedPoint(LPARAM lParam) {
    return { std::int16_t(LOWORD(lParam)), std::int16_t(HIWORD(lParam)) };
}

MessageResult OnCreate(const WindowMessage& message) {
    sOOPWindowProcPipeServer = CreationParameter<OOPWinPipeServer>(message);
    return std::nullopt;
}

MessageResult OnDestroy(const WindowMessage&) {
    sOOPWindowProcPipeServer = nullptr;
    records::sCloseRequested = false;
    return std::nullopt;
}

// The proxy window follows: all of the client area in full screen, else what the strip and the borders leave.
MessageResult OnSize(const WindowMessage& message) {
    const POINT size = SignedPoint(message.lParam);
    const HWND child = GetWindow(message.window, GW_CHILD);
    if (!child) return std::nullopt;
    int border = kBorder, strip = kCaptionHeight;
    if (sOOPWindowProcPipeServer && sOOPWindowProcPipeServer->IsFullScreen()) {
        LogLine("OOPWindowProc::WM_SIZE is in full screen\n");
        border = strip = 0;
    } else {
        LogLine("OOPWindowProc::WM_SIZE is NOT in full screen\n");
        RECT caption = {};
        GetClientRect(message.window, &caption);
        caption.bottom = caption.top + kCaptionHeight;
        InvalidateRect(message.window, &caption, TRUE);
    }
    SetWindowPos(child, nullptr, border, border + strip, int(size.x) - 2 * border,
                 int(size.y) - strip - 2 * border, 0);
    return std::nullopt;
}

MessageResult OnPaint(const WindowMessage& message) {
    PAINTSTRUCT paint = {};
    BeginPaint(message.window, &paint);
    RECT client = {};
    GetClientRect(message.window, &client);
    if (sOOPWindowProcPipeServer) sOOPWindowProcPipeServer->PaintCaption(message.window, client);
    EndPaint(message.window, &paint);
    return std::nullopt;
}

MessageResult OnHitTest(const WindowMessage& message) {
    RECT window = {}, client = {};
    if (!sOOPWindowProcPipeServer || sOOPWindowProcPipeServer->IsFullScreen()) return std::nullopt;
    if (!GetWindowRect(message.window, &window)) return std::nullopt;
    GetClientRect(message.window, &client);
    return HitTest(SignedPoint(message.lParam), window, client.right);
}

// The hit-test codes that a click acts upon.
//
// KEEP: press and release act alike, so one click on the maximise box posts a command for each of them. Mostly
// the box has moved away under the mouse by the time of the release, and that one then meets something else.
// No hit test gives HTMINBUTTON; its row completes the list. Pinned by StripClicks.PressAndReleaseBothAct.
struct ClickRow {
    WPARAM code;
    void (*act)(HWND window);
};

constexpr ClickRow kStripClicks[] = {
    { HTMINBUTTON, [](HWND window) { PostMessageW(window, WM_SYSCOMMAND, SC_MINIMIZE, 0); } },
    { HTMAXBUTTON,
      [](HWND window) {
          PostMessageW(window, WM_SYSCOMMAND, IsZoomed(window) ? SC_RESTORE : SC_MAXIMIZE, 0);
      } },
    { HTCLOSE, [](HWND) { records::sCloseRequested = true; } }, // nothing else: the player decides
};

MessageResult OnStripClick(const WindowMessage& message) {
    for (const ClickRow& row : kStripClicks)
        if (row.code == message.wParam) {
            row.act(message.window);
            return 0;
        }
    return std::nullopt;
}

MessageResult OnKeyDown(const WindowMessage& message) {
    return RelayKeyDown(kTopLevelInput, message);
}

MessageResult OnCharacter(const WindowMessage& message) {
    return RelayCharacter(kTopLevelInput, sOOPWindowProcPipeServer, message);
}

MessageResult OnSystemCommand(const WindowMessage& message) {
    return RelaySystemCommand(kTopLevelInput, sOOPWindowProcPipeServer, message);
}

MessageResult Say(std::string_view line) {
    LogLine(line);
    return std::nullopt;
}

constexpr MessageHandler kHandlers[] = {
    { WM_CREATE, &OnCreate },
    { WM_DESTROY, &OnDestroy },
    { WM_SIZE, &OnSize },
    { WM_PAINT, &OnPaint },
    { WM_NCHITTEST, &OnHitTest },
    { WM_NCLBUTTONDOWN, &OnStripClick },
    { WM_NCLBUTTONUP, &OnStripClick },
    { WM_KEYDOWN, &OnKeyDown },
    { WM_CHAR, &OnCharacter },
    { WM_SYSKEYDOWN, [](const WindowMessage&) { return Say("OOPWindowProc::WM_SYSKEYDOWN\n"); } },
    { WM_SYSKEYUP, [](const WindowMessage&) { return Say("OOPWindowProc::WM_SYSKEYUP\n"); } },
    { WM_SYSCHAR, [](const WindowMessage&) { return Say("OOPWindowProc::WM_SYSCHAR\n"); } },
    { WM_SYSCOMMAND, &OnSystemCommand },
};

} // namespace

LRESULT CALLBACK TopLevelWindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (const auto* row = FindRow(kHandlers, message))
        if (const MessageResult result = row->handle({ window, message, wParam, lParam })) return *result;
    return DefWindowProcW(window, message, wParam, lParam);
}

} // namespace orvane::shell
