#include "unit/shell/server/ScriptedPipe.h"

#include <gtest/gtest.h>

#include <cstring>
#include <stdexcept>

namespace orvane::tests {

namespace {

ScriptedPipe* sPlaying = nullptr; // the calls are plain functions and find their script here

std::uintptr_t Number(HANDLE handle) {
    return reinterpret_cast<std::uintptr_t>(handle);
}

HANDLE Handle(std::uintptr_t number) {
    return reinterpret_cast<HANDLE>(number);
}

std::string CloseOf(HANDLE handle) {
    return "close " + std::to_string(Number(handle));
}

} // namespace

Step Creates(HANDLE pipe) {
    return { "create", Number(pipe) };
}

Step CreateFails(DWORD error) {
    return { "create", Number(INVALID_HANDLE_VALUE), error };
}

Step MakesEvent(HANDLE event) {
    return { "event", Number(event) };
}

Step EventFails(DWORD error) {
    return { "event", Number(INVALID_HANDLE_VALUE), error };
}

Step SetsEvent() {
    return { "set event", TRUE };
}

Step SetEventFails() {
    return { "set event", FALSE, ERROR_INVALID_HANDLE };
}

Step ConnectPends() {
    return ConnectFails(ERROR_IO_PENDING);
}

Step ConnectFails(DWORD error) {
    return { "connect", FALSE, error };
}

Step ConnectReturnsTrue() {
    return { "connect", TRUE };
}

Step Disconnects() {
    return { "disconnect", TRUE };
}

Step Waits(DWORD result) {
    return { "wait", result };
}

Step Reads(const std::string& request) {
    return { "read", TRUE, ERROR_SUCCESS, DWORD(request.size()), request };
}

Step ReadFails(DWORD error) {
    return { "read", FALSE, error };
}

Step ReadPends() {
    return ReadFails(ERROR_IO_PENDING);
}

Step Writes(DWORD count) {
    return { "write", TRUE, ERROR_SUCCESS, count };
}

Step WriteFails(DWORD error) {
    return { "write", FALSE, error };
}

Step WritePends() {
    return WriteFails(ERROR_IO_PENDING);
}

Step ReadIsDone(const std::string& request) {
    return { "result", TRUE, ERROR_SUCCESS, DWORD(request.size()), request };
}

Step OperationIsDone(DWORD count) {
    return { "result", TRUE, ERROR_SUCCESS, count };
}

Step OperationFailed(DWORD error) {
    return { "result", FALSE, error };
}

Step Closes(HANDLE handle) {
    return { CloseOf(handle), TRUE };
}

Script operator+(Script first, const Script& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

Script Start() {
    return { Creates(), MakesEvent(), ConnectPends() };
}

Script End() {
    return { Waits(), ReadFails(ERROR_BROKEN_PIPE), Closes(kPipe), CreateFails(ERROR_PIPE_BUSY),
             Closes(kEvent) };
}

// The table's functions: keep the arguments, play the step.
struct ScriptedCalls {
    static HANDLE WINAPI Create(LPCWSTR name, DWORD openMode, DWORD pipeMode, DWORD instances, DWORD outSize,
                                DWORD inSize, DWORD timeOut, LPSECURITY_ATTRIBUTES security) {
        sPlaying->mCreations.push_back(
            { name, openMode, pipeMode, instances, outSize, inSize, timeOut, security });
        return Handle(sPlaying->Next("create").result);
    }

    static HANDLE WINAPI Event(LPSECURITY_ATTRIBUTES security, BOOL manual, BOOL signalled, LPCWSTR name) {
        sPlaying->mEventCreations.push_back({ security, manual, signalled, name });
        return Handle(sPlaying->Next("event").result);
    }

    static BOOL WINAPI SetEvent(HANDLE event) {
        sPlaying->mSetEvents.push_back(event);
        return BOOL(sPlaying->Next("set event").result);
    }

    static BOOL WINAPI Connect(HANDLE pipe, LPOVERLAPPED overlapped) {
        sPlaying->mConnects.push_back({ pipe, nullptr, 0, nullptr, overlapped, overlapped->hEvent, FALSE });
        return BOOL(sPlaying->Next("connect").result);
    }

    static BOOL WINAPI Disconnect(HANDLE pipe) {
        sPlaying->mDisconnects.push_back(pipe);
        return BOOL(sPlaying->Next("disconnect").result);
    }

    static DWORD WINAPI Wait(HANDLE event, DWORD time, BOOL alertable) {
        sPlaying->mWaits.push_back({ event, time, alertable });
        return DWORD(sPlaying->Next("wait").result);
    }

    static BOOL WINAPI Result(HANDLE pipe, LPOVERLAPPED overlapped, LPDWORD count, BOOL wait) {
        sPlaying->mResults.push_back({ pipe, nullptr, 0, count, overlapped, overlapped->hEvent, wait });
        const Step step = sPlaying->Next("result");
        if (!step.data.empty()) std::memcpy(sPlaying->mReadBuffer, step.data.data(), step.data.size());
        *count = step.count;
        return BOOL(step.result);
    }

    static BOOL WINAPI Read(HANDLE pipe, LPVOID buffer, DWORD size, LPDWORD count, LPOVERLAPPED overlapped) {
        sPlaying->mReads.push_back({ pipe, buffer, size, count, overlapped, overlapped->hEvent, FALSE });
        sPlaying->mReadBuffer = buffer;
        const Step step = sPlaying->Next("read");
        std::memcpy(buffer, step.data.data(), step.data.size());
        *count = step.count;
        return BOOL(step.result);
    }

    static BOOL WINAPI Write(HANDLE pipe, LPCVOID buffer, DWORD size, LPDWORD count,
                             LPOVERLAPPED overlapped) {
        sPlaying->mWrites.push_back({ pipe, buffer, size, count, overlapped, overlapped->hEvent, FALSE });
        sPlaying->mReplies.emplace_back(static_cast<const char*>(buffer), size);
        const Step step = sPlaying->Next("write");
        *count = step.count;
        return BOOL(step.result);
    }

    static BOOL WINAPI Close(HANDLE handle) { return BOOL(sPlaying->Next(CloseOf(handle)).result); }
};

ScriptedPipe::ScriptedPipe(const Script& script)
    : mCalls{ .createNamedPipe = &ScriptedCalls::Create,
              .createEvent = &ScriptedCalls::Event,
              .setEvent = &ScriptedCalls::SetEvent,
              .connectNamedPipe = &ScriptedCalls::Connect,
              .disconnectNamedPipe = &ScriptedCalls::Disconnect,
              .waitForSingleObject = &ScriptedCalls::Wait,
              .getOverlappedResult = &ScriptedCalls::Result,
              .readFile = &ScriptedCalls::Read,
              .writeFile = &ScriptedCalls::Write,
              .closeHandle = &ScriptedCalls::Close }
    , mScript(script.begin(), script.end()) {
    sPlaying = this;
}

ScriptedPipe::~ScriptedPipe() {
    sPlaying = nullptr;
    if (!mAstray && !mScript.empty())
        ADD_FAILURE() << "step " << mPlayed << " never came: " << mScript.front().call;
}

Step ScriptedPipe::Next(const std::string& call) {
    const bool closing = call.starts_with("close");
    if (mAstray && closing) return { call, TRUE }; // the server is being cleared away
    if (mScript.empty() || mScript.front().call != call) {
        mAstray = true;
        const std::string wanted = mScript.empty() ? "nothing" : '"' + mScript.front().call + '"';
        const std::string what =
            "step " + std::to_string(mPlayed) + ": the server called \"" + call + "\", not " + wanted;
        if (!closing) throw std::logic_error(what);
        ADD_FAILURE() << what; // out of a destructor nothing may be thrown
        return { call, TRUE };
    }
    const Step step = mScript.front();
    mScript.pop_front();
    ++mPlayed;
    if (step.during) step.during();
    SetLastError(step.error);
    return step;
}

} // namespace orvane::tests
