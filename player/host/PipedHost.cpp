#include "player/host/PipedHost.h"

#include "player/host/StartHost.h"

#include <utility>

namespace orvane::player {

namespace {

using std::chrono::milliseconds;

// A host whose player has just left makes its pipe anew, and one that serves another may be about to be left.
constexpr milliseconds kFindTimeout{ 1000 };
// A host looks through its plug-in folders before it makes the pipe.
constexpr milliseconds kStartTimeout{ 60000 };
constexpr milliseconds kStartStep{ 100 }; // between two looks whether it still runs
constexpr milliseconds kSendTimeout{ 10000 };
constexpr DWORD kQuitMilliseconds = 5000; // for a host to end by itself
constexpr UINT kEndedByPlayer = 1;        // exit code of one that didn't

HostOpening NotConnected(const Outcome& outcome) {
    const bool busy = outcome.failure == Failure::kPipeBusy;
    return { busy ? HostStart::kPipeBusy : HostStart::kSystem, outcome.systemCode };
}

} // namespace

HostOpening PipedHost::Open() {
    Close();
    const Outcome connected = mClient.Connect(kFindTimeout);
    if (connected) return Adopt(HostStart::kFound);
    if (connected.failure != Failure::kHostNotFound) return NotConnected(connected);
    return Start();
}

// The connection's other end is the host from now on.
HostOpening PipedHost::Adopt(HostStart start) {
    const DWORD server = mClient.ServerProcessId();
    if (mStartedHere && server != mProcessId) {
        EndProcess();
        Forget();
        return { HostStart::kForeignServer, 0 };
    }
    mProcessId = server;
    if (!mProcess) mProcess = player::Adopt(OpenProcess(SYNCHRONIZE | PROCESS_TERMINATE, FALSE, server));
    mWindow.Find(mProcessId);
    return { start, 0 };
}

HostOpening PipedHost::Start() {
    if (GetFileAttributesW(mProgram.c_str()) == INVALID_FILE_ATTRIBUTES) return { HostStart::kNoProgram, 0 };
    StartedProcess started = StartLimited(mProgram);
    if (!started.process) return { HostStart::kNotStarted, started.error };
    mProcess = std::move(started.process);
    mProcessId = started.id;
    mMainThreadId = started.mainThreadId;
    mStartedHere = true;
    return ConnectToStarted();
}

HostOpening PipedHost::ConnectToStarted() {
    for (milliseconds waited{ 0 }; waited < kStartTimeout; waited += kStartStep) {
        const Outcome connected = mClient.Connect(kStartStep);
        if (connected) return Adopt(HostStart::kStarted);
        if (WaitForSingleObject(mProcess.get(), 0) != WAIT_OBJECT_0) continue;
        DWORD exitCode = 0;
        GetExitCodeProcess(mProcess.get(), &exitCode);
        Forget();
        return { HostStart::kNotStarted, exitCode };
    }
    EndProcess();
    Forget();
    return { HostStart::kNoPipe, 0 };
}

Outcome PipedHost::Send(std::span<const std::uint8_t> request) {
    return mClient.Send(request, kSendTimeout);
}

Reply PipedHost::Receive(std::chrono::milliseconds timeout) {
    return mClient.Receive(timeout);
}

void PipedHost::LetComeForward() {
    AllowSetForegroundWindow(mProcessId); // where that isn't ours to give, the window stays where it is
}

bool PipedHost::IsGone() {
    if (mProcess && WaitForSingleObject(mProcess.get(), 0) == WAIT_OBJECT_0) return true;
    mWindow.Find(mProcessId);
    return mWindow.IsDestroyed();
}

bool PipedHost::IsFullScreen() {
    return mWindow.FillsMonitor();
}

bool PipedHost::MoveToMonitor(int number) {
    return mWindow.MoveToMonitor(number);
}

void PipedHost::Close() {
    mClient.Disconnect();
    if (mStartedHere) EndProcess();
    Forget();
}

void PipedHost::Discard() {
    mClient.Disconnect();
    if (mStartedHere || mWindow.ThreadId() != 0) EndProcess();
    Forget();
}

// Asks the main thread to end the process, which runs its course then; one that doesn't is ended from outside.
void PipedHost::EndProcess() {
    if (!mProcess) return;
    const DWORD thread = mMainThreadId ? mMainThreadId : mWindow.ThreadId();
    const bool asked = thread && PostThreadMessageW(thread, WM_QUIT, 0, 0);
    if (asked && WaitForSingleObject(mProcess.get(), kQuitMilliseconds) == WAIT_OBJECT_0) return;
    TerminateProcess(mProcess.get(), kEndedByPlayer);
    WaitForSingleObject(mProcess.get(), kQuitMilliseconds);
}

void PipedHost::Forget() {
    mClient.Disconnect();
    mWindow = HostWindow();
    mProcess.reset();
    mProcessId = 0;
    mMainThreadId = 0;
    mStartedHere = false;
}

} // namespace orvane::player
