// Which part of the borderless top-level window a point belongs to.
#pragma once

#include <windows.h>

#include <optional>

namespace orvane::shell {

// The platform's hit-test code for a screen point over the window: its sizing borders, its caption strip
// and the two boxes on it. Nothing inside of these, where the platform decides. `window` is the window's
// rectangle on the screen, `clientRight` the right edge of its client rectangle.
[[nodiscard]] std::optional<LRESULT> HitTest(POINT point, const RECT& window, LONG clientRight);

} // namespace orvane::shell
