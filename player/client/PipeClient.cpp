#include "player/client/PipeClient.h"

#include <algorithm>
#include <array>

namespace orvane::player {

namespace {

using Milliseconds = PipeClient::Milliseconds;

constexpr DWORD kHostPollMilliseconds = 10; // between two looks for a pipe that isn't there yet
constexpr std::size_t kReadChunk = 16384;   // bytes; longer messages come in pieces of this

// A point in time, told in what is left until it.
class Deadline {
public:
    explicit Deadline(Milliseconds timeout)
        : mEnd(Clock::now() + timeout) {}

    [[nodiscard]] DWORD Left() const {
        const auto left = std::chrono::duration_cast<Milliseconds>(mEnd - Clock::now()).count();
        return DWORD(std::clamp<long long>(left, 0, INFINITE - 1));
    }

    [[nodiscard]] bool IsOver() const { return Clock::now() >= mEnd; }

private:
    using Clock = std::chrono::steady_clock;
    const Clock::time_point mEnd;
};

Outcome FromError(DWORD error) {
    switch (error) {
    case ERROR_SUCCESS:
        return {};
    case ERROR_FILE_NOT_FOUND:
        return { Failure::kHostNotFound, error };
    case ERROR_PIPE_BUSY:
        return { Failure::kPipeBusy, error };
    case WAIT_TIMEOUT:
        return { Failure::kNoReplyInTime, error };
    case ERROR_BROKEN_PIPE:
    case ERROR_NO_DATA:
    case ERROR_PIPE_NOT_CONNECTED:
        return { Failure::kConnectionLost, error };
    default:
        return { Failure::kSystem, error };
    }
}

// The host may learn who the player is but never act in its name: whoever made the pipe is not to be trusted
// with more.
HANDLE OpenPipe(const wchar_t* name) {
    return CreateFileW(name, GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                       FILE_FLAG_OVERLAPPED | SECURITY_SQOS_PRESENT | SECURITY_IDENTIFICATION, nullptr);
}

// Waits until another try to open the pipe makes sense.
void WaitForPipe(const wchar_t* name, DWORD error, const Deadline& deadline) {
    const DWORD least = 1; // 0 would mean the server's default
    if (error == ERROR_PIPE_BUSY && WaitNamedPipeW(name, std::max(deadline.Left(), least))) return;
    Sleep(std::min(kHostPollMilliseconds, deadline.Left()));
}

// Waits for an operation whose start returned `started` and gives its error and how many bytes it moved. One
// that isn't done in time is cancelled, and is over when this returns.
DWORD Finish(HANDLE pipe, OVERLAPPED& overlapped, BOOL started, DWORD timeout, DWORD& bytes) {
    const DWORD startError = started ? ERROR_SUCCESS : GetLastError();
    if (startError != ERROR_SUCCESS && startError != ERROR_IO_PENDING && startError != ERROR_MORE_DATA)
        return startError;
    const bool inTime = WaitForSingleObject(overlapped.hEvent, timeout) == WAIT_OBJECT_0;
    if (!inTime) CancelIoEx(pipe, &overlapped);
    if (GetOverlappedResult(pipe, &overlapped, &bytes, TRUE)) return ERROR_SUCCESS;
    const DWORD error = GetLastError();
    return error == ERROR_OPERATION_ABORTED ? DWORD(WAIT_TIMEOUT) : error;
}

} // namespace

Outcome PipeClient::Connect(Milliseconds timeout, const wchar_t* pipeName) {
    Disconnect();
    if (!mEvent) mEvent = Adopt(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    if (!mEvent) return FromError(GetLastError());

    const Deadline deadline(timeout);
    for (;;) {
        mPipe = Adopt(OpenPipe(pipeName));
        if (mPipe) break;
        const DWORD error = GetLastError();
        const bool worthWaiting = error == ERROR_PIPE_BUSY || error == ERROR_FILE_NOT_FOUND;
        if (!worthWaiting || deadline.IsOver()) return FromError(error);
        WaitForPipe(pipeName, error, deadline);
    }

    DWORD mode = PIPE_READMODE_MESSAGE;
    if (SetNamedPipeHandleState(mPipe.get(), &mode, nullptr, nullptr)) return {};
    const DWORD error = GetLastError();
    Disconnect();
    return FromError(error);
}

DWORD PipeClient::ServerProcessId() const {
    ULONG id = 0;
    return mPipe && GetNamedPipeServerProcessId(mPipe.get(), &id) ? DWORD(id) : 0;
}

Outcome PipeClient::Send(std::span<const std::uint8_t> request, Milliseconds timeout) {
    if (!mPipe) return { Failure::kConnectionLost, ERROR_PIPE_NOT_CONNECTED };
    OVERLAPPED overlapped = {};
    overlapped.hEvent = mEvent.get();
    const BOOL started = WriteFile(mPipe.get(), request.data(), DWORD(request.size()), nullptr, &overlapped);
    DWORD bytes = 0;
    return FromError(Finish(mPipe.get(), overlapped, started, Deadline(timeout).Left(), bytes));
}

Reply PipeClient::Receive(Milliseconds timeout) {
    if (!mPipe) return { { Failure::kConnectionLost, ERROR_PIPE_NOT_CONNECTED }, {} };
    const Deadline deadline(timeout);
    std::array<std::uint8_t, kReadChunk> chunk;
    Bytes message;
    for (;;) {
        OVERLAPPED overlapped = {};
        overlapped.hEvent = mEvent.get();
        const BOOL started = ReadFile(mPipe.get(), chunk.data(), DWORD(chunk.size()), nullptr, &overlapped);
        DWORD bytes = 0;
        const DWORD error = Finish(mPipe.get(), overlapped, started, deadline.Left(), bytes);
        if (error != ERROR_SUCCESS && error != ERROR_MORE_DATA) return { FromError(error), {} };
        message.insert(message.end(), chunk.begin(), chunk.begin() + bytes);
        if (error == ERROR_SUCCESS) return { {}, std::move(message) };
    }
}

Reply PipeClient::Exchange(std::span<const std::uint8_t> request, Milliseconds timeout) {
    DropLateReplies(timeout);
    if (const Outcome sent = Send(request, timeout); !sent) return { sent, {} };
    return Receive(timeout);
}

void PipeClient::DropLateReplies(Milliseconds timeout) {
    DWORD waiting = 0;
    while (mPipe && PeekNamedPipe(mPipe.get(), nullptr, 0, nullptr, &waiting, nullptr) && waiting != 0)
        if (!Receive(timeout).outcome) return;
}

} // namespace orvane::player
