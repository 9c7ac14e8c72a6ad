// The platform under a PipeServer, played from a script: which calls must come, in which order, and what each
// of them answers. The server's state shows in the call that comes next, so a test reads as a session.
//
// A call that the script doesn't have next ends the test with an exception that names both; a loop that goes
// astray so never hangs. What was passed with each call is kept for tests that look at arguments.
#pragma once

#include "shell/server/PipeCalls.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <vector>

namespace orvane::tests {

struct Step {
    std::string call;      // "create", "connect", "read" ...
    std::uintptr_t result; // what the call returns
    DWORD error = ERROR_SUCCESS;
    DWORD count = 0;                // bytes transferred, where the call reports that
    std::string data = {};          // what a read brings
    std::function<void()> during{}; // what happens elsewhere while the call runs
};

using Script = std::vector<Step>;

// The handles of the script.
inline const HANDLE kPipe = reinterpret_cast<HANDLE>(0x51);
inline const HANDLE kSecondPipe = reinterpret_cast<HANDLE>(0x52);
inline const HANDLE kEvent = reinterpret_cast<HANDLE>(0x61);

// One step for each outcome of a call.
Step Creates(HANDLE pipe = kPipe);
Step CreateFails(DWORD error);
Step MakesEvent(HANDLE event = kEvent);
Step EventFails(DWORD error);
Step SetsEvent();
Step SetEventFails();
Step ConnectPends();
Step ConnectFails(DWORD error);
Step ConnectReturnsTrue();
Step Disconnects();
Step Waits(DWORD result = WAIT_OBJECT_0);
Step Reads(const std::string& request);
Step ReadFails(DWORD error);
Step ReadPends();
Step Writes(DWORD count);
Step WriteFails(DWORD error);
Step WritePends();
Step ReadIsDone(const std::string& request); // by GetOverlappedResult, as the next two
Step OperationIsDone(DWORD count = 0);
Step OperationFailed(DWORD error);
Step Closes(HANDLE handle);

Script operator+(Script first, const Script& second);

// A server made ready, its first client on the way.
Script Start();

// How a scripted loop ends: the client leaves while a read is due and no new pipe can be made. It is what the
// server prints meanwhile, too; the event is closed when the server is deleted.
Script End();
inline constexpr char kEndLines[] = "ServeConnection:Pipe is broken. Will atempt to create a new one.\n"
                                    "CreateNamedPipe failed during initialization of the server. Error 231\n"
                                    "Could not resuscitate pipe. Bailing.\n";
inline constexpr char kStartLine[] = "ConnectNamedPipe [ERROR_IO_PENDING].\n";

class ScriptedPipe {
public:
    explicit ScriptedPipe(const Script& script);
    ~ScriptedPipe(); // the script must have been played to its end
    ScriptedPipe(const ScriptedPipe&) = delete;
    ScriptedPipe& operator=(const ScriptedPipe&) = delete;

    [[nodiscard]] const shell::PipeCalls& Calls() const { return mCalls; }

    struct Creation {
        std::wstring name;
        DWORD openMode, pipeMode, instances, outSize, inSize, timeOut;
        const SECURITY_ATTRIBUTES* security;
        bool operator==(const Creation&) const = default;
    };

    struct EventCreation {
        const SECURITY_ATTRIBUTES* security;
        BOOL manualReset, signalled;
        const wchar_t* name;
        bool operator==(const EventCreation&) const = default;
    };

    struct Waiting {
        HANDLE event;
        DWORD time;
        BOOL alertable;
        bool operator==(const Waiting&) const = default;
    };

    // A read, a write, a connect or a question for an overlapped result.
    struct Transfer {
        HANDLE pipe;
        const void* buffer;
        DWORD size;
        const void* count;
        const OVERLAPPED* overlapped;
        HANDLE event; // of the overlapped structure
        BOOL wait;
    };

    std::vector<Creation> mCreations;
    std::vector<EventCreation> mEventCreations;
    std::vector<Waiting> mWaits;
    std::vector<Transfer> mConnects, mReads, mWrites, mResults;
    std::vector<HANDLE> mSetEvents, mDisconnects;
    std::vector<std::string> mReplies; // the bytes of each write, finished or not

private:
    friend struct ScriptedCalls;

    Step Next(const std::string& call);

    shell::PipeCalls mCalls;
    std::deque<Step> mScript;
    std::size_t mPlayed = 0;
    bool mAstray = false;
    void* mReadBuffer = nullptr; // of the last read; a pending one is filled later
};

} // namespace orvane::tests
