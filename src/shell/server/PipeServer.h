// The named pipe and the service thread's loop: one connection at a time, one overlapped operation in flight
// at a time, one manual-reset event that signals them all.
//
// The constructor and the first Initialize run on the main thread; then the service thread runs
// ServeConnection, and with it every operation that a request reaches. When a client goes away the pipe is
// made anew by the whole Initialize chain of the most derived class, on the service thread.
#pragma once

#include "shell/dispatch/RequestOperations.h"
#include "shell/server/PipeCalls.h"

#include <windows.h>

#include <atomic>
#include <cstdint>
#include <memory>

namespace orvane::shell {

constexpr wchar_t kPipeName[] = LR"(\\.\pipe\Visualizer)";

enum class PipeState : std::uint32_t {
    kReading = 0,    // the next step is to read a request
    kWriting = 1,    // a request is in the input buffer; the next step is to handle it and write the reply
    kConnecting = 2, // waiting for a client to connect
};

class PipeServer : public RequestOperations {
public:
    explicit PipeServer(const PipeCalls& calls = kPlatformPipeCalls);
    ~PipeServer() override;

    // Makes the pipe, in message mode if `messageMode` is above 0, and begins to wait for a client. False,
    // with a line, if the pipe or the event can't be made or connecting fails.
    bool Initialize(std::uint8_t messageMode) override;

    // The body of the service thread. Returns when the pipe can't be made again, or the process is leaving.
    void ServeConnection();

    // Handles the request in the input buffer. True exactly if the reply's write finished at once.
    bool HandleRequest();

    // The thread that all posted messages go to.
    void SetMainThreadId(DWORD id) { mMainThreadId = id; }

    [[nodiscard]] DWORD MainThreadId() const { return mMainThreadId; }

    // Starts the service thread on this server. Failure isn't tested: the process then stays without service.
    void StartServiceThread();

    // Asks the service thread to leave its loop and gives it a moment, so that it doesn't meet a server that
    // is being deleted. It isn't joined: a plug-in that hangs in a pulse must not keep the process.
    void AskServiceThreadToLeave();

private:
    friend class PendingIO;
    class PipeExchange;

    bool CreatePipe();
    bool CreateOverlappedEvent();
    bool ConnectOnce(bool& clientCameAndWent);
    bool ServeState();
    bool ServeReading();
    bool ServeWriting();
    bool RecreatePipe();
    bool WriteReply(std::uint32_t length);

    DWORD mBytesRead = 0; // length of the request in the input buffer
    BOOL mPendingIO = FALSE;
    PipeState mPipeState = PipeState::kReading;
    std::uint8_t mMessageMode = 1; // argument of the last Initialize
    HANDLE mThread = nullptr;
    DWORD mThreadId = 0;
    std::unique_ptr<std::uint8_t[]> mInputBuffer;  // kMessageCapacity bytes
    std::unique_ptr<std::uint8_t[]> mOutputBuffer; // kMessageCapacity bytes
    OVERLAPPED mOverlapped = {};
    HANDLE mPipe = INVALID_HANDLE_VALUE;
    DWORD mBytesWritten = 0; // what the last write reported
    DWORD mMainThreadId = 0;

    const PipeCalls& mCalls;
    bool mReplyTried = false;          // the request at hand came as far as a write
    DWORD mWriteError = ERROR_SUCCESS; // why that write did not finish at once
    static std::atomic<bool> sLeaving; // outlives every server
};

// Finishes the overlapped operation that is outstanding.
class PendingIO {
public:
    explicit PendingIO(PipeServer& server)
        : mServer(server) {}

    // Takes the result of the wait on the event and moves the server's state. False if a reply could not be
    // written because the client is gone.
    [[nodiscard]] bool Wait(DWORD waitResult);

private:
    [[nodiscard]] bool FinishRead();
    [[nodiscard]] bool FinishWrite();
    [[nodiscard]] bool FinishConnect();

    PipeServer& mServer;
};

// Whether a write's error says that there is no client any more.
[[nodiscard]] constexpr bool IsClientGone(DWORD error) {
    return error == ERROR_BROKEN_PIPE || error == ERROR_NO_DATA || error == ERROR_PIPE_NOT_CONNECTED;
}

} // namespace orvane::shell
