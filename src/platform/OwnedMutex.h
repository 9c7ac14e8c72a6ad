// A plain mutex that knows its owner, so that it fails where others hang.
//
// Locking it twice in one thread raises std::system_error (resource_deadlock_would_occur), as the platform's
// own mutex would; some C++ runtimes would stand still for ever instead. It is not recursive.
#pragma once

#include <atomic>
#include <mutex>
#include <system_error>
#include <thread>

namespace orvane::platform {

class OwnedMutex {
public:
    void lock() { // NOLINT(readability-identifier-naming): the standard library's names for a lockable
        // Only this thread can have stored its own id, so the answer cannot change while it is looked at.
        if (IsHeldByThisThread())
            throw std::system_error(std::make_error_code(std::errc::resource_deadlock_would_occur));
        mMutex.lock();
        mOwner.store(std::this_thread::get_id(), std::memory_order_relaxed);
    }

    void unlock() { // NOLINT(readability-identifier-naming)
        mOwner.store(std::thread::id(), std::memory_order_relaxed);
        mMutex.unlock();
    }

    [[nodiscard]] bool IsHeldByThisThread() const {
        return mOwner.load(std::memory_order_relaxed) == std::this_thread::get_id();
    }

private:
    std::mutex mMutex;
    std::atomic<std::thread::id> mOwner;
};

using OwnedLock = std::lock_guard<OwnedMutex>;

} // namespace orvane::platform
