#include "platform/OwnedMutex.h"

#include <gtest/gtest.h>

#include <thread>

namespace orvane::platform {
namespace {

TEST(OwnedMutex, LockedTwiceInOneThreadItRaisesAndStaysUsable) {
    OwnedMutex mutex;
    {
        const OwnedLock lock(mutex);
        try {
            mutex.lock();
            FAIL() << "a second lock in the same thread went through";
        } catch (const std::system_error& error) {
            EXPECT_EQ(error.code(), std::make_error_code(std::errc::resource_deadlock_would_occur));
        }
    }
    EXPECT_NO_THROW({ const OwnedLock lock(mutex); });
}

TEST(OwnedMutex, KnowsWhetherThisThreadHoldsIt) {
    OwnedMutex mutex;
    EXPECT_FALSE(mutex.IsHeldByThisThread());
    {
        const OwnedLock lock(mutex);
        EXPECT_TRUE(mutex.IsHeldByThisThread());
        bool heldThere = true;
        std::thread([&] { heldThere = mutex.IsHeldByThisThread(); }).join();
        EXPECT_FALSE(heldThere);
    }
    EXPECT_FALSE(mutex.IsHeldByThisThread());
}

TEST(OwnedMutex, TwoThreadsTakeTurns) {
    OwnedMutex mutex;
    int count = 0;
    const auto add = [&] {
        for (int i = 0; i < 10000; ++i) {
            const OwnedLock lock(mutex);
            ++count;
        }
    };
    std::thread other(add);
    add();
    other.join();
    EXPECT_EQ(count, 20000);
}

} // namespace
} // namespace orvane::platform
