#include "shell/windows/HitTest.h"

#include "shell/server/WindowGeometry.h"

#include <algorithm>
#include <iterator>

namespace orvane::shell {

namespace {

// The parts of the window that a point can lie in, several at once; bits.
enum Part : unsigned {
    kTopBorder = 1,
    kStrip = 2, // the top border included
    kBottomBorder = 4,
    kLeftBorder = 8,
    kRightBorder = 16,
    kBoxRows = 32, // the rows of the strip in which its boxes take clicks: those of the icons' strokes
    kCloseBox = 64,
    kZoomBox = 128,
};

constexpr LONG kBoxTop = 10;
constexpr LONG kBoxEnd = 27;

// The first row whose parts all hold the point decides.
//
// KEEP: the strip is caption at its left and right edge too, so that it can't be sized by them. A strip of 30
// pixels is to be dragged by, wherever it is taken. Pinned by HitTest.InTheStripOnTheLeftBorderIsCaption.
struct HitRow {
    unsigned parts;
    LRESULT code;
};

constexpr HitRow kHits[] = {
    { kTopBorder | kLeftBorder, HTTOPLEFT },
    { kTopBorder | kRightBorder, HTTOPRIGHT },
    { kTopBorder, HTTOP },
    { kStrip | kBoxRows | kCloseBox, HTCLOSE },
    { kStrip | kBoxRows | kZoomBox, HTMAXBUTTON },
    { kStrip, HTCAPTION },
    { kLeftBorder | kBottomBorder, HTBOTTOMLEFT },
    { kLeftBorder, HTLEFT },
    { kRightBorder | kBottomBorder, HTBOTTOMRIGHT },
    { kRightBorder, HTRIGHT },
    { kBottomBorder, HTBOTTOM },
};

// Lower limit included, upper excluded.
constexpr unsigned PartIf(Part part, LONG value, LONG from, LONG to) {
    return from <= value && value < to ? part : 0u;
}

unsigned PartsAt(POINT point, const RECT& window, LONG clientRight) {
    const auto box = [&](Part part, LONG inset) { // as wide as its icon
        const LONG right = window.left + clientRight - inset;
        return PartIf(part, point.x, right - kIconWidth, right);
    };
    return PartIf(kTopBorder, point.y, window.top, window.top + kBorder) |
           PartIf(kStrip, point.y, window.top, window.top + kCaptionHeight) |
           PartIf(kBottomBorder, point.y, window.bottom - kBorder, window.bottom) |
           PartIf(kLeftBorder, point.x, window.left, window.left + kBorder) |
           PartIf(kRightBorder, point.x, window.right - kBorder, window.right) |
           PartIf(kBoxRows, point.y, window.top + kBoxTop, window.top + kBoxEnd) |
           box(kCloseBox, kCloseIconInset) | box(kZoomBox, kZoomIconInset);
}

} // namespace

std::optional<LRESULT> HitTest(POINT point, const RECT& window, LONG clientRight) {
    const unsigned parts = PartsAt(point, window, clientRight);
    const auto* row = std::find_if(std::begin(kHits), std::end(kHits), [&](const HitRow& candidate) {
        return (parts & candidate.parts) == candidate.parts;
    });
    return row == std::end(kHits) ? std::nullopt : std::optional(row->code);
}

} // namespace orvane::shell
