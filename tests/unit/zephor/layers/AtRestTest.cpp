// A frame in which nothing changes asks the system for nothing.
#include "zephor/layers/DeltaFieldFade.h"

#include "AllocationCount.h"

#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <thread>

#ifdef __linux__
#    include <linux/filter.h>
#    include <linux/seccomp.h>

#    include <csignal>
#    include <cstddef>
#    include <sys/prctl.h>
#    include <sys/syscall.h>
#    include <sys/wait.h>
#    include <unistd.h>
#endif

namespace orvane::zephor {
namespace {

constexpr int kWidth = 322, kHeight = 202;
constexpr int kFrames = 50; // a whole fade and some at rest
constexpr int kWarmUp = 5;
constexpr int kPause = 10; // milliseconds; a thread that finds no work for that long sleeps

// A set that shows a field and is about to fade to it.
struct Scene {
    ZephorLayerSet layers;
    DeltaFieldFade fade;

    explicit Scene(int threads)
        : layers(threads) {
        layers.Resize(kWidth, kHeight);
        Fill(0.97f);
        Frame();
        Fill(0.66f);
        fade.FieldChanged();
        Frame(); // the one that builds the field
    }

    void Fill(float zoom) {
        layers.nextDeltaField->WillWrite();
        for (int y = 0; y < kHeight; ++y)
            for (int x = 0; x < kWidth; ++x)
                layers.nextDeltaField->RowToWrite(y)[x] = { float(x) * zoom, float(y) * zoom };
    }

    void Frame() {
        fade.StartFrame(layers);
        layers.StepFeedback();
    }
};

TEST(AtRest, AFrameAllocatesNothing) {
    for (const int threads : { 1, 2 })
        for (const FeedbackForm form : RunnableForms()) {
            Scene scene(threads);
            scene.layers.engine.UseForm(form);
            // Threads come up, work and sleep for the first time, for which the system may take memory.
            for (int i = 0; i < kWarmUp; ++i) {
                scene.Frame();
                std::this_thread::sleep_for(std::chrono::milliseconds(threads > 1 ? kPause : 0));
            }
            const std::size_t before = tests::Allocations();
            for (int frame = 0; frame < kFrames; ++frame) scene.Frame();
            EXPECT_EQ(tests::Allocations(), before) << NameOf(form) << " on " << threads;
        }
}

TEST(AtRest, AFrameThatPreparesAFieldIsSeenToAllocate) {
    Scene scene(1);
    const std::size_t before = tests::Allocations();
    scene.layers.Resize(kWidth + 1, kHeight);
    scene.Frame();
    EXPECT_GT(tests::Allocations(), before);
}

#ifdef __linux__

// From here on every system call but the end of the process is deadly.
void ForbidSystemCalls() {
    constexpr auto Statement = [](int code, std::uint32_t k) {
        return sock_filter{ static_cast<std::uint16_t>(code), 0, 0, k };
    };
    sock_filter filter[] = {
        Statement(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
        { BPF_JMP | BPF_JEQ | BPF_K, 0, 1, SYS_exit_group },
        Statement(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
        Statement(BPF_RET | BPF_K, SECCOMP_RET_KILL_PROCESS),
    };
    const sock_fprog program{ std::size(filter), filter };
    if (prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0) _exit(2);
    if (prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) != 0) _exit(3);
}

// How a process that runs this without system calls ends, as waitpid tells.
template <class Work>
int EndWithoutSystemCalls(const Work& work) {
    const pid_t child = fork();
    if (child == 0) {
        ForbidSystemCalls();
        work();
        syscall(SYS_exit_group, 0);
    }
    int status = -1;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    return status;
}

TEST(AtRest, AFrameOnOneThreadMakesNoSystemCall) {
    for (const FeedbackForm form : RunnableForms()) {
        Scene scene(1);
        scene.layers.engine.UseForm(form);
        scene.Frame();
        const int status = EndWithoutSystemCalls([&] {
            for (int frame = 0; frame < kFrames; ++frame) scene.Frame();
        });
        EXPECT_TRUE(WIFEXITED(status)) << NameOf(form);
        EXPECT_EQ(WEXITSTATUS(status), 0);
    }
}

TEST(AtRest, ASystemCallWouldBeSeen) {
    const int status = EndWithoutSystemCalls([] { syscall(SYS_getppid); });
    EXPECT_TRUE(WIFSIGNALED(status));
    EXPECT_EQ(WTERMSIG(status), SIGSYS);
}

#endif

} // namespace
} // namespace orvane::zephor
