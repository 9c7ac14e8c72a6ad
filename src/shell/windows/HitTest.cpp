#include "shell/windows/HitTest.h"

#include "shell/server/WindowGeometry.h"

namespace orvane::shell {

namespace {

// Lower limit included, upper excluded.
constexpr bool Within(LONG value, LONG from, LONG to) {
    return from <= value && value < to;
}

// The boxes take clicks over the icons' width, and over the icons' strokes in height.
constexpr LONG kBoxTop = 10;
constexpr LONG kBoxBottom = 26; // included

constexpr bool OverBox(LONG x, LONG clientRight, LONG inset) {
    return Within(x, clientRight - inset - kIconWidth, clientRight - inset);
}

LRESULT HitStrip(LONG x, LONG y, LONG clientRight) {
    if (y >= kBoxTop && y <= kBoxBottom) {
        if (OverBox(x, clientRight, kCloseIconInset)) return HTCLOSE;
        if (OverBox(x, clientRight, kZoomIconInset)) return HTMAXBUTTON;
    }
    // KEEP: the strip's left and right edge too, so that it can't be sized by them. A strip of 30 pixels is
    // to be dragged by, wherever it is taken. Pinned by HitTest.InTheStripOnTheLeftBorderIsCaption.
    return HTCAPTION;
}

} // namespace

std::optional<LRESULT> HitTest(POINT point, const RECT& window, LONG clientRight) {
    const bool top = Within(point.y, window.top, window.top + kBorder);
    const bool strip = Within(point.y, window.top, window.top + kCaptionHeight);
    const bool bottom = Within(point.y, window.bottom - kBorder, window.bottom);
    const bool left = Within(point.x, window.left, window.left + kBorder);
    const bool right = Within(point.x, window.right - kBorder, window.right);

    if (top) return left ? HTTOPLEFT : right ? HTTOPRIGHT : HTTOP;
    if (strip) return HitStrip(point.x - window.left, point.y - window.top, clientRight);
    if (left) return bottom ? HTBOTTOMLEFT : HTLEFT;
    if (right) return bottom ? HTBOTTOMRIGHT : HTRIGHT;
    if (bottom) return HTBOTTOM;
    return std::nullopt;
}

} // namespace orvane::shell
