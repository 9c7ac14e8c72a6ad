// The main thread's message loop, which doubles as the executor of all work that the service thread posts.
//
// There is no timer and no idle work: the main thread sleeps between messages, and all animation is paced by
// the player's requests.
#pragma once

#include "shell/dispatch/RequestOperations.h"

#include <windows.h>

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

private:
    RequestOperations& mServer;
    HACCEL mAccelerators;
};

} // namespace orvane::shell
