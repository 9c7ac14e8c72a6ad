#include "zephor/layers/SliceThreads.h"

#include "zephor/layers/Slices.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <numeric>
#include <thread>
#include <vector>

namespace orvane::zephor {
namespace {

TEST(Slices, RowsArePartedEvenlyAndTheLastSlicesTakeWhatIsLeft) {
    // 10 rows in 4 slices of (10 - 1 + 4) / 4 = 3.
    const int expected[][2] = { { 0, 3 }, { 3, 6 }, { 6, 9 }, { 9, 10 } };
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(RowsOfSlice(10, 4, i).first, expected[i][0]);
        EXPECT_EQ(RowsOfSlice(10, 4, i).end, expected[i][1]);
    }
}

TEST(Slices, EveryRowIsInOneSliceWhateverTheirNumber) {
    for (int height = 1; height <= 40; ++height)
        for (int slices = 1; slices <= 64; ++slices) {
            int next = 0;
            for (int i = 0; i < slices; ++i) {
                const RowRange rows = RowsOfSlice(height, slices, i);
                EXPECT_EQ(rows.first, next);
                EXPECT_LE(rows.first, rows.end);
                next = rows.end;
            }
            EXPECT_EQ(next, height) << slices << " slices";
        }
}

TEST(Slices, TheirNumberIsThatOfTheCoresRoundedUpToAPowerOfTwoAndAtLeast2) {
    const unsigned rows[][2] = { { 0, 2 }, { 1, 2 }, { 2, 2 },   { 3, 4 },   { 4, 4 },
                                 { 5, 8 }, { 8, 8 }, { 12, 16 }, { 64, 64 }, { 65, 128 } };
    for (const auto& [cores, slices] : rows) EXPECT_EQ(SliceCountForCores(cores), int(slices)) << cores;
}

void ExpectEachOnce(SliceThreads& threads, int count) {
    std::vector<std::atomic<int>> done(static_cast<std::size_t>(count));
    threads.Run(count, [&](int i) { ++done[std::size_t(i)]; });
    for (const auto& times : done) ASSERT_EQ(times, 1) << "of " << count;
}

TEST(SliceThreads, EachSliceIsDoneOnceAndAllAreDoneOnReturn) {
    for (const int threadCount : { -1, 0, 1, 2, 3, 8 }) {
        SliceThreads threads(threadCount);
        for (int round = 0; round < 300; ++round)
            for (const int count : { 0, 1, 2, 3, 8, 33 }) ExpectEachOnce(threads, count);
    }
}

TEST(SliceThreads, OneThreadWorksInOrderOnTheCaller) {
    SliceThreads threads(1);
    const std::thread::id caller = std::this_thread::get_id();
    std::vector<int> order;
    threads.Run(5, [&](int i) {
        EXPECT_EQ(std::this_thread::get_id(), caller);
        order.push_back(i);
    });
    EXPECT_EQ(order, (std::vector<int>{ 0, 1, 2, 3, 4 }));
}

TEST(SliceThreads, AJobOfMoreSlicesThanCanBeSharedIsDoneByTheCaller) {
    SliceThreads threads(2);
    ExpectEachOnce(threads, SliceThreads::kMostShared);
    ExpectEachOnce(threads, SliceThreads::kMostShared + 1);
}

// Each of the two slices waits for the other one, so they can't have been done by one thread.
void ExpectTwoAtOneTime(SliceThreads& threads) {
    std::atomic<int> arrived{ 0 };
    threads.Run(2, [&](int) {
        ++arrived;
        while (arrived != 2) std::this_thread::yield();
    });
    EXPECT_EQ(arrived, 2);
}

TEST(SliceThreads, TwoThreadsWorkAtOneTime) {
    SliceThreads threads(2);
    for (int round = 0; round < 20; ++round) ExpectTwoAtOneTime(threads);
}

TEST(SliceThreads, AThreadThatFellAsleepBetweenFramesWakesForTheNext) {
    SliceThreads threads(2);
    for (int round = 0; round < 5; ++round) {
        std::this_thread::sleep_for(std::chrono::milliseconds(20)); // far longer than it looks for work
        ExpectTwoAtOneTime(threads);
    }
}

TEST(SliceThreads, WhatSlicesWroteIsSeenByTheCallerAndByTheNextJob) {
    SliceThreads threads(2);
    std::vector<int> first(64), second(64);
    for (int round = 1; round <= 2000; ++round) {
        threads.Run(64, [&](int i) { first[std::size_t(i)] = i * round; });
        threads.Run(64, [&](int i) { second[std::size_t(i)] = first[std::size_t(63 - i)]; });
        ASSERT_EQ(std::accumulate(second.begin(), second.end(), 0), 63 * 32 * round);
    }
}

TEST(SliceThreads, ThreadsThatNeverGotAJobEndWithTheirOwner) {
    for (int round = 0; round < 50; ++round) const SliceThreads threads(4);
}

} // namespace
} // namespace orvane::zephor
