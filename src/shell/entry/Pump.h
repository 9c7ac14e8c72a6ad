// The main thread's message loop, which doubles as the executor of all work that the service thread posts.
//
// There is no timer and no idle work: the main thread sleeps between messages, and all animation is paced by
// the player's requests.
#pragma once

#include "shell/dispatch/RequestOperations.h"

#include <windows.h>

#include <deque>
#include <functional>

namespace orvane::shell {

constexpr WORD kAcceleratorTable = 109;

class Pump {
public:
    Pump(RequestOperations& server, HACCEL accelerators)
        : mServer(server)
        , mAccelerators(accelerators) {}

    // Fetches and handles messages until WM_QUIT; returns its wParam, the process's exit code.
    [[nodiscard]] int Run();

    // One message: posted work is executed and its payload freed, anything else goes its usual way.
    void Handle(MSG& message);

    // True if the message was posted work, which is then done, or kept for later if it must wait.
    bool HandlePostedWork(const MSG& message, bool mustWait = false);

private:
    void DoKeptWork();

    RequestOperations& mServer;
    HACCEL mAccelerators;
    std::deque<MSG> mKept; // posted work that had to wait, in its order
};

// While the user drags or sizes a window, a loop inside DefWindowProc fetches the thread's messages, and
// throws away those that belong to no window. As long as this lives, a message filter of the main thread
// hands posted work to the pump all the same, so that nothing the service thread posted is lost. One at a
// time, on the pump's thread.
//
// A loop that a plug-in runs inside a call from here, behind a message box say, may have the work's locks
// above it: while `mustWait` holds, work is kept until the pump is back in its own loop.
class ModalLoopFilter {
public:
    ModalLoopFilter(Pump& pump, std::function<bool()> mustWait);
    ~ModalLoopFilter();
    ModalLoopFilter(const ModalLoopFilter&) = delete;
    ModalLoopFilter& operator=(const ModalLoopFilter&) = delete;

private:
    HHOOK mHook;
};

} // namespace orvane::shell
