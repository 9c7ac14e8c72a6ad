// Playing music as the options say, on this machine's sound device, host and console.
#pragma once

#include "player/console/Failures.h"
#include "player/session/PlayOptions.h"

namespace orvane::player {

[[nodiscard]] ExitCode Play(const PlayOptions& options);

} // namespace orvane::player
