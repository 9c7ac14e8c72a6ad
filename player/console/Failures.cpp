#include "player/console/Failures.h"

namespace orvane::player {

namespace {

struct FailureRow {
    Failure failure;
    ExitCode exitCode;
    const char* advice; // one %u at most: the system's error
};

constexpr FailureRow kFailures[] = {
    { Failure::kHostNotFound, kExitHostNotFound,
      "No host has opened \\\\.\\pipe\\Visualizer. Start orvane-visualizer.exe, then try again." },
    { Failure::kPipeBusy, kExitPipeBusy,
      "The host serves another player. Close that player or give it time with --timeout SECONDS." },
    { Failure::kNoReplyInTime, kExitNoReply,
      "No reply came in time. Give the host more time with --timeout SECONDS, or see what its console "
      "says." },
    { Failure::kConnectionLost, kExitConnectionLost,
      "The connection broke (system error %u). See whether orvane-visualizer.exe still runs, then try "
      "again." },
    { Failure::kSystem, kExitSystem,
      "The pipe \\\\.\\pipe\\Visualizer can't be used: look up system error %u." },
};

const FailureRow* Find(Failure failure) {
    for (const auto& row : kFailures)
        if (row.failure == failure) return &row;
    return nullptr;
}

} // namespace

ExitCode ExitCodeOf(const Outcome& outcome) {
    const auto* row = Find(outcome.failure);
    return row ? row->exitCode : kExitOk;
}

std::string ExplainFailure(const Outcome& outcome) {
    const auto* row = Find(outcome.failure);
    if (!row) return {};
    const std::string advice = row->advice;
    const auto at = advice.find("%u");
    if (at == std::string::npos) return advice;
    return advice.substr(0, at) + std::to_string(outcome.systemCode) + advice.substr(at + 2);
}

} // namespace orvane::player
