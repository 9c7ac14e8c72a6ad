// How the top-level window is laid out, in pixels: a caption strip that is drawn by hand, borders to size
// it by, and the proxy window in the rest.
#pragma once

namespace orvane::shell {

inline constexpr int kInitialWidth = 1000;
inline constexpr int kInitialHeight = 800;
inline constexpr int kBorder = 4; // left, right, bottom, and under the strip
inline constexpr int kCaptionHeight = 30;

inline constexpr int kIconWidth = 25;
inline constexpr int kIconTop = 9;
inline constexpr int kCloseIconInset = 18; // from the icon's right edge to the window's
inline constexpr int kZoomIconInset = 64;

} // namespace orvane::shell
