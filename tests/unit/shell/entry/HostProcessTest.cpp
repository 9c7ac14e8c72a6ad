// The life of the host process, seen from outside.
#include "support/PipeClient.h"
#include "unit/shell/entry/HostProgram.h"

#include <gtest/gtest.h>

#include <string>

namespace orvane::shell {
namespace {

using namespace tests;

// The host, started with its standard output in a pipe of ours.
class HostProcess {
public:
    explicit HostProcess(DWORD flags = 0) {
        SECURITY_ATTRIBUTES inherited = { sizeof(inherited), nullptr, TRUE };
        HANDLE writeEnd = nullptr;
        CreatePipe(&mOutput, &writeEnd, &inherited, 0);
        SetHandleInformation(mOutput, HANDLE_FLAG_INHERIT, 0);
        STARTUPINFOW startup = {};
        startup.cb = sizeof(startup);
        startup.dwFlags = STARTF_USESTDHANDLES;
        startup.hStdOutput = writeEnd;
        mStarted = CreateProcessW(HostProgram().c_str(), nullptr, nullptr, nullptr, TRUE, flags, nullptr,
                                  nullptr, &startup, &mProcess);
        CloseHandle(writeEnd);
    }

    ~HostProcess() {
        TerminateProcess(mProcess.hProcess, 1); // fails if it ended by itself
        for (const HANDLE handle : { mProcess.hProcess, mProcess.hThread, mOutput }) CloseHandle(handle);
    }

    HostProcess(const HostProcess&) = delete;
    HostProcess& operator=(const HostProcess&) = delete;

    [[nodiscard]] bool Started() const { return mStarted; }

    [[nodiscard]] bool PostQuit(WPARAM exitCode) const {
        return PostThreadMessageW(mProcess.dwThreadId, WM_QUIT, exitCode, 0);
    }

    void Terminate() { TerminateProcess(mProcess.hProcess, 1); }

    // Waits for its end.
    [[nodiscard]] DWORD ExitCode() const {
        EXPECT_EQ(WaitForSingleObject(mProcess.hProcess, kPatienceMilliseconds), WAIT_OBJECT_0);
        DWORD exitCode = 0;
        EXPECT_TRUE(GetExitCodeProcess(mProcess.hProcess, &exitCode));
        return exitCode;
    }

    // All that it printed; to be asked after its end.
    [[nodiscard]] std::string Output() const {
        std::string text;
        char part[4096];
        DWORD count = 0;
        while (ReadFile(mOutput, part, sizeof(part), &count, nullptr) && count != 0) text.append(part, count);
        return text;
    }

private:
    PROCESS_INFORMATION mProcess = {};
    HANDLE mOutput = nullptr;
    bool mStarted = false;
};

// A pipe of the service's name that allows no second instance: the service can't make its own.
class ForeignPipe {
public:
    ForeignPipe()
        : mPipe(CreateNamedPipeW(LR"(\\.\pipe\Visualizer)", PIPE_ACCESS_DUPLEX, PIPE_TYPE_MESSAGE, 1, 4096,
                                 4096, 0, nullptr)) {}

    ~ForeignPipe() { CloseHandle(mPipe); }

    ForeignPipe(const ForeignPipe&) = delete;
    ForeignPipe& operator=(const ForeignPipe&) = delete;

    [[nodiscard]] bool IsOpen() const { return mPipe != INVALID_HANDLE_VALUE; }

private:
    HANDLE mPipe;
};

// Whether code at that address belongs to the program that was loaded at `base`, and not to a library.
bool IsOfProgram(HANDLE process, const void* address, const void* base) {
    MEMORY_BASIC_INFORMATION memory = {};
    return VirtualQueryEx(process, address, &memory, sizeof(memory)) && memory.AllocationBase == base;
}

// Follows a debugged host until it ends or, if `firstIsEnough`, starts a thread. How many threads of its
// own code it started; graphics libraries start others.
int ThreadsStarted(HostProcess& host, bool firstIsEnough) {
    int threads = 0;
    HANDLE process = nullptr;
    const void* base = nullptr;
    DEBUG_EVENT event = {};
    while (WaitForDebugEvent(&event, kPatienceMilliseconds)) {
        if (event.dwDebugEventCode == CREATE_PROCESS_DEBUG_EVENT) {
            process = event.u.CreateProcessInfo.hProcess;
            base = event.u.CreateProcessInfo.lpBaseOfImage;
            CloseHandle(event.u.CreateProcessInfo.hFile);
        }
        if (event.dwDebugEventCode == CREATE_THREAD_DEBUG_EVENT &&
            IsOfProgram(process, reinterpret_cast<const void*>(event.u.CreateThread.lpStartAddress), base))
            ++threads;
        if (event.dwDebugEventCode == LOAD_DLL_DEBUG_EVENT) CloseHandle(event.u.LoadDll.hFile);
        if (firstIsEnough && threads == 1) host.Terminate();
        ContinueDebugEvent(event.dwProcessId, event.dwThreadId, DBG_CONTINUE);
        if (event.dwDebugEventCode == EXIT_PROCESS_DEBUG_EVENT) return threads;
    }
    ADD_FAILURE() << "the host did not end";
    return threads;
}

TEST(HostProcess, ItsExitCodeIsTheParameterOfQuit) {
    HostProcess host;
    ASSERT_TRUE(host.Started());
    PipeClient client;
    EXPECT_EQ(client.Ask("DRAW"), "OK");
    EXPECT_TRUE(host.PostQuit(7));
    EXPECT_EQ(host.ExitCode(), 7u);
    const std::string output = host.Output();
    EXPECT_TRUE(output.ends_with("Exiting windows message loop\n")) << output;
}

TEST(HostProcess, GoesOnWhenItsClientLeaves) {
    HostProcess host;
    ASSERT_TRUE(host.Started());
    for (int i = 0; i < 3; ++i) {
        PipeClient client;
        EXPECT_EQ(client.Ask("DRAW"), "OK");
    }
    EXPECT_TRUE(host.PostQuit(0));
    EXPECT_EQ(host.ExitCode(), 0u);
}

TEST(HostProcess, AFailedInitializeEndsItWithMinusOneAndNoLineOfTheLoop) {
    const ForeignPipe foreign;
    ASSERT_TRUE(foreign.IsOpen());
    HostProcess host;
    ASSERT_TRUE(host.Started());
    EXPECT_EQ(host.ExitCode(), DWORD(-1));
    const std::string output = host.Output();
    EXPECT_TRUE(output.ends_with("CreateNamedPipe failed during initialization of the server. Error 231\n"))
        << output;
}

TEST(HostProcess, AFailedInitializeStartsNoServiceThread) {
    const ForeignPipe foreign;
    ASSERT_TRUE(foreign.IsOpen());
    HostProcess host(DEBUG_ONLY_THIS_PROCESS);
    ASSERT_TRUE(host.Started());
    EXPECT_EQ(ThreadsStarted(host, false), 0);
    EXPECT_EQ(host.ExitCode(), DWORD(-1));
}

TEST(HostProcess, AGoodInitializeIsFollowedByTheServiceThread) {
    HostProcess host(DEBUG_ONLY_THIS_PROCESS);
    ASSERT_TRUE(host.Started());
    EXPECT_EQ(ThreadsStarted(host, true), 1);
}

} // namespace
} // namespace orvane::shell
