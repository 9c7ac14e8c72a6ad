// What a conversation is held over: the host's pipe, or a test's table of replies.
#pragma once

#include "player/protocol/Outcome.h"

#include <chrono>
#include <span>

namespace orvane::player {

class IConnection {
public:
    virtual ~IConnection() = default;

    // Closes the connection that there is, if any, and opens a new one.
    [[nodiscard]] virtual Outcome Reconnect() = 0;

    // Sends one request and waits for its reply.
    [[nodiscard]] virtual Reply Exchange(std::span<const std::uint8_t> request,
                                         std::chrono::milliseconds timeout) = 0;
};

} // namespace orvane::player
