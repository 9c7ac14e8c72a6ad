// What a process has in use over a long run, by tenths of it: a leak shows as a rise from the second tenth, when all
// that is made once has been made, to the last.
#pragma once

#include "system/HostUsage.h"

#include <cstddef>
#include <vector>

namespace orvane::tests {

constexpr int kTenths = 10;

class UsageByTenths {
public:
    explicit UsageByTenths(const HostUsage& usage)
        : mUsage(usage) {}

    // Looks at the process now, in a tenth counted from 0.
    void Sample(int tenth);

    // A line for each tenth, on the standard output.
    void Print() const;

    // Fails the test that runs if the last tenth has other memory than the second by more than 2 % of it, or by more
    // than 4 descriptors.
    void ExpectFlat() const;

private:
    // The middle value of each, of all samples taken in one tenth of the run.
    struct Level {
        std::size_t memory = 0; // bytes
        std::size_t descriptors = 0;
    };

    [[nodiscard]] Level Of(int tenth) const;

    const HostUsage& mUsage;
    std::vector<std::size_t> mMemory[kTenths];
    std::vector<std::size_t> mDescriptors[kTenths];
};

} // namespace orvane::tests
