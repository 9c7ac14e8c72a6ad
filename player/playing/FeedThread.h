// Keeps sound flowing while everybody else is busy.
#pragma once

#include "player/sound/windows/ComApartment.h"

#include <atomic>
#include <thread>

namespace orvane::player {

// Calls Feed of a deck or a live sound some hundred times a second, until it is destroyed. `fed` has to live longer.
template <typename Fed>
class FeedThread {
public:
    explicit FeedThread(Fed& fed)
        : mThread([this, &fed] { Run(fed); }) {}

    ~FeedThread() {
        mEnds = true;
        mThread.join();
    }

    FeedThread(const FeedThread&) = delete;
    FeedThread& operator=(const FeedThread&) = delete;

private:
    static constexpr DWORD kStepMilliseconds = 8;

    void Run(Fed& fed) {
        const ComApartment apartment;
        SetThreadPriority(GetCurrentThread(), THREAD_PRIORITY_HIGHEST); // music is short of time first
        while (!mEnds) {
            fed.Feed();
            Sleep(kStepMilliseconds);
        }
    }

    std::atomic<bool> mEnds = false;
    std::thread mThread; // last: it uses the rest
};

} // namespace orvane::player
