// The test host: all of the real one's parts below its windows (pump, service thread, pipe, discovery, modules)
// with a plain window of its own, and with built-in visualizers if they are asked for.
#include "platform/LogLine.h"
#include "shell/entry/Pump.h"
#include "system/plugins/host/ActivatingServer.h"
#include "system/plugins/host/TestHost.h"
#include "system/plugins/host/TitledBuiltIns.h"

#include <cstdlib>
#include <memory>
#include <string>

namespace orvane::tests {
namespace {

// Where the argument stands, or how many there are.
int IndexOf(const wchar_t* argument) {
    int index = 1;
    while (index < __argc && std::wstring_view(__wargv[index]) != argument) ++index;
    return index;
}

std::wstring FolderToScan() {
    const int index = IndexOf(kScanArgument);
    return index + 1 < __argc ? __wargv[index + 1] : L"";
}

LRESULT CALLBACK TestHostWindow(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* server = reinterpret_cast<ActivatingServer*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (message == kFenceMessage) SetPropW(window, kFenceProperty, reinterpret_cast<HANDLE>(wParam));
    if (message == WM_SIZE && server) server->ResizeRenderTarget(LOWORD(lParam), HIWORD(lParam));
    return DefWindowProcW(window, message, wParam, lParam);
}

HWND MakeWindow(HINSTANCE instance, ActivatingServer& server) {
    WNDCLASSEXW windowClass = {};
    windowClass.cbSize = sizeof(windowClass);
    windowClass.lpfnWndProc = &TestHostWindow;
    windowClass.hInstance = instance;
    windowClass.lpszClassName = kTestHostWindowClass;
    RegisterClassExW(&windowClass);
    const HWND window = CreateWindowExW(WS_EX_TOOLWINDOW, kTestHostWindowClass, L"Test host", WS_POPUP, 40,
                                        40, 320, 240, nullptr, nullptr, instance, nullptr);
    ShowWindow(window, SW_SHOWNOACTIVATE);
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&server));
    return window;
}

int Run(HINSTANCE instance) {
    const bool withBuiltIns = IndexOf(kBuiltInsArgument) < __argc;
    auto server = std::make_unique<ActivatingServer>(
        withBuiltIns ? TitledBuiltIns() : std::span<const shell::BuiltIn>(), FolderToScan());
    const HWND window = MakeWindow(instance, *server);
    server->SetWindow(window);
    if (!server->Initialize(1)) return -1;
    server->SetMainThreadId(GetCurrentThreadId());
    server->StartServiceThread();
    const int exitCode = shell::Pump(*server, nullptr).Run();
    platform::LogLine("Exiting windows message loop\n");
    server->AskServiceThreadToLeave();
    SetWindowLongPtrW(window, GWLP_USERDATA, 0);
    return exitCode;
}

} // namespace
} // namespace orvane::tests

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, PWSTR, int) {
    return orvane::tests::Run(instance);
}
