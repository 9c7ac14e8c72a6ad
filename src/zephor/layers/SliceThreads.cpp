#include "zephor/layers/SliceThreads.h"

#include <chrono>
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

void Pause() {
#ifdef __x86_64__
    _mm_pause();
#endif
}

// What is left of a job, in one word: its number in the upper half, the first slice that nobody has taken and the
// one after the last in 16 bits each.
struct Left {
    std::uint32_t job;
    int first, end;

    explicit Left(std::uint64_t word)
        : job(std::uint32_t(word >> 32))
        , first(int(word >> 16 & 0xFFFF))
        , end(int(word & 0xFFFF)) {}

    Left(std::uint32_t newJob, int count)
        : job(newJob)
        , first(0)
        , end(count) {}

    [[nodiscard]] std::uint64_t Word() const {
        return std::uint64_t(job) << 32 | std::uint64_t(first) << 16 | std::uint64_t(end);
    }
};

} // namespace

SliceThreads::SliceThreads(int threads) {
    if (threads > 1) {
        // A platform's lock may take memory with its first use. It takes it here, so that no frame finds it missing.
        std::unique_lock lock(mSleep);
        mWake.wait_for(lock, std::chrono::nanoseconds(0));
    }
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
    const std::uint32_t job = Left(mLeft.load(std::memory_order_relaxed)).job + 1;
    // Sequentially consistent with the sleepers' own count: either a thread about to sleep sees the new job, or
    // it is seen here.
    mLeft.store(Left(job, count).Word());
    if (mSleepers.load() != 0) {
        { const std::lock_guard lock(mSleep); }
        mWake.notify_all();
    }
    while (TakeSlice(Side::Last)) {}
    for (int looks = 0; mDone.load(std::memory_order_acquire) != count; ++looks) {
        if (looks < kLooksAtOthers)
            Pause();
        else
            std::this_thread::yield();
    }
}

bool SliceThreads::TakeSlice(Side side) {
    std::uint64_t word = mLeft.load(std::memory_order_acquire);
    for (Left left(word); left.first != left.end; left = Left(word)) {
        // They belong to the job of `word` if that still stands.
        const Function function = mFunction.load(std::memory_order_relaxed);
        const void* const context = mContext.load(std::memory_order_relaxed);
        const int slice = side == Side::First ? left.first++ : --left.end;
        if (!mLeft.compare_exchange_weak(word, left.Word(), std::memory_order_acq_rel)) continue;
        function(context, slice);
        mDone.fetch_add(1, std::memory_order_release);
        return true;
    }
    return false;
}

void SliceThreads::Serve() {
    std::uint32_t lastJob = 0;
    while (WaitForJob(lastJob)) {
        lastJob = Left(mLeft.load(std::memory_order_acquire)).job;
        while (TakeSlice(Side::First)) {}
    }
}

bool SliceThreads::WaitForJob(std::uint32_t lastJob) {
    const auto hasNews = [&] { return mLeaving.load() || Left(mLeft.load()).job != lastJob; };
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
