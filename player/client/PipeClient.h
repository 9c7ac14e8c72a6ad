// The player's end of the host's pipe.
//
// One request, one reply, each with a time-out. Nothing here throws, and nothing waits for ever. Not for use
// by two threads at once.
#pragma once

#include "player/client/UniqueHandle.h"
#include "player/protocol/Outcome.h"

#include <chrono>
#include <span>

namespace orvane::player {

constexpr wchar_t kVisualizerPipe[] = LR"(\\.\pipe\Visualizer)";

class PipeClient {
public:
    using Milliseconds = std::chrono::milliseconds;

    // Opens the pipe, which the host may still have to make, or to free of another player: both are waited
    // for until the time-out. A connection that was there before is closed first.
    [[nodiscard]] Outcome Connect(Milliseconds timeout, const wchar_t* pipeName = kVisualizerPipe);

    void Disconnect() { mPipe.reset(); }

    [[nodiscard]] bool IsConnected() const { return mPipe != nullptr; }

    // Who made the pipe: the process's identifier, 0 if the system doesn't tell.
    [[nodiscard]] DWORD ServerProcessId() const;

    // Sends a request as one message; an empty one makes an empty message.
    [[nodiscard]] Outcome Send(std::span<const std::uint8_t> request, Milliseconds timeout);

    // Takes the next message, whatever its length. A time-out leaves the connection usable.
    [[nodiscard]] Reply Receive(Milliseconds timeout);

    // Send and Receive. A reply to an earlier request that came after its time-out is thrown away first, so
    // that it isn't taken for the reply to this one. The time-out counts for each of the two.
    [[nodiscard]] Reply Exchange(std::span<const std::uint8_t> request, Milliseconds timeout);

private:
    void DropLateReplies(Milliseconds timeout);

    UniqueHandle mPipe;
    UniqueHandle mEvent; // manual reset; signals the one operation that is under way
};

} // namespace orvane::player
