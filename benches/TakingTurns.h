// Times of contenders that take turns within one measurement, so that what the machine does besides falls on all of
// them alike.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <vector>

namespace orvane::benches {

constexpr int kTurn = 8; // rounds until the next one's turn

// The times of one contender, from start to end, in microseconds.
class Rounds {
public:
    template <class Work>
    void Run(const Work& work) {
        using Clock = std::chrono::steady_clock;
        const auto start = Clock::now();
        work();
        mTimes.push_back(std::chrono::duration<double, std::micro>(Clock::now() - start).count());
    }

    [[nodiscard]] double Median() {
        const auto middle = mTimes.begin() + std::ptrdiff_t(mTimes.size() / 2);
        std::nth_element(mTimes.begin(), middle, mTimes.end());
        return *middle;
    }

private:
    std::vector<double> mTimes;
};

} // namespace orvane::benches
