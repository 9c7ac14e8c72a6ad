// Threads that share out slices of work.
//
// They live as long as this object and sleep between the jobs of different frames. Which thread does a slice
// is left to chance, so a slice must not depend on any other one of its job.
#pragma once

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <thread>
#include <vector>

namespace orvane::zephor {

class SliceThreads {
public:
    static constexpr int kMostShared = 0xFFFF; // slices of a job; larger ones are done by the caller alone

    // `threads` counts the calling thread, so 1 (or less) starts none, and nothing is locked then. If the
    // system gives fewer threads, the work is shared by those that there are.
    explicit SliceThreads(int threads);
    ~SliceThreads();
    SliceThreads(const SliceThreads&) = delete;
    SliceThreads& operator=(const SliceThreads&) = delete;

    // Calls work(i) for each i from 0 to count - 1, some of them on the other threads; all are done on return.
    // `work` throws nothing. One caller at a time, always the same thread or otherwise ordered.
    template <class Work>
    void Run(int count, const Work& work) {
        if (mThreads.empty() || count > kMostShared) {
            for (int i = 0; i < count; ++i) work(i);
            return;
        }
        RunShared(
            count, [](const void* context, int i) { (*static_cast<const Work*>(context))(i); }, &work);
    }

private:
    using Function = void (*)(const void* context, int slice);

    void RunShared(int count, Function function, const void* context);
    // The caller takes slices from one end and the others from the other one. So of two threads each works on a
    // half that hangs together, and on much the same half in each job, whose memory is then close to it.
    enum class Side { First, Last };

    bool TakeSlice(Side side);
    void Serve();
    [[nodiscard]] bool WaitForJob(std::uint32_t lastJob);

    // The job's number and which of its slices nobody has taken. A thread that was held up takes a slice only if
    // both are still as it saw them; so it never takes one of a later job, and none once all are taken.
    std::atomic<std::uint64_t> mLeft{ 0 };
    std::atomic<int> mDone{ 0 };
    // Written only while no slice is left.
    std::atomic<Function> mFunction{ nullptr };
    std::atomic<const void*> mContext{ nullptr };
    std::atomic<int> mSleepers{ 0 };
    std::atomic<bool> mLeaving{ false };
    std::mutex mSleep;
    std::condition_variable mWake;
    std::vector<std::thread> mThreads;
};

} // namespace orvane::zephor
