#include "shell/server/PipeServer.h"

#include "platform/LogLine.h"
#include "shell/dispatch/Dispatcher.h"

#include <cstdio>

namespace orvane::shell {

using platform::LineBuffer;
using platform::LogFormat;
using platform::LogLine;

namespace {

constexpr DWORD kOpenMode = PIPE_ACCESS_DUPLEX | FILE_FLAG_OVERLAPPED;
constexpr DWORD kMessagePipe = PIPE_TYPE_MESSAGE | PIPE_READMODE_MESSAGE;
constexpr DWORD kBytePipe = PIPE_TYPE_BYTE | PIPE_READMODE_BYTE;
static_assert(kOpenMode == 0x40000003 && kMessagePipe == 6 && kBytePipe == 0);
static_assert(PIPE_UNLIMITED_INSTANCES == 255);

constexpr DWORD kLeaveGraceMilliseconds = 1000;

constexpr const char* NameOf(PipeState state) {
    constexpr const char* kNames[] = { "kReading", "kWriting", "kConnecting" };
    return kNames[std::uint32_t(state)];
}

DWORD WINAPI RunServiceThread(void* server) {
    static_cast<PipeServer*>(server)->ServeConnection();
    return 0;
}

} // namespace

std::atomic<bool> PipeServer::sLeaving = false;

// The request in the server's input buffer, and its output buffer with the pipe behind it.
class PipeServer::PipeExchange final : public IExchange {
public:
    explicit PipeExchange(PipeServer& server)
        : mServer(server) {}

    const std::uint8_t* Input() const override { return mServer.mInputBuffer.get(); }

    std::uint32_t BytesRead() const override { return mServer.mBytesRead; }

    std::uint8_t* Output() override { return mServer.mOutputBuffer.get(); }

