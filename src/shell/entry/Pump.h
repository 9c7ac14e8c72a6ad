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

    // True if the message was posted work. It is then done, behind what was kept before it; or kept for later, if
    // it must wait, or if it comes while other work is under way.
    bool HandlePostedWork(const MSG& message, bool mustWait = false);

private:
    void DoKeptWork();

    RequestOperations& mServer;
    HACCEL mAccelerators;
    std::deque<MSG> mKept; // posted work that is still to be done, in its order
    bool mWorking = false; // a piece of it is under way
};

// While the user drags or sizes a window, a loop inside DefWindowProc fetches the thread's messages, and
// throws away those that belong to no window. As long as this lives, a message filter of the main thread hands
// posted work to the pump all the same, so that nothing that the service thread posted is lost: an activation,
// say, or an artwork record, which would never be freed. One at a time, on the pump's thread.
//
// A plug-in may run such a loop inside a call from here, behind a message box say. What it fetches waits until
// the call is back: done at once, a deactivation could take away the visualizer that is still in that call, and
// most work would lock mPluginLock a second time. Calls of posted work are known to the pump; for the others, a
// key or a new size, `mustWait` tells while they hold the lock.
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
