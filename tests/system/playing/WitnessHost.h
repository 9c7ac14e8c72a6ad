// A host of the test's own on the real pipe: answers one player, and remembers what it said.
#pragma once

#include "player/client/UniqueHandle.h"

#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace orvane::tests {

class WitnessHost {
public:
    // `pulseReplies` by the number of the pulse, from 0: what it tells in its reply behind the first word. Behind
    // the pulse of number `lastPulse` the pipe goes away, without a reply to it.
    explicit WitnessHost(std::map<std::size_t, std::string> pulseReplies = {},
                         std::size_t lastPulse = SIZE_MAX);

    // The player must have ended or be about to.
    ~WitnessHost();

    WitnessHost(const WitnessHost&) = delete;
    WitnessHost& operator=(const WitnessHost&) = delete;

    // Whether the pipe could be made: nobody else has it.
    [[nodiscard]] bool IsThere() const { return mMade; }

    // The tags of all requests so far in a row, pulses left out.
    [[nodiscard]] std::vector<std::string> Tags() const;

    // All pulses so far, whole.
    [[nodiscard]] std::vector<std::string> Pulses() const;

private:
    void Serve();
    void ServeClient();
    [[nodiscard]] std::string ReplyTo(const std::string& request);

    const std::map<std::size_t, std::string> mPulseReplies;
    const std::size_t mLastPulse;
    player::UniqueHandle mPipe;
    bool mMade = false;
    mutable std::mutex mMutex; // guards the two below
    std::vector<std::string> mTags;
    std::vector<std::string> mPulses;
    std::thread mThread; // last: it uses the rest
};

} // namespace orvane::tests
