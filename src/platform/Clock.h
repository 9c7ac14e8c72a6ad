// The clock by which everything animates: seconds as a double, from a millisecond counter of the system.
#pragma once

namespace orvane::platform {

// Seconds since some fixed moment (Windows: timeGetTime times 0.001). The counter wraps after some 49 days,
// which nobody handles: a frame step is clamped, so a wrap costs one frame.
[[nodiscard]] double NowSeconds();

// A test sets its own time; null restores the system's. Returns the old source.
using ClockSource = double (*)();
ClockSource SetClockSource(ClockSource source);

// The platform's own clock. One file for each platform.
[[nodiscard]] double SystemSeconds();

} // namespace orvane::platform
