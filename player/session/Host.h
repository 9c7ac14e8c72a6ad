// The visualizer host as the player's logic sees it: a process that is found or started, and a connection to it.
#pragma once

#include "player/protocol/Outcome.h"

#include <chrono>
#include <cstdint>
#include <span>

namespace orvane::player {

enum class HostStart {
    kFound,         // one was there
    kStarted,       // none was there, and now one is
    kNoProgram,     // none was there, and the program to start isn't beside the player
    kNotStarted,    // the system refused to start it, or it ended at once; the code says why
    kNoPipe,        // it was started and made no pipe in time
    kForeignServer, // the pipe belongs to another process than the one started
    kPipeBusy,      // another player is served
    kSystem,        // the pipe can't be used; the code says why
};

struct HostOpening {
    HostStart start = HostStart::kFound;
    std::uint32_t systemCode = 0;

    explicit operator bool() const { return start == HostStart::kFound || start == HostStart::kStarted; }

    bool operator==(const HostOpening&) const = default;
};

class IHost {
public:
    virtual ~IHost() = default;

    // Finds a host or starts one, and connects to it.
    [[nodiscard]] virtual HostOpening Open() = 0;

    // One request, then one reply. A time-out leaves the reply to be received later.
    [[nodiscard]] virtual Outcome Send(std::span<const std::uint8_t> request) = 0;
    [[nodiscard]] virtual Reply Receive(std::chrono::milliseconds timeout) = 0;

    // Lets the host's window come to the foreground. Right before a visualizer is selected.
    virtual void LetComeForward() = 0;

    // Whether the process has ended, or the window that it once had is destroyed. A host without a window never
    // had one.
    [[nodiscard]] virtual bool IsGone() = 0;

    // Whether its window fills a monitor.
    [[nodiscard]] virtual bool IsFullScreen() = 0;

    // Moves its window to the middle of a monitor, counted from 1. False if there is no such monitor or window.
    [[nodiscard]] virtual bool MoveToMonitor(int number) = 0;

    // Disconnects, and ends the process if it was started by Open.
    virtual void Close() = 0;

    // Disconnects and ends the process, which is of no more use, whoever started it. One that was found and never had
    // a host's window is left alone.
    virtual void Discard() = 0;
};

} // namespace orvane::player
