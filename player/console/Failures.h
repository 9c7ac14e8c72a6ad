// How the console program tells of what went wrong: an exit code and one line that says what to do.
#pragma once

#include "player/protocol/Outcome.h"

#include <string>

namespace orvane::player {

enum ExitCode : int {
    kExitOk = 0,
    kExitUsage = 1, // arguments, a script or a file that can't be used
    kExitHostNotFound = 2,
    kExitPipeBusy = 3,
    kExitNoReply = 4,
    kExitConnectionLost = 5,
    kExitSystem = 6,
};

[[nodiscard]] ExitCode ExitCodeOf(const Outcome& outcome);

// One line without its newline; empty if `outcome` is no failure.
[[nodiscard]] std::string ExplainFailure(const Outcome& outcome);

} // namespace orvane::player
