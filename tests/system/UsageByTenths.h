// What a host had in use in each tenth of a long run, so that a leak shows whatever single samples say.
#pragma once

#include "system/HostUsage.h"

#include <array>
#include <cstdlib>
#include <string_view>
#include <vector>

namespace orvane::tests {

constexpr int kTenths = 10;

// Whether the environment asks for the long forms of the tests that have two: ORVANE_SOAK=1.
[[nodiscard]] inline bool WantsLongForm() {
    const char* wish = std::getenv("ORVANE_SOAK");
    return wish && std::string_view(wish) == "1";
}

// The least of each, of all samples taken in one tenth of the run: what a host holds at rest depends on where it has
// been last, by some megabytes up and down, while a leak raises the least like everything else.
struct Level {
    std::size_t memory = 0; // bytes
    std::size_t descriptors = 0;
};

// Observes `usage`.
class UsageByTenths {
public:
    explicit UsageByTenths(const HostUsage& usage)
        : mUsage(usage) {}

    void Sample(int tenth);

    [[nodiscard]] Level Of(int tenth) const;

    // A line for each tenth, on the standard output.
    void Print() const;

    // Fails the test unless the last tenth was on the level of the second: within 2 % of memory, from which
    // `grownBytes` that are accounted for are taken first, and within 4 descriptors. The first tenth is left for
    // warming up, besides what the run did before it.
    void ExpectFlat(std::size_t grownBytes = 0) const;

private:
    const HostUsage& mUsage;
    std::array<std::vector<std::size_t>, kTenths> mMemory;
    std::array<std::vector<std::size_t>, kTenths> mDescriptors;
};

} // namespace orvane::tests
