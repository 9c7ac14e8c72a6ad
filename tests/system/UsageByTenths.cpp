#include "system/UsageByTenths.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>

namespace orvane::tests {

namespace {

constexpr std::size_t kMostDescriptors = 4; // more or fewer than before
constexpr double kMostMemoryChange = 0.02;  // of what it was
constexpr std::size_t kBytesPerKilobyte = 1024;

std::size_t Middle(std::vector<std::size_t> values) {
    if (values.empty()) return 0;
    std::nth_element(values.begin(), values.begin() + int(values.size() / 2), values.end());
    return values[values.size() / 2];
}

} // namespace

void UsageByTenths::Sample(int tenth) {
    mMemory[tenth].push_back(mUsage.MemoryBytes());
    mDescriptors[tenth].push_back(mUsage.Descriptors());
}

UsageByTenths::Level UsageByTenths::Of(int tenth) const {
    return { Middle(mMemory[tenth]), Middle(mDescriptors[tenth]) };
}

void UsageByTenths::Print() const {
    for (int tenth = 0; tenth < kTenths; ++tenth)
        std::printf("tenth %2d: %zu KiB, %zu descriptors\n", tenth + 1, Of(tenth).memory / kBytesPerKilobyte,
                    Of(tenth).descriptors);
}

void UsageByTenths::ExpectFlat() const {
    const Level second = Of(1);
    const Level last = Of(kTenths - 1);
    ASSERT_GT(second.memory, 0u);
    ASSERT_GT(second.descriptors, 0u);
    EXPECT_NEAR(double(last.memory), double(second.memory), kMostMemoryChange * double(second.memory));
    EXPECT_NEAR(double(last.descriptors), double(second.descriptors), double(kMostDescriptors));
}

} // namespace orvane::tests
