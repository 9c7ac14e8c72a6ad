// The token of a user who could have more rights than he is using.
#pragma once

#include "player/client/UniqueHandle.h"

namespace orvane::tests {

// Of this process: TokenElevationTypeFull, -Limited or -Default; 0 if it can't be read.
[[nodiscard]] int OwnElevationType();

// A primary token to start a process with that isn't fully elevated: the linked token of this process's own if
// that is a full one, else a copy of its own. Empty if it can't be had: some systems give a full process its
// linked token for looking only.
[[nodiscard]] player::UniqueHandle MakeLimitedToken();

} // namespace orvane::tests
