// How much larger than life this display shows things.
#pragma once

namespace orvane::platform {

// The screen's logical pixels per inch along x, over 96. Asked of the system once and kept for the life of
// the process; 1 if the screen can't be asked. From any thread.
[[nodiscard]] double DisplayFactor();

// A test sets its own screen; null restores the system's. The factor is asked for anew at its next use.
// Returns the old source.
using DpiSource = int (*)(); // pixels per inch; 0 if the screen can't be asked
DpiSource SetDpiSource(DpiSource source);

// The platform's own screen, as a DpiSource. One file for each platform; natively it is always 96.
[[nodiscard]] int SystemDpi();

} // namespace orvane::platform