    bool WriteReply(std::uint32_t length) override { return mServer.WriteReply(length); }

private:
    PipeServer& mServer;
};

PipeServer::PipeServer(const PipeCalls& calls)
    : RequestOperations(std::make_unique<PipeExchange>(*this))
    , mInputBuffer(std::make_unique<std::uint8_t[]>(kMessageCapacity))
    , mOutputBuffer(std::make_unique<std::uint8_t[]>(kMessageCapacity))
    , mCalls(calls) {
    mOverlapped.hEvent = INVALID_HANDLE_VALUE;
    sLeaving = false;
}

PipeServer::~PipeServer() {
    for (const HANDLE handle : { mPipe, mOverlapped.hEvent })
        if (handle != INVALID_HANDLE_VALUE) mCalls.closeHandle(handle);
}

bool PipeServer::Initialize(std::uint8_t messageMode) {
    mMessageMode = messageMode;
    if (!CreatePipe() || !CreateOverlappedEvent()) return false;
    // A client that came and went before it could be connected leaves the pipe half closed. It must not end
    // the service: the pipe is freed of it and waits for the next one. Nobody was served on this pipe, so what
    // the derived classes set up around it is still fresh, and their Initialize isn't run for it.
    bool clientCameAndWent = false;
    bool connected = ConnectOnce(clientCameAndWent);
    while (clientCameAndWent) {
        mCalls.disconnectNamedPipe(mPipe);
        connected = ConnectOnce(clientCameAndWent);
    }
    return connected;
}

bool PipeServer::CreatePipe() {
    mPipe = mCalls.createNamedPipe(kPipeName, kOpenMode, mMessageMode > 0 ? kMessagePipe : kBytePipe,
                                   PIPE_UNLIMITED_INSTANCES, kMessageCapacity, kMessageCapacity, 0, nullptr);
    if (mPipe != INVALID_HANDLE_VALUE) return true;
    LogFormat("CreateNamedPipe failed during initialization of the server. Error %d\n", int(GetLastError()));
    return false;
}

bool PipeServer::CreateOverlappedEvent() {
    if (mOverlapped.hEvent != INVALID_HANDLE_VALUE) return true; // it lives on across pipes
    mOverlapped.hEvent = mCalls.createEvent(nullptr, TRUE, FALSE, nullptr);
    // KEEP: compared with -1 alone, though a failed CreateEventW returns null. The server then runs on
    // without an event. Pinned by ServiceLoop.AnEventThatIsNullPassesAsMade.
    if (mOverlapped.hEvent != INVALID_HANDLE_VALUE) return true;
    LogFormat("Could not create the overlap instruction event. Error %d\n", int(GetLastError()));
    return false;
}

bool PipeServer::ConnectOnce(bool& clientCameAndWent) {
    clientCameAndWent = false;
    mPipeState = PipeState::kConnecting;
    mPendingIO = mCalls.connectNamedPipe(mPipe, &mOverlapped);
    if (mPendingIO) {
        LogLine("ConnectNamedPipe returned true, which is unexpected.\n");
        return true;
    }
    mPipeState = PipeState::kReading;
    switch (const DWORD error = GetLastError()) {
    case ERROR_PIPE_CONNECTED:
        // The client was faster: nothing will signal the event, so it is signalled by hand.
        LogLine("ConnectNamedPipe [ERROR_PIPE_CONNECTED]\n");
        if (mCalls.setEvent(mOverlapped.hEvent)) LogLine("ConnectNamedPipe SetEvent returned true\n");
        return true;
    case ERROR_IO_PENDING:
        // The pending flag stays clear: when the client connects, the loop goes straight to its read.
        LogLine("ConnectNamedPipe [ERROR_IO_PENDING].\n");
        return true;
    case ERROR_NO_DATA:
        clientCameAndWent = true;
        return false;
    default:
        LogFormat("ConnectNamedPipe returned error. Error %d\n", int(error));
        return false;
    }
}

void PipeServer::ServeConnection() {
    for (;;) {
        // KEEP: made for whoever stops here in a debugger, never printed; a line for each of sixty requests a
        // second would drown the console. Pinned by ServiceLoop.TheWaitingLineIsNotPrinted.
        char line[std::size_t(LineBuffer::k512)];
        std::snprintf(line, sizeof(line), "ServeConnection:Waiting for next connection [PipeState::%s]\n",
                      NameOf(mPipeState));

        if (sLeaving) return;
        const DWORD waitResult = mCalls.waitForSingleObject(mOverlapped.hEvent, INFINITE, TRUE);
        if (sLeaving) return;

        if (mPendingIO && !PendingIO(*this).Wait(waitResult)) {
            if (!RecreatePipe()) return;
            continue;
        }
        if (!ServeState()) return;
    }
}

// The one step that the state asks for; where it leads to is for the next pass, after the next wait. False if
// the service is at its end.
bool PipeServer::ServeState() {
    switch (mPipeState) {
    case PipeState::kReading:
        return ServeReading();
    case PipeState::kWriting:
        return ServeWriting();
    case PipeState::kConnecting:
        return true;
    }
    return true;
}

// One read. False if the service is at its end.
bool PipeServer::ServeReading() {
    if (mCalls.readFile(mPipe, mInputBuffer.get(), kMessageCapacity, &mBytesRead, &mOverlapped)) {
        if (mBytesRead == 0) return true;
        mPendingIO = FALSE;
        mPipeState = PipeState::kWriting;
        return true;
    }
    switch (const DWORD error = GetLastError()) {
    case ERROR_IO_PENDING:
        mPendingIO = TRUE;
        return true;
    case ERROR_BROKEN_PIPE:
        return RecreatePipe();
    default:
        LogFormat("ServeConnection:Error %d on read attempt\n", int(error));
        return true;
    }
}

// One request handled. False if the service is at its end.
bool PipeServer::ServeWriting() {
    if (HandleRequest()) {
        if (mBytesWritten == 0) return true;
        mPendingIO = FALSE;
        mPipeState = PipeState::kReading;
        return true;
    }
    // An operation that writes no reply counts as having answered. Handled again, its request would end the
    // same way, for ever, and the client's next request would never be read.
    if (!mReplyTried) {
        mPendingIO = FALSE;
        mPipeState = PipeState::kReading;
        return true;
    }
    if (mWriteError == ERROR_IO_PENDING) {
        mPendingIO = TRUE; // the state stays: PendingIO moves it when the write is done
        return true;
    }
    // A client that left without its reply is as gone as one that a read misses, and takes the same road. The
    // failed write leaves the event unsignalled, so waiting on it again would be for ever; and the request
    // was handled: keys or a track must not come twice because nobody took the answer.
    if (IsClientGone(mWriteError)) return RecreatePipe();
    return true;
}

bool PipeServer::RecreatePipe() {
    mCalls.closeHandle(mPipe);
    mPipe = INVALID_HANDLE_VALUE;
    LogLine("ServeConnection:Pipe is broken. Will atempt to create a new one.\n");
    if (Initialize(1)) return true;
    LogLine("Could not resuscitate pipe. Bailing.\n");
    return false;
}

bool PipeServer::HandleRequest() {
    mReplyTried = false;
    mWriteError = ERROR_SUCCESS;
    mBytesWritten = 0;
    const bool said = DispatchRequest(*this, Exchange());
    return said && mReplyTried; // an operation may say "true" of no write at all
}

bool PipeServer::WriteReply(std::uint32_t length) {
    mReplyTried = true;
    const BOOL written = mCalls.writeFile(mPipe, mOutputBuffer.get(), length, &mBytesWritten, &mOverlapped);
    mWriteError = written ? ERROR_SUCCESS : GetLastError();
    return written == TRUE;
}

void PipeServer::StartServiceThread() {
    mThread = CreateThread(nullptr, 0, &RunServiceThread, this, 0, &mThreadId);
}

void PipeServer::AskServiceThreadToLeave() {
    sLeaving = true;
    mCalls.setEvent(mOverlapped.hEvent);
    if (!mThread) return;
    // The service thread may just be showing or moving a window of this thread, and waits for its answers.
    const ULONGLONG end = GetTickCount64() + kLeaveGraceMilliseconds;
    for (ULONGLONG now = GetTickCount64(); now < end; now = GetTickCount64()) {
        if (MsgWaitForMultipleObjects(1, &mThread, FALSE, DWORD(end - now), QS_SENDMESSAGE) !=
            WAIT_OBJECT_0 + 1)
            return;
        MSG message;
        PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);
    }
}

} // namespace orvane::shell
