#include "zephor/layers/SliceThreads.h"

#include <system_error>

#ifdef __x86_64__
#    include <immintrin.h>
#endif

namespace orvane::zephor {

namespace {

// How often a thread looks for more before it sleeps: some tens of microseconds, which is longer than the
// pause between the halves of one frame's work.
constexpr int kLooks = 2000;
// How often the caller looks for the others' last slices before it lets them have its processor.
constexpr int kLooksAtOthers = 4000;
constexpr int kJobShift = 32;

void Pause() {
#ifdef __x86_64__
    _mm_pause();
#endif
}

std::uint32_t JobOf(std::uint64_t left) {
    return std::uint32_t(left >> kJobShift);
}

int CountOf(std::uint64_t left) {
    return int(std::uint32_t(left));
}

} // namespace

SliceThreads::SliceThreads(int threads) {
    for (int i = 1; i < threads; ++i) {
        try {
            mThreads.emplace_back([this] { Serve(); });
        } catch (const std::system_error&) {
            break;
        }
    }
}

SliceThreads::~SliceThreads() {
    {
        const std::lock_guard lock(mSleep);
        mLeaving.store(true);
    }
    mWake.notify_all();
    for (std::thread& thread : mThreads) thread.join();
}

void SliceThreads::RunShared(int count, Function function, const void* context) {
    mFunction.store(function, std::memory_order_relaxed);
    mContext.store(context, std::memory_order_relaxed);
    mDone.store(0, std::memory_order_relaxed);
    const std::uint64_t job = JobOf(mLeft.load(std::memory_order_relaxed)) + std::uint64_t(1);
    // Sequentially consistent with the sleepers' own count: either a thread about to sleep sees the new job, or
    // it is seen here.
    mLeft.store(job << kJobShift | std::uint32_t(count));
    if (mSleepers.load() != 0) {
        { const std::lock_guard lock(mSleep); }
        mWake.notify_all();
    }
    while (TakeSlice()) {}
    for (int looks = 0; mDone.load(std::memory_order_acquire) != count; ++looks) {
        if (looks < kLooksAtOthers)
            Pause();
        else
            std::this_thread::yield();
    }
}

bool SliceThreads::TakeSlice() {
    std::uint64_t left = mLeft.load(std::memory_order_acquire);
    while (CountOf(left) != 0) {
        // They belong to the job of `left` if that still stands.
        const Function function = mFunction.load(std::memory_order_relaxed);
        const void* const context = mContext.load(std::memory_order_relaxed);
        if (!mLeft.compare_exchange_weak(left, left - 1, std::memory_order_acq_rel)) continue;
        function(context, CountOf(left) - 1);
        mDone.fetch_add(1, std::memory_order_release);
        return true;
    }
    return false;
}

void SliceThreads::Serve() {
    std::uint32_t lastJob = 0;
    while (WaitForJob(lastJob)) {
        lastJob = JobOf(mLeft.load(std::memory_order_acquire));
        while (TakeSlice()) {}
    }
}

bool SliceThreads::WaitForJob(std::uint32_t lastJob) {
    const auto hasNews = [&] { return mLeaving.load() || JobOf(mLeft.load()) != lastJob; };
    for (int looks = 0; looks < kLooks && !hasNews(); ++looks) Pause();
    if (!hasNews()) {
        std::unique_lock lock(mSleep);
        mSleepers.fetch_add(1);
        mWake.wait(lock, hasNews);
        mSleepers.fetch_sub(1);
    }
    return !mLeaving.load();
}

} // namespace orvane::zephor
