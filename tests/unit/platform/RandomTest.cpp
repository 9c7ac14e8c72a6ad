#include "platform/Random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <thread>
#include <vector>

namespace orvane::platform {
namespace {

// Drawn before main, so that no test has seeded or drawn before.
const int kFirstOfTheProcess = Rand();
const int kSecondOfTheProcess = Rand();

// The sequence by its definition, in 64-bit arithmetic.
std::vector<int> SequenceFrom(std::uint64_t seed, std::size_t count) {
    std::vector<int> numbers;
    for (std::size_t i = 0; i < count; ++i) {
        seed = (seed * 214013 + 2531011) % 0x100000000;
        numbers.push_back(int(seed / 0x10000 % 0x8000));
    }
    return numbers;
}

TEST(Random, Seed1234Gives4068Then213Then12761) {
    SeedRand(1234);
    EXPECT_EQ(Rand(), 4068);
    EXPECT_EQ(Rand(), 213);
    EXPECT_EQ(Rand(), 12761);
}

TEST(Random, AProcessStartsAsIfSeededWith1) {
    // (1 * 214013 + 2531011) / 65536 = 2745024 / 65536 = 41.9
    EXPECT_EQ(kFirstOfTheProcess, 41);
    // (2745024 * 214013 + 2531011) mod 2^32 = 3357800067; / 65536 = 51235.96; its low 15 bits are 18467
    EXPECT_EQ(kSecondOfTheProcess, 18467);
    SeedRand(1);
    EXPECT_EQ(Rand(), 41);
}

TEST(Random, FollowsTheDefinitionFromEverySeed) {
    for (const std::uint32_t seed : { 0u, 1u, 2u, 1234u, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu }) {
        SeedRand(seed);
        std::vector<int> drawn(1000);
        std::generate(drawn.begin(), drawn.end(), &Rand);
        EXPECT_EQ(drawn, SequenceFrom(seed, drawn.size())) << "seed " << seed;
    }
}

TEST(Random, ReachesBothEndsOfItsRange) {
    SeedRand(1);
    std::vector<int> drawn(1000000);
    std::generate(drawn.begin(), drawn.end(), &Rand);
    EXPECT_EQ(*std::min_element(drawn.begin(), drawn.end()), 0);
    EXPECT_EQ(*std::max_element(drawn.begin(), drawn.end()), kRandMax);
}

TEST(Random, ASeedSetInOneThreadIsGoneOnWithInAnother) {
    std::thread([] { SeedRand(1234); }).join();
    EXPECT_EQ(Rand(), 4068);
    int second = 0;
    std::thread([&second] { second = Rand(); }).join();
    EXPECT_EQ(second, 213);
    EXPECT_EQ(Rand(), 12761);
}

TEST(Random, ThreadsAtOnceShareOutTheSequenceAndNoNumberComesTwice) {
    constexpr std::size_t kDraws = 20000;
    SeedRand(77);
    std::vector<int> here(kDraws), there(kDraws);
    std::thread other([&there] { std::generate(there.begin(), there.end(), &Rand); });
    std::generate(here.begin(), here.end(), &Rand);
    other.join();
    std::vector<int> both = here, expected = SequenceFrom(77, 2 * kDraws);
    both.insert(both.end(), there.begin(), there.end());
    std::sort(both.begin(), both.end());
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(both, expected);
}

} // namespace
} // namespace orvane::platform
