// One request and the place for its reply, wherever they come from and go to: the pipe, or a test's bytes.
#pragma once

#include "shell/protocol/Requests.h"

#include <cstdint>

namespace orvane::shell {

class IExchange {
public:
    virtual ~IExchange() = default;

    // The input buffer: kMessageCapacity bytes can be read, of which the first BytesRead() are the request.
    // What lies behind it is left over from earlier, longer requests.
    [[nodiscard]] virtual const std::uint8_t* Input() const = 0;
    [[nodiscard]] virtual std::uint32_t BytesRead() const = 0;

    // Where the reply is made: kMessageCapacity bytes.
    [[nodiscard]] virtual std::uint8_t* Output() = 0;

    // Sends the first `length` bytes of the output buffer. True if they are written; false if the write is
    // under way or has failed.
    virtual bool WriteReply(std::uint32_t length) = 0;
};

} // namespace orvane::shell
