// Times of contenders that take turns within one measurement, so that what the machine does besides falls on all of
// them alike.
#pragma once

#include <algorithm>
#include <cstddef>
#include <ctime>
#include <vector>

namespace orvane::benches {

constexpr int kTurn = 8; // rounds until the next one's turn

enum class Clock : clockid_t {
    Wall = CLOCK_MONOTONIC,
    ThisThread = CLOCK_THREAD_CPUTIME_ID // the processor's time, so that others on the machine don't count
};

[[nodiscard]] inline double Microseconds(Clock clock) {
    timespec time = {};
    clock_gettime(clockid_t(clock), &time);
    return double(time.tv_sec) * 1e6 + double(time.tv_nsec) * 1e-3;
}

// The times of one contender.
class Rounds {
public:
    explicit Rounds(Clock clock = Clock::ThisThread)
        : mClock(clock) {}

    template <class Work>
    void Run(const Work& work) {
        const double start = Microseconds(mClock);
        work();
        mTimes.push_back(Microseconds(mClock) - start);
    }

    [[nodiscard]] double Median() {
        const auto middle = mTimes.begin() + std::ptrdiff_t(mTimes.size() / 2);
        std::nth_element(mTimes.begin(), middle, mTimes.end());
        return *middle;
    }

private:
    Clock mClock;
    std::vector<double> mTimes;
};

} // namespace orvane::benches
