#include "shell/entry/HostMain.h"

#include "platform/LogLine.h"
#include "shell/entry/CommandLine.h"
#include "shell/entry/Pump.h"
#include "shell/server/BuiltIns.h"
#include "shell/server/OOPWinPipeServer.h"
#include "shell/windows/WindowClasses.h"

#include <memory>

namespace orvane::shell {

namespace {

constexpr int kInitializeFailed = -1;

void OpenConsole() {
    AllocConsole();
    SetConsoleOutputCP(CP_UTF8);
}

// The thread's message queue exists before the service thread can post to it.
void MakeMessageQueue() {
    MSG message;
    PeekMessageW(&message, nullptr, WM_USER, WM_USER, PM_NOREMOVE);
}

} // namespace

int HostMain(HINSTANCE instance) {
    if (WantsConsole(GetCommandLineW())) OpenConsole();
    RegisterWindowClasses(instance);

    auto server = std::make_unique<OOPWinPipeServer>(LinkedBuiltIns());
    if (!server->Initialize(1)) return kInitializeFailed;

    MakeMessageQueue();
    server->SetMainThreadId(GetCurrentThreadId());
    server->StartServiceThread();

    const HACCEL accelerators = LoadAcceleratorsW(instance, MAKEINTRESOURCEW(kAcceleratorTable));
    Pump pump(*server, accelerators);
    const int exitCode = [&] {
        const ModalLoopFilter filter(pump, [&server] { return server->HoldsPluginLock(); });
        return pump.Run();
    }();

    platform::LogLine("Exiting windows message loop\n");
    server->AskServiceThreadToLeave();
    server.reset();
    FreeConsole();
    return exitCode;
}

} // namespace orvane::shell
