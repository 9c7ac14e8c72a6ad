// What came of talking to the host.
#pragma once

#include <cstdint>
#include <vector>

namespace orvane::player {

using Bytes = std::vector<std::uint8_t>;

enum class Failure {
    kNone,
    kHostNotFound,   // nobody has made the pipe
    kPipeBusy,       // the pipe is there, and another player is on it
    kNoReplyInTime,  // the request was sent; the connection stays usable
    kConnectionLost, // the host closed the pipe, or there was no connection to begin with
    kSystem,         // anything else; the system's code says what
};

struct Outcome {
    Failure failure = Failure::kNone;
    std::uint32_t systemCode = 0; // the system's error, 0 if it gave none

    explicit operator bool() const { return failure == Failure::kNone; }

    bool operator==(const Outcome&) const = default;
};

// `bytes` is the whole reply, and empty if `outcome` is a failure.
struct Reply {
    Outcome outcome;
    Bytes bytes;
};

} // namespace orvane::player
