#include "system/UsageByTenths.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>

namespace orvane::tests {

namespace {

constexpr double kMostMemoryChange = 0.02;  // of what it was
constexpr std::size_t kMostDescriptors = 4; // more or fewer than before

std::size_t Least(const std::vector<std::size_t>& values) {
    return values.empty() ? 0 : *std::ranges::min_element(values);
}

} // namespace

void UsageByTenths::Sample(int tenth) {
    mMemory[std::size_t(tenth)].push_back(mUsage.MemoryBytes());
    mDescriptors[std::size_t(tenth)].push_back(mUsage.Descriptors());
}

Level UsageByTenths::Of(int tenth) const {
    return { Least(mMemory[std::size_t(tenth)]), Least(mDescriptors[std::size_t(tenth)]) };
}

void UsageByTenths::Print() const {
    for (int tenth = 0; tenth < kTenths; ++tenth)
        std::printf("tenth %2d: %zu KiB, %zu descriptors\n", tenth + 1, Of(tenth).memory / 1024,
                    Of(tenth).descriptors);
}

void UsageByTenths::ExpectFlat(std::size_t grownBytes) const {
    const Level second = Of(1), last = Of(kTenths - 1);
    ASSERT_GT(second.memory, 0u);
    ASSERT_GT(second.descriptors, 0u);
    EXPECT_NEAR(double(last.memory) - double(grownBytes), double(second.memory),
                kMostMemoryChange * double(second.memory));
    EXPECT_NEAR(double(last.descriptors), double(second.descriptors), double(kMostDescriptors));
}

} // namespace orvane::tests
